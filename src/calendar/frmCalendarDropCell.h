#pragma once

#include <QAbstractButton>

namespace vorel {

// One day of the picker. The chosen day is filled and bold, today has a ring and a dot below its number.
class DayCell : public QAbstractButton {
    Q_OBJECT
public:
    explicit DayCell(QWidget *parent = nullptr);
    void setDay(int day, const QString &fullDate, bool today, bool selected);    // day 0: blank
    int day() const { return m_day; }
    bool isToday() const { return m_today; }
    QSize sizeHint() const override;

signals:
    void DblClick();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    int m_day = 0;
    bool m_today = false;
};

}
