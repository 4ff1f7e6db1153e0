#include "calendar/frmCalendarDrop.h"

#include "calendar/frmCalendarDropCell.h"
#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/controls/layout.h"
#include "session/datetexts.h"
#include "session/state.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr int yearsAround = 100;                    // reach of the year's scroll bar
constexpr char shownTextProperty[] = "shownDateText", shownDayProperty[] = "shownDateSerial";     // of a date box

QString boxText(const QWidget *box)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(box))
        return edit->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(box))
        return combo->currentText();
    if (const auto *label = qobject_cast<const QLabel *>(box))
        return label->text();
    return {};
}

void setBoxText(QWidget *box, const QString &text)
{
    if (auto *edit = qobject_cast<QLineEdit *>(box)) {
        edit->setText(text);
    } else if (auto *combo = qobject_cast<QComboBox *>(box)) {
        combo->setCurrentText(text);
    } else if (auto *label = qobject_cast<QLabel *>(box)) {
        label->setText(text);
    }
}

QScrollBar *scrollBar(const QString &name, const QString &spoken)
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setObjectName(name);
    bar->setAccessibleName(spoken);
    bar->setToolTip(spoken);
    bar->setFocusPolicy(Qt::StrongFocus);
    return bar;
}

}

// A drop-down without a frame: a click beside it, like Esc, leaves the box as it was.
frmCalendarDrop::frmCalendarDrop(QWidget *parent) : Form(u"frmCalendarDrop"_s, parent), m_weekStart(state().settings.gWeekStartDay)
{
    setSizeGripEnabled(false);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
    compose();
    connectHandlers();
    DefaultDate({});
}

QAbstractButton *frmCalendarDrop::createArrow(const QString &name, Qt::ArrowType arrow, int months)
{
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);        // PgUp and PgDn do the same
    button->setAccessibleName(months < 0 ? u"Previous month"_s : u"Next month"_s);
    button->setToolTip(button->accessibleName());
    on(button, &QToolButton::clicked, handlers(), [this, months] { selectDate(monthsAway(m_date, months)); });
    return button;
}

QLayout *frmCalendarDrop::composeMonth()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    const std::array<QString, 7> heads = weekDayHeads(m_weekStart);
    for (int column = 0; column < 7; ++column) {
        auto *head = new QLabel(heads[static_cast<std::size_t>(column)]);
        head->setObjectName(u"LBL_Day(%1)"_s.arg(column));
        head->setAlignment(Qt::AlignCenter);
        grid->addWidget(head, 0, column);
    }
    for (int index = 0; index < monthCellCount; ++index) {
        auto *cell = new DayCell;
        cell->setObjectName(u"LBL_Date(%1)"_s.arg(index));
        on(cell, &DayCell::clicked, handlers(), [this, index] { LBL_Date_Click(index); });
        on(cell, &DayCell::DblClick, handlers(), [this, index] {
            LBL_Date_Click(index);
            cmdApply_Click();
        });
        m_cells[static_cast<std::size_t>(index)] = cell;
        grid->addWidget(cell, 1 + index / 7, index % 7);
    }
    return grid;
}

void frmCalendarDrop::compose()
{
    m_title = new QLabel;
    m_title->setObjectName(u"lblTitle"_s);
    m_title->setAlignment(Qt::AlignCenter);
    QFont strong = m_title->font();
    strong.setBold(true);
    m_title->setFont(strong);
    m_given = new QLabel;
    m_given->setObjectName(u"lblDate"_s);
    m_given->setAccessibleName(u"The given date"_s);
    m_month = scrollBar(u"HScroll1"_s, u"Month"_s);
    m_month->setRange(1, 12);
    m_month->setPageStep(3);
    m_year = scrollBar(u"HScroll2"_s, u"Year"_s);
    m_year->setPageStep(10);
    m_today = controls::button(u"Today"_s, u"&Today"_s, {}, u" Goes to today "_s);
    m_action = controls::button(u"CmdAction"_s, u"&Given date"_s, {}, u" Goes back to the given date "_s);
    m_apply = controls::button(u"cmdApply"_s, u"&Apply"_s, u"dialog-ok-apply"_s);
    m_cancel = controls::button(u"cmdCancel"_s, u"&Cancel"_s, u"dialog-cancel"_s);
    if (auto *push = qobject_cast<QPushButton *>(m_apply))
        push->setDefault(true);

    QLayout *screenColumn = layout::Column({
        layout::Row({createArrow(u"cmdPrevious"_s, Qt::LeftArrow, -1), layout::Stretch{}, m_title, layout::Stretch{},
                     createArrow(u"cmdNext"_s, Qt::RightArrow, 1)}),
        composeMonth(),
        layout::Fields({{u"&Month:"_s, m_month}, {u"&Year:"_s, m_year}}),
        layout::Row({m_today, m_action, m_given, layout::Stretch{}}),
        layout::Row({layout::Stretch{}, m_apply, m_cancel}),
    });
    layout::setMargins(screenColumn, 2 * layout::unit);
    auto *border = new QFrame;
    border->setFrameShape(QFrame::StyledPanel);
    border->setLayout(screenColumn);
    auto *all = new QVBoxLayout(this);
    layout::setMargins(all, 0);
    all->addWidget(border);
}

void frmCalendarDrop::connectHandlers()
{
    on(m_month, &QScrollBar::valueChanged, handlers(), [this] { HScroll_Change(); });
    on(m_year, &QScrollBar::valueChanged, handlers(), [this] { HScroll_Change(); });
    on(m_today, &QAbstractButton::clicked, handlers(), [this] { selectDate(basic::Date()); });
    on(m_action, &QAbstractButton::clicked, handlers(), [this] { CmdAction_Click(); });
    on(m_apply, &QAbstractButton::clicked, handlers(), [this] { cmdApply_Click(); });
    on(m_cancel, &QAbstractButton::clicked, handlers(), [this] { Close(); });
}

void frmCalendarDrop::DefaultDate(const std::optional<DateTime> &day)
{
    m_givenDate = day.value_or(basic::Date());
    m_given->setText(day ? displayDate(m_givenDate) : QString());
    m_action->setEnabled(day.has_value());
    selectDate(m_givenDate);
}

void frmCalendarDrop::UpdateTitle()
{
    const QString title = monthTitle(m_date.year(), m_date.month());
    m_title->setText(title);
    setWindowTitle(title);
}

void frmCalendarDrop::selectDate(DateTime date)
{
    m_date = date;
    m_drawing = true;
    m_month->setValue(date.month());
    m_year->setRange(std::max(firstYear, std::min(date.year(), m_givenDate.year()) - yearsAround),
                     std::min(lastYear, std::max(date.year(), m_givenDate.year()) + yearsAround));
    m_year->setValue(date.year());
    m_drawing = false;
    drawMonth();
    UpdateTitle();
}

void frmCalendarDrop::drawMonth()
{
    const MonthCells month = monthCells(m_date.year(), m_date.month(), m_weekStart);
    const DateTime today = basic::Date();
    const bool hadFocus = qobject_cast<DayCell *>(focusWidget()) != nullptr;
    for (int index = 0; index < monthCellCount; ++index) {
        DayCell *cell = m_cells[static_cast<std::size_t>(index)];
        const int day = index - month.firstCell + 1;
        if (day < 1 || day > month.days) {
            cell->setDay(0, {}, false, false);
            continue;
        }
        const DateTime date = basic::DateSerial(month.year, month.month, day);
        const bool selected = date == m_date;
        cell->setDay(day, basic::Format(date, u"dddd, d mmmm yyyy"), date == today, selected);
        if (selected && (hadFocus || !focusWidget()))
            cell->setFocus();
    }
}

void frmCalendarDrop::LBL_Date_Click(int index)
{
    const int day = m_cells[static_cast<std::size_t>(index)]->day();
    if (day != 0)
        selectDate(basic::DateSerial(m_date.year(), m_date.month(), day));
}

void frmCalendarDrop::HScroll_Change()
{
    if (m_drawing)
        return;
    const int months = (m_year->value() - m_date.year()) * 12 + m_month->value() - m_date.month();
    selectDate(monthsAway(m_date, months));
}

void frmCalendarDrop::CmdAction_Click() { selectDate(m_givenDate); }

void frmCalendarDrop::cmdApply_Click()
{
    m_applied = true;
    Close();
}

void frmCalendarDrop::keyPressEvent(QKeyEvent *event)
{
    const auto days = [this](int count) { selectDate(daysAway(m_date, count)); };
    const int months = event->modifiers() & Qt::ControlModifier ? 12 : 1;
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Left: return days(rightToLeft ? 1 : -1);
    case Qt::Key_Right: return days(rightToLeft ? -1 : 1);
    case Qt::Key_Up: return days(-7);
    case Qt::Key_Down: return days(7);
    case Qt::Key_PageUp: return selectDate(monthsAway(m_date, -months));
    case Qt::Key_PageDown: return selectDate(monthsAway(m_date, months));
    case Qt::Key_Home: return selectDate(basic::DateSerial(m_date.year(), m_date.month(), 1));
    case Qt::Key_End: return days(m_date.date().daysInMonth() - m_date.day());
    default: Form::keyPressEvent(event);
    }
}

// Below the area, above it where space is short, else at its side: never over it.
QPoint frmCalendarDrop::placeBeside(const QRect &area, QSize size, const QRect &desktop)
{
    const int left = std::max(desktop.left(), std::min(area.left(), desktop.right() - size.width() + 1));
    if (area.bottom() + size.height() <= desktop.bottom())
        return {left, area.bottom() + 1};
    if (area.top() - size.height() >= desktop.top())
        return {left, area.top() - size.height()};
    const int top = std::max(desktop.top(), desktop.bottom() - size.height() + 1);
    const bool right = area.right() + size.width() <= desktop.right();
    return {right ? area.right() + 1 : std::max(desktop.left(), area.left() - size.width()), top};
}

void frmCalendarDrop::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);          // not the form's own, which allows for a window's frame
    if (const QScreen *where = screen(); where && m_area.isValid() && !event->spontaneous())
        move(placeBeside(m_area, sizeHint().expandedTo(size()), where->availableGeometry()));
    for (DayCell *cell : m_cells) {
        if (cell->isChecked())
            cell->setFocus();
    }
}

void showDate(QWidget *box, DateTime date) { showDate(box, date, state().settings.gDateDisplay); }

std::optional<DateTime> shownDate(const QWidget *box) { return shownDate(box, state().settings.gDateDisplay); }

void showDate(QWidget *box, DateTime date, const QString &format)
{
    const QString text = basic::Format(date, format);
    box->setProperty(shownTextProperty, text);
    box->setProperty(shownDayProperty, date.serial());
    setBoxText(box, text);
}

std::optional<DateTime> shownDate(const QWidget *box, const QString &format)
{
    const QString text = boxText(box);
    const QVariant known = box->property(shownTextProperty);
    if (known.isValid() && known.toString() == text)
        return DateTime(box->property(shownDayProperty).toDouble());
    return typedDate(text, format);
}

static std::optional<DateTime> pickDay(QWidget *parent, const QRect &area, const std::optional<DateTime> &day)
{
    frmCalendarDrop picker(parent ? parent->window() : nullptr);
    picker.setDropArea(area);
    picker.DefaultDate(day);
    picker.ShowModal();
    return picker.applied() ? std::optional(picker.selectedDate()) : std::nullopt;
}

std::optional<DateTime> openDatePickerOnCell(QWidget *grid, const QRect &cell, const std::optional<DateTime> &day)
{
    return pickDay(grid, {grid->mapToGlobal(cell.topLeft()), cell.size()}, day);
}

bool OpenDatePicker(QWidget *box) { return OpenDatePicker(box, state().settings.gDateDisplay); }

bool OpenDatePicker(QWidget *box, const QString &format)
{
    const QPointer<QWidget> written = box;
    const std::optional<DateTime> chosen = pickDay(box, {box->mapToGlobal(QPoint(0, 0)), box->size()}, shownDate(box, format));
    if (!chosen || !written)        // the screen may have gone while the picker was open
        return false;
    showDate(box, *chosen, format);
    return true;
}

}
