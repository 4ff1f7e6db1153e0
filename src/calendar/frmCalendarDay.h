#pragma once

#include "calendar/monthrows.h"

#include <QAbstractButton>
#include <QColor>

namespace vorel {

// The colours of the kinds' texts: those of their grids where the user chose them, else quiet tints of the palette.
struct KindColours {
    QColor event, appointment, bill;
    const QColor &of(DayKind kind) const { return kind == DayKind::Event ? event : kind == DayKind::Bill ? bill : appointment; }
};
KindColours kindColours(const QPalette &palette);

// One day of the calendar screen: its number, and below it a short text for each row, in the colours of their grids. What
// has no room is counted; the tip and the screen reader have the whole of it.
class CalendarDay : public QAbstractButton {
    Q_OBJECT
public:
    explicit CalendarDay(QWidget *parent = nullptr);

    struct Look {
        bool isToday = false, isPicked = false, isWeekend = false;
        KindColours colours{};
    };
    void showDay(basic::DateTime date, std::vector<DayEntry> entries, const Look &look);
    void showBlank();
    int day() const { return m_day; }                   // 0: blank
    bool isToday() const { return m_look.isToday; }
    const std::vector<DayEntry> &entries() const { return m_entries; }
    int shownEntries() const;                           // how many have room
    const DayEntry *entryAt(const QPoint &place) const; // nullptr: none there
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void DblClick(const QPoint &place);
    void MenuWanted(const QPoint &screenPlace);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QRect linePlace(int line) const;
    int lines() const;
    void drawNumber(QPainter &painter) const;
    void drawEntry(QPainter &painter, const DayEntry &entry, const QRect &place) const;

    int m_day = 0;
    Look m_look;
    std::vector<DayEntry> m_entries;
};

// The small sign of a kind, so that nothing hangs on the colour alone: a dot, a square, a diamond.
void drawKindMark(QPainter &painter, DayKind kind, const QPointF &middle, const QColor &colour);

}
