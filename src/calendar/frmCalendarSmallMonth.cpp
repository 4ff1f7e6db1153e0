#include "calendar/frmCalendarSmallMonth.h"

#include "platform/basic/clock.h"
#include "platform/basic/error.h"
#include "platform/controls/colours.h"
#include "platform/controls/form.h"
#include "session/changes.h"
#include "session/datafiles.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

constexpr int titlePoints = 9, dayPoints = 8;
constexpr int wheelStep = 120;
constexpr QColor titleColour(0, 0, 255), headColour(255, 0, 0);     // 0xff0000 and 255 as colour numbers

QFont boxFont(int points, bool bold)
{
    QFont font(u"Arial"_s);
    font.setPointSize(points);
    font.setBold(bold);
    return font;
}

int lineHeight() { return QFontMetrics(boxFont(dayPoints, false)).height() + 5; }
int titleHeight() { return QFontMetrics(boxFont(titlePoints, true)).height() + 8; }

// The described colour where it can be read; on other grounds as much of it as reads.
QColor inkOn(const QColor &colour, const QColor &ground)
{
    QColor ink = colour;
    const QColor strong = controls::blackOrWhiteOn(ground);
    for (double part = 0; controls::contrast(ink, ground) < 4.5 && part < 1; part += 0.1)
        ink = controls::blend(colour, strong, part);
    return ink;
}

void drawArrow(QPainter &painter, const QRect &place, bool next, const QColor &colour)
{
    const QPointF middle = QRectF(place).center();
    const double half = 4, way = next ? 1 : -1;
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({middle + QPointF(-way * half / 2, -half), middle + QPointF(way * half / 2, 0),
                                    middle + QPointF(-way * half / 2, half)}));
}

}

SmallMonth::SmallMonth(QWidget *parent) : QWidget(parent), m_weekStart(state().settings.gWeekStartDay)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    const DateTime today = basic::Date();
    showMonth(today.year(), today.month());
}

void SmallMonth::showMonth(int year, int month)
{
    m_weekStart = state().settings.gWeekStartDay;
    m_month = monthCells(year, month, m_weekStart);
    m_counts.clear();
    setAccessibleName(monthTitle(year, month));
    speak();
    update();
}

void SmallMonth::setCounts(std::vector<DayCount> counts)
{
    m_counts = std::move(counts);
    speak();
    update();
}

void SmallMonth::setPicked(DateTime day)
{
    m_picked = day;
    speak();
    update();
}

void SmallMonth::setArrows(bool on)
{
    m_arrows = on;
    update();
}

// What a screen reader says of the picked day.
void SmallMonth::speak()
{
    const bool here = m_picked.hasDate() && m_picked.year() == m_month.year && m_picked.month() == m_month.month;
    const QString before = accessibleDescription();
    setAccessibleDescription(here ? tipOf(m_picked.day()) : QString());
    if (hasFocus() && before != accessibleDescription()) {
        QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&changed);
    }
}

QString SmallMonth::tipOf(int day) const
{
    const auto place = static_cast<std::size_t>(day - 1);
    QString text = dayText(m_month.date(day), place < m_counts.size() ? m_counts[place] : DayCount{});
    if (m_month.date(day) == basic::Date())
        text += u", today"_s;
    return text;
}

QSize SmallMonth::minimumSizeHint() const
{
    const int column = QFontMetrics(boxFont(dayPoints, true)).horizontalAdvance(u"00"_s) + 5;
    return {monthColumns * column + 4, titleHeight() + 7 * lineHeight() + 4};
}

QSize SmallMonth::sizeHint() const { return minimumSizeHint() + QSize(40, 8); }

QRect SmallMonth::titlePlace() const { return {0, 0, width(), titleHeight()}; }

QRect SmallMonth::arrowPlace(bool next) const
{
    const int side = titleHeight();
    return {next != (layoutDirection() == Qt::RightToLeft) ? width() - side : 0, 0, side, side};
}

QRect SmallMonth::dayPlace(int day) const
{
    const int cell = m_month.cellOf(day), column = cell % monthColumns, row = cell / monthColumns;
    const int shown = layoutDirection() == Qt::RightToLeft ? monthColumns - 1 - column : column;
    const int top = titleHeight() + lineHeight(), left = shown * width() / monthColumns;
    const int line = std::min(lineHeight() + 10, (height() - top) / 6);
    return {left, top + row * line, (shown + 1) * width() / monthColumns - left, line};
}

int SmallMonth::dayAt(const QPoint &place) const
{
    for (int day = 1; day <= m_month.days; ++day)
        if (dayPlace(day).contains(place))
            return day;
    return 0;
}

bool SmallMonth::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        if (const int day = dayAt(help->pos())) {
            QToolTip::showText(help->globalPos(), tipOf(day), this, dayPlace(day));
            return true;
        }
    }
    return QWidget::event(event);
}

void SmallMonth::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    DrawSmallMonth(*this, painter);
}

void DrawSmallMonth(const SmallMonth &month, QPainter &box)
{
    const QPalette colours = month.palette();
    const QColor ground = month.m_back.isValid() ? month.m_back : colours.color(QPalette::Window);
    const QColor ink = controls::readable(colours.color(QPalette::WindowText), ground), high = colours.color(QPalette::Highlight);
    box.setRenderHint(QPainter::Antialiasing);
    box.setFont(boxFont(titlePoints, true));
    const QColor title = inkOn(titleColour, ground);
    box.setPen(title);
    box.drawText(month.titlePlace(), Qt::AlignCenter, monthTitle(month.year(), month.month()));
    if (month.m_arrows) {
        for (const bool next : {false, true})
            drawArrow(box, month.arrowPlace(next), next != (month.layoutDirection() == Qt::RightToLeft), title);
    }
    box.setFont(boxFont(dayPoints, false));
    box.setPen(inkOn(headColour, ground));
    const std::array<QString, 7> heads = weekDayHeads(month.m_weekStart);
    for (int column = 0; column < monthColumns; ++column) {
        const QRect below = month.dayPlace(column - month.m_month.firstCell + 1);
        box.drawText(QRect(below.left(), titleHeight(), below.width(), lineHeight()), Qt::AlignCenter,
                     heads[static_cast<std::size_t>(column)].left(1));
    }
    const DateTime today = basic::Date();
    for (int day = 1; day <= month.m_month.days; ++day) {
        const QRectF place = QRectF(month.dayPlace(day)).adjusted(1, 0.5, -1, -0.5);
        const DateTime date = month.m_month.date(day);
        const bool isPicked = date == month.m_picked, isToday = date == today;
        const auto at = static_cast<std::size_t>(day - 1);
        const bool isMarked = at < month.m_counts.size() && !month.m_counts[at].isEmpty();
        if (isPicked || isToday) {
            box.setPen(isPicked ? QPen(Qt::NoPen) : QPen(high, 1.4));
            box.setBrush(isPicked ? QBrush(high) : QBrush(Qt::NoBrush));
            box.drawRoundedRect(place, 4, 4);
        }
        const QColor words = isPicked ? colours.color(QPalette::HighlightedText) : ink;
        box.setFont(boxFont(dayPoints, isMarked || isToday));
        box.setPen(words);
        box.drawText(place.adjusted(0, 0, 0, -3), Qt::AlignCenter, QString::number(day));
        if (isMarked) {
            box.setPen(Qt::NoPen);
            box.setBrush(isPicked ? words : high);
            box.drawRoundedRect(QRectF(place.center().x() - 4, place.bottom() - 3, 8, 2), 1, 1);
        }
    }
    if (month.hasFocus()) {
        box.setBrush(Qt::NoBrush);
        box.setPen(QPen(high, 1));
        box.drawRoundedRect(QRectF(month.rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
}

void SmallMonth::pick(DateTime day)
{
    setPicked(day);
    emit DayClicked(day);
}

void SmallMonth::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint place = event->position().toPoint();
    if (const int day = dayAt(place))
        pick(m_month.date(day));
    else if (m_arrows && arrowPlace(false).contains(place))
        emit Stepped(-1);
    else if (m_arrows && arrowPlace(true).contains(place))
        emit Stepped(1);
    else if (titlePlace().contains(place))
        emit TitleClicked();
}

void SmallMonth::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (const int day = event->button() == Qt::LeftButton ? dayAt(event->position().toPoint()) : 0)
        emit DayDblClicked(m_month.date(day));
    else
        QWidget::mouseDoubleClickEvent(event);
}

void SmallMonth::keyPressEvent(QKeyEvent *event)
{
    const bool isHere = m_picked.hasDate() && m_picked.year() == year() && m_picked.month() == month();
    const DateTime from = isHere ? m_picked : m_month.first();
    const int way = layoutDirection() == Qt::RightToLeft ? -1 : 1, months = event->modifiers() & Qt::ControlModifier ? 12 : 1;
    switch (event->key()) {
    case Qt::Key_Left: return pick(daysAway(from, -way));
    case Qt::Key_Right: return pick(daysAway(from, way));
    case Qt::Key_Up: return pick(daysAway(from, -monthColumns));
    case Qt::Key_Down: return pick(daysAway(from, monthColumns));
    case Qt::Key_PageUp: return pick(monthsAway(from, -months));
    case Qt::Key_PageDown: return pick(monthsAway(from, months));
    case Qt::Key_End: return pick(m_month.last());
    case Qt::Key_Home: return pick(event->modifiers() & Qt::ControlModifier ? basic::Date() : m_month.first());
    case Qt::Key_T: return pick(basic::Date());
    case Qt::Key_Return:
    case Qt::Key_Enter: emit DayDblClicked(from); return;
    case Qt::Key_Space: return pick(from);
    default: QWidget::keyPressEvent(event);
    }
}

void SmallMonth::wheelEvent(QWheelEvent *event)
{
    m_wheel += event->angleDelta().y();
    for (; std::abs(m_wheel) >= wheelStep; m_wheel -= m_wheel > 0 ? wheelStep : -wheelStep)
        emit Stepped(m_wheel > 0 ? -1 : 1);
    event->accept();
}

void SmallMonth::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    speak();
}

MonthBox::MonthBox(QWidget *parent) : SmallMonth(parent), m_today(basic::Date())
{
    setObjectName(u"picMonth"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    controls::on(this, &SmallMonth::Stepped, this, [this](int months) { step(months); });
    controls::on(&Changes::instance(), &Changes::changed, this, [this](const QString &table) {
        if (isOnCalendar(table))
            reload();
    });
}

void MonthBox::reload()
{
    m_isStale = true;
    update();
}

void MonthBox::step(int months)
{
    const DateTime day = monthsAway(basic::DateTime::fromParts(year(), month(), 1), months);
    showMonth(day.year(), day.month());
    reload();
}

void MonthBox::pick(DateTime day)
{
    if (day.year() != year() || day.month() != month()) {
        showMonth(day.year(), day.month());
        reload();
    }
    SmallMonth::pick(day);
}

// Without a main file, or while another program holds it, the month has no marks.
void MonthBox::read()
{
    m_isStale = false;
    if (m_today != basic::Date() && m_today.year() == year() && m_today.month() == month())
        showMonth(basic::Date().year(), basic::Date().month());     // the month on show was the present one
    m_today = basic::Date();
    basic::IgnoreErrors([this] {
        dao::Database database = openDataFile(DataFile::Main);
        setCounts(countDays(database, monthSpan(year(), month())));
    });
}

void MonthBox::paintEvent(QPaintEvent *event)
{
    if (m_isStale || m_today != basic::Date())
        read();
    SmallMonth::paintEvent(event);
}

}
