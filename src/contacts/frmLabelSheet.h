#pragma once

#include <QWidget>

namespace vorel {

// The picture of a sheet of labels: which are used up, which will be printed, and where to start. A click or the arrow
// keys choose the start.
class frmLabelSheet : public QWidget {
    Q_OBJECT
public:
    explicit frmLabelSheet(QWidget *parent = nullptr);

    int start() const { return m_start; }
    void setStart(int number);              // 1 to 14
    void setCount(int labels);              // that are to be printed
    QRect labelRect(int number) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void startChosen(int number);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QRect sheet() const;
    void choose(int number);

    int m_start = 1, m_count = 0;
};

}
