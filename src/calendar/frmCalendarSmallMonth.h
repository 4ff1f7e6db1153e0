#pragma once

#include "calendar/monthrows.h"

#include <QBasicTimer>
#include <QWidget>

namespace vorel {

// A month in a small box: its name between two arrows, the days, and a mark below each day that holds rows. The year view
// shows twelve of them, the main screen one. By keyboard it is one stop: arrows, PgUp and PgDn move the picked day.
class SmallMonth : public QWidget {
    Q_OBJECT
public:
    explicit SmallMonth(QWidget *parent = nullptr);

    int year() const { return m_month.year; }
    int month() const { return m_month.month; }
    basic::DateTime picked() const { return m_picked; }     // day 0: none in this month
    void showMonth(int year, int month);                    // without marks until setCounts
    void setCounts(std::vector<DayCount> counts);           // of the month's days
    void setPicked(basic::DateTime day);
    void setArrows(bool on);                                // false: the name alone
    void setBack(const QColor &back) { m_back = back; }     // the ground under it, where it is not the palette's

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // What lies at a place of the widget: a day, or 0.
    int dayAt(const QPoint &place) const;
    QRect dayPlace(int day) const;

signals:
    void DayClicked(vorel::basic::DateTime day);
    void DayDblClicked(vorel::basic::DateTime day);
    void Stepped(int months);                               // an arrow, or a key that leaves the month
    void TitleClicked();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

    virtual void pick(basic::DateTime day);                 // by click or key: a day of this month or of another

private:
    friend void DrawSmallMonth(const SmallMonth &month, QPainter &box);
    QRect titlePlace() const;
    QRect arrowPlace(bool next) const;
    QString tipOf(int day) const;
    void speak();

    MonthCells m_month;
    int m_weekStart = 1;
    std::vector<DayCount> m_counts;
    basic::DateTime m_picked;
    QColor m_back;
    bool m_arrows = true;
    int m_wheel = 0;
};

// Paints the month: its name in bold blue, the day heads in red, then the dates, in Arial; the colours give way where they
// could not be read on the box.
void DrawSmallMonth(const SmallMonth &month, QPainter &box);

// The small month of the main screen: steps by itself, marks the days by the main file, and follows every change of it.
class MonthBox : public SmallMonth {
    Q_OBJECT
public:
    explicit MonthBox(QWidget *parent = nullptr);
    void reload();                                          // read at the next paint

protected:
    void paintEvent(QPaintEvent *event) override;
    void pick(basic::DateTime day) override;

private:
    void step(int months);
    void read();

    bool m_isStale = true;
    basic::DateTime m_today;
};

}
