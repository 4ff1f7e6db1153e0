#pragma once

#include <QBasicTimer>
#include <QLabel>
#include <QPushButton>

namespace vorel {

// The panel of hints in the strip. A line longer than the panel rolls by, slowly, while the window is in use; it stands
// still under the pointer, and where the desktop wants no animation it is cut with dots.
class InfoPanel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(bool warning READ warning)
public:
    explicit InfoPanel(QWidget *parent = nullptr);

    bool warning() const { return m_warning; }
    void setWarning(bool warning);          // the warning outline instead of the normal one

    QSize sizeHint() const override { return minimumSizeHint(); }       // it takes what the strip leaves
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    bool event(QEvent *event) override;

private:
    int overhang() const;                   // what does not fit, in pixels
    void roll();

    QBasicTimer m_timer;
    QString m_shown;
    int m_offset = 0;
    bool m_warning = false;
};

// A signal in the strip, in exactly the colours of its palette: a style's shading would wash a warning out.
class SignalButton : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override;
};

}
