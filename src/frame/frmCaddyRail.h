#pragma once

#include <QAbstractButton>
#include <QScrollArea>

namespace vorel {

// One entry of the rail: icon and caption on a plain background, marked while its section is on show.
class RailButton : public QAbstractButton {
    Q_OBJECT
public:
    RailButton(int index, const QString &caption, const QString &toolTip, QWidget *parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

// The 25 section buttons in groups; scrolls where the window is too low for all of them.
class Rail : public QScrollArea {
    Q_OBJECT
public:
    explicit Rail(QWidget *parent = nullptr);
    RailButton *button(int index) const { return m_buttons[static_cast<std::size_t>(index)]; }
    static std::vector<int> order();            // the indexes from the top down
    void applyIcons();
    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void fixWidth();
    std::vector<RailButton *> m_buttons;
};

}
