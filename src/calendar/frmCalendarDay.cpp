#include "calendar/frmCalendarDay.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/controls/colours.h"
#include "session/ini.h"
#include "session/sectiondesign.h"

#include <QContextMenuEvent>
#include <QPainter>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr int pad = 4, gap = 2, mostTipLines = 24;
constexpr double smallText = 0.88;

QFont textFont(const QFont &font)
{
    QFont small = font;
    small.setPointSizeF(font.pointSizeF() * smallText);
    return small;
}

// What a cell says of a row; a narrow one leaves the time to the tip, as all do the amount.
QString shortText(const DayEntry &entry, int width)
{
    constexpr int wide = 120;
    if (entry.kind == DayKind::Event)
        return entry.text.isEmpty() ? entry.subject : entry.text;
    if (entry.kind == DayKind::Bill || width < wide || !basic::IsDate(entry.time))
        return entry.text;
    return basic::Format(basic::CDate(entry.time), u"h:nn") + u' ' + entry.text;
}

}

KindColours kindColours(const QPalette &palette)
{
    const auto colourOf = [&palette](SectionId section, const QColor &hue) {
        const GridColourDesign &design = *sectionDesign(section).grid->colour;
        const quint32 chosen = GetIniColour(design.key, design.design);
        return chosen == design.design ? controls::blend(palette.color(QPalette::Base), hue, 0.24) : basic::colourOfNumber(chosen);
    };
    return {colourOf(SectionId::Events, QColor(0x2e, 0xa0, 0x43)), colourOf(SectionId::Appointments, QColor(0x2a, 0x7f, 0xd4)),
            colourOf(SectionId::Bills, QColor(0xe0, 0x8a, 0x00))};
}

void drawKindMark(QPainter &painter, DayKind kind, const QPointF &middle, const QColor &colour)
{
    constexpr double half = 2.6;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (kind == DayKind::Appointment)
        painter.drawEllipse(middle, half, half);
    else if (kind == DayKind::Bill)
        painter.drawRect(QRectF(middle - QPointF(half, half), QSizeF(2 * half, 2 * half)));
    else
        painter.drawPolygon(QPolygonF({middle + QPointF(0, -half - 1), middle + QPointF(half + 1, 0), middle + QPointF(0, half + 1),
                                       middle + QPointF(-half - 1, 0)}));
}

CalendarDay::CalendarDay(QWidget *parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    showBlank();
}

void CalendarDay::showBlank()
{
    m_day = 0;
    m_look = {};
    m_entries.clear();
    setText({});
    setChecked(false);
    setEnabled(false);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName({});
    setToolTip({});
    update();
}

void CalendarDay::showDay(basic::DateTime date, std::vector<DayEntry> entries, const Look &look)
{
    m_day = date.day();
    m_look = look;
    m_entries = std::move(entries);
    setText(QString::number(m_day));
    setEnabled(true);
    setChecked(look.isPicked);
    setFocusPolicy(look.isPicked ? Qt::StrongFocus : Qt::ClickFocus);     // one stop of the Tab key in the month
    DayCount count;
    QStringList lines;
    for (const DayEntry &entry : m_entries) {
        ++(entry.kind == DayKind::Event ? count.events : entry.kind == DayKind::Bill ? count.bills : count.appointments);
        if (lines.size() < mostTipLines)
            lines << entryText(entry);
    }
    if (const qsizetype more = static_cast<qsizetype>(m_entries.size()) - lines.size(); more > 0)
        lines << u"and %1 more"_s.arg(more);
    QString spoken = dayText(date, count);
    if (look.isToday)
        spoken += u", today"_s;
    setAccessibleName(look.isPicked ? spoken + u", selected"_s : spoken);
    setAccessibleDescription(lines.join(u'\n'));
    QString tip = u"<b>"_s + spoken.toHtmlEscaped() + u"</b>"_s;
    for (const QString &line : std::as_const(lines))
        tip += u"<br>"_s + line.toHtmlEscaped();
    setToolTip(u"<qt>"_s + tip + u"</qt>"_s);
    update();
}

QSize CalendarDay::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(u"00000"_s) + 2 * pad, fontMetrics().height() + 2 * pad};
}

QSize CalendarDay::sizeHint() const { return {96, 84}; }

QRect CalendarDay::linePlace(int line) const
{
    const int height = QFontMetrics(textFont(font())).height() + gap, top = fontMetrics().height() + 2 * pad;
    return {pad, top + line * (height + gap), width() - 2 * pad, height};
}

// How many lines fit below the number.
int CalendarDay::lines() const
{
    int count = 0;
    while (linePlace(count).bottom() < height())
        ++count;
    return count;
}

int CalendarDay::shownEntries() const
{
    const int all = static_cast<int>(m_entries.size()), room = lines();
    return all <= room ? all : std::max(0, room - 1);
}

const DayEntry *CalendarDay::entryAt(const QPoint &place) const
{
    for (int i = 0; i < shownEntries(); ++i)
        if (linePlace(i).contains(place))
            return &m_entries[static_cast<std::size_t>(i)];
    return nullptr;
}

void CalendarDay::drawNumber(QPainter &painter) const
{
    QFont strong = font();
    strong.setBold(m_look.isToday || m_look.isPicked);
    painter.setFont(strong);
    const QFontMetrics metrics(strong);
    QRectF place(pad, pad, metrics.horizontalAdvance(text()), metrics.height());
    painter.setPen(palette().color(QPalette::Text));
    if (m_look.isToday) {
        place = QRectF(pad - 1, pad - 1, std::max(place.width() + 10, place.height() + 2), place.height() + 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(place, place.height() / 2, place.height() / 2);
        painter.setPen(palette().color(QPalette::HighlightedText));
    }
    painter.drawText(place, Qt::AlignCenter, text());
}

void CalendarDay::drawEntry(QPainter &painter, const DayEntry &entry, const QRect &place) const
{
    const QColor ground = m_look.colours.of(entry.kind), ink = controls::readable(palette().color(QPalette::Text), ground);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(place, 3, 3);
    drawKindMark(painter, entry.kind, QPointF(place.left() + 7, place.center().y() + 0.5), controls::blend(ink, ground, 0.25));
    const QRect words = place.adjusted(14, 0, -2, 0);
    QFont font = painter.font();
    font.setStrikeOut(entry.isDone);
    painter.save();
    painter.setFont(font);
    painter.setPen(entry.isDone ? controls::blend(ink, ground, 0.35) : ink);
    painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(shortText(entry, words.width()), Qt::ElideRight, words.width()));
    painter.restore();
}

void CalendarDay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    const QColor base = palette().color(QPalette::Base), text = palette().color(QPalette::Text), high = palette().color(QPalette::Highlight);
    painter.setPen(Qt::NoPen);
    if (m_day == 0) {
        painter.setBrush(controls::blend(palette().color(QPalette::Window), base, 0.4));
        painter.drawRoundedRect(area, 5, 5);
        return;
    }
    QColor ground = m_look.isWeekend ? controls::blend(base, text, 0.045) : base;
    if (m_look.isPicked)
        ground = controls::blend(ground, high, 0.12);
    else if (underMouse())
        ground = controls::blend(ground, high, 0.06);
    painter.setBrush(ground);
    painter.drawRoundedRect(area, 5, 5);
    drawNumber(painter);
    painter.setFont(textFont(font()));
    const int shown = shownEntries(), all = static_cast<int>(m_entries.size());
    for (int i = 0; i < shown; ++i)
        drawEntry(painter, m_entries[static_cast<std::size_t>(i)], linePlace(i));
    if (shown < all) {
        painter.setPen(controls::blend(text, ground, 0.3));
        const QRect place = lines() > 0 ? linePlace(shown) : QRect(width() / 2, pad, width() / 2 - pad, fontMetrics().height());
        painter.drawText(place.adjusted(3, 0, 0, 0), lines() > 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter,
                         u"+%1"_s.arg(all - shown) + (lines() > 0 ? u" more"_s : QString()));
    }
    painter.setBrush(Qt::NoBrush);
    if (m_look.isPicked || hasFocus()) {
        painter.setPen(QPen(high, hasFocus() ? 2 : 1));
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    }
}

// The keys of the month belong to the screen: a button group would move the focus by itself.
void CalendarDay::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void CalendarDay::mouseDoubleClickEvent(QMouseEvent *event)
{
    QAbstractButton::mouseDoubleClickEvent(event);
    if (m_day != 0 && event->button() == Qt::LeftButton)
        emit DblClick(event->position().toPoint());
}

void CalendarDay::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_day != 0)
        emit MenuWanted(event->globalPos());
}

}
