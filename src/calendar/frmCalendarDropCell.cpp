#include "calendar/frmCalendarDropCell.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace vorel {

using namespace Qt::StringLiterals;

DayCell::DayCell(QWidget *parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DayCell::setDay(int day, const QString &fullDate, bool today, bool selected)
{
    m_day = day;
    m_today = today;
    setText(day == 0 ? QString() : QString::number(day));
    setEnabled(day != 0);
    setChecked(selected);
    setFocusPolicy(selected ? Qt::StrongFocus : Qt::ClickFocus);      // one stop of the Tab key in the month
    QString spoken = fullDate;
    if (today)
        spoken += u", today"_s;
    if (selected)
        spoken += u", selected"_s;
    setAccessibleName(spoken);
    update();
}

QSize DayCell::sizeHint() const
{
    const int side = std::max(fontMetrics().horizontalAdvance(u"00"_s) + 20, fontMetrics().height() + 16);
    return {side, side};
}

void DayCell::paintEvent(QPaintEvent *)
{
    if (m_day == 0)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(2, 2, -2, -2);
    QColor ink = palette().color(QPalette::WindowText);
    QFont font = painter.font();
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(area, 5, 5);
        ink = palette().color(QPalette::HighlightedText);
        font.setBold(true);
    } else if (underMouse()) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlphaF(0.18f);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(area, 5, 5);
    }
    if (m_today) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isChecked() ? ink : palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(area.adjusted(1.5, 1.5, -1.5, -1.5), 4, 4);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(QPointF(area.center().x(), area.bottom() - 5.5), 1.8, 1.8);
    }
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ink, 1, Qt::DotLine));
        painter.drawRoundedRect(area.adjusted(3.5, 3.5, -3.5, -3.5), 3, 3);
    }
}

// The keys of the month belong to the screen: a button group would move the focus by itself.
void DayCell::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void DayCell::mouseDoubleClickEvent(QMouseEvent *event)
{
    QAbstractButton::mouseDoubleClickEvent(event);
    if (m_day != 0)
        emit DblClick();
}

}
