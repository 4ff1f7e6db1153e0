#include "calendar/frmCalendar.h"

#include "calendar/frmCalendarDay.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "calendar/monthpicture.h"
#include "media/frmDataPath.h"
#include "media/pictures.h"
#include "platform/basic/clock.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/prompts.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/richtextbox.h"
#include "session/datafiles.h"
#include "session/datetexts.h"
#include "session/ini.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <QWheelEvent>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;
using controls::on;

namespace {

constexpr int monthPage = 0, yearPage = 1;

QString codeOf(DayKind kind)
{
    return kind == DayKind::Event ? u"E"_s : kind == DayKind::Bill ? u"B"_s : u"A"_s;
}

// The format in whose order the screen writes and reads its date.
QString dateOrder()
{
    const Settings &settings = state().settings;
    return settings.gDateDisplay.isEmpty() ? settings.gDateShort : settings.gDateDisplay;
}

QString menuText(QString text)
{
    constexpr qsizetype most = 60;
    if (text.size() > most)
        text = text.left(most - 1) + QChar(0x2026);
    return text.replace(u'&', u"&&"_s);
}

}

frmCalendar::frmCalendar(CalendarCalls calls, QWidget *parent)
    : Form(u"frmCalendar"_s, parent), m_calls(std::move(calls)), m_weekStart(state().settings.gWeekStartDay)
{
    setSizeGripEnabled(false);
    compose();
    connectHandlers();
    paintScreen();
    DisplayYearCalendar(false);
    DefaultDate({});
}

void frmCalendar::DefaultDate(const QString &date)
{
    showDay(typedDate(date, dateOrder()).value_or(basic::Date()));
}

void frmCalendar::showDay(DateTime day)
{
    selectDate(day.dayOnly());
    if (CalendarDay *cell = pickedCell())
        cell->setFocus();
}

void frmCalendar::UpdateTitle()
{
    const QString title = monthTitle(m_date.year(), m_date.month());
    m_title->setText(isYearShown() ? QString::number(m_date.year()) : title);
    setWindowTitle(title);
}

bool frmCalendar::isYearShown() const { return m_pages->currentIndex() == yearPage; }

bool frmCalendar::ticked(const QString &name) const { return findChild<QCheckBox *>(name)->isChecked(); }

MonthKinds frmCalendar::kinds() const
{
    return {ticked(u"chkAppointments"_s), ticked(u"chkBills"_s), ticked(u"chkEvents"_s), m_cboCategory->currentText()};
}

ListKinds frmCalendar::listKinds() const { return {kinds(), ticked(u"chkToDo"_s)}; }

void frmCalendar::selectDate(DateTime day)
{
    const bool isOther = m_isStale || !m_date.hasDate() || day.year() != m_date.year() || day.month() != m_date.month();
    m_date = day;
    if (isOther)
        readMonth();
    setControls();
    drawMonth();
    drawYear();
    UpdateTitle();
    if (isOther)
        DisplayPicture();
}

// The selection controls, kept in step.
void frmCalendar::setControls()
{
    m_drawing = true;
    m_cboMonth->setCurrentIndex(m_date.month() - 1);
    m_cboYear->setCurrentIndex(m_date.year() - firstYear);
    m_scrollMonth->setValue(m_date.month());
    m_scrollYear->setValue(m_date.year());
    m_txtDate->setText(joinedDate(m_date, dateOrder()));
    m_drawing = false;
}

void frmCalendar::readMonth()
{
    m_isStale = true;
    m_span = monthSpan(m_date.year(), m_date.month());
    m_days = static_cast<int>(m_span.first.date().daysTo(m_span.last.date())) + 1;
    m_entries.clear();
    m_info->clear();
    // One message for all of it; a file that another program holds is tried again with the next step.
    basic::Trap([this] {
        dao::Database database = openDataFile(DataFile::Main);
        if (m_cboCategory->count() == 0)
            m_cboCategory->addItems(GetEventCategories(database));
        m_entries = readDays(database, m_span, kinds());
        GetCalendarData(database);
        m_isStale = false;
    });
}

// While the list is hidden nobody waits for it.
void frmCalendar::GetCalendarData(dao::Database &database)
{
    if (!m_info->isHidden())
        m_info->setHtml(vorel::GetCalendarData(database, m_span, listKinds()));
}

void frmCalendar::drawMonth()
{
    m_weekStart = state().settings.gWeekStartDay;
    m_today = basic::Date();
    const MonthCells month = monthCells(m_date.year(), m_date.month(), m_weekStart);
    const std::array<QString, 7> heads = weekDayHeads(m_weekStart);
    for (std::size_t i = 0; i < heads.size(); ++i)
        m_heads[i]->setText(heads[i]);
    for (std::size_t row = 0; row < m_weeks.size(); ++row) {
        const bool isShown = static_cast<int>(row) < month.rows();
        const int number = isShown ? weekNumber(month, static_cast<int>(row), m_weekStart) : 0;
        m_weeks[row]->setVisible(isShown);
        m_grid->setRowStretch(static_cast<int>(row) + 1, isShown ? 1 : 0);
        m_weeks[row]->setText(isShown ? QString::number(number) : QString());
        m_weeks[row]->setToolTip(isShown ? u"Week %1"_s.arg(number) : QString());
    }
    std::vector<std::vector<DayEntry>> ofDay(static_cast<std::size_t>(m_days) + 1);
    for (const DayEntry &entry : m_entries)
        ofDay[static_cast<std::size_t>(entry.day.day())].push_back(entry);
    const KindColours colours = kindColours(palette());
    const bool hadFocus = qobject_cast<CalendarDay *>(focusWidget()) != nullptr;
    for (int cell = 0; cell < monthCellCount; ++cell) {
        CalendarDay *shown = m_cells[static_cast<std::size_t>(cell)];
        const int day = month.dayAt(cell);
        shown->setVisible(cell / monthColumns < month.rows());        // the rows in use share the room
        if (day == 0) {
            shown->showBlank();
            continue;
        }
        const DateTime date = month.date(day);
        shown->showDay(date, std::move(ofDay[static_cast<std::size_t>(day)]),
                       {date == m_today, date == m_date, isWeekend(cell % monthColumns, m_weekStart), colours});
    }
    if (hadFocus)
        pickedCell()->setFocus();
}

CalendarDay *frmCalendar::pickedCell() const
{
    const MonthCells month = monthCells(m_date.year(), m_date.month(), m_weekStart);
    return m_cells[static_cast<std::size_t>(month.cellOf(m_date.day()))];
}

// The marks are read once a year and change.
void frmCalendar::readYear()
{
    m_markedYear = m_date.year();
    for (int month = 1; month <= 12; ++month)
        m_months[static_cast<std::size_t>(month - 1)]->showMonth(m_markedYear, month);
    basic::Trap([this] {
        dao::Database database = openDataFile(DataFile::Main);
        const std::vector<DayCount> year = countDays(database, yearSpan(m_markedYear));
        auto first = year.begin();
        for (SmallMonth *month : m_months) {
            const auto next = first + monthCells(month->year(), month->month(), 1).days;
            month->setCounts({first, next});
            first = next;
        }
    });
}

void frmCalendar::drawYear()
{
    if (!isYearShown())
        return;
    if (m_markedYear != m_date.year())
        readYear();
    for (SmallMonth *month : m_months)
        month->setPicked(month->month() == m_date.month() ? m_date : DateTime());
    SmallMonth *here = m_months[static_cast<std::size_t>(m_date.month() - 1)];
    here->setFocus();
    m_year->ensureWidgetVisible(here);
}

void frmCalendar::LBL_Date_Click(int index)
{
    const int day = m_cells[static_cast<std::size_t>(index - 1)]->day();
    if (day != 0)
        selectDate(basic::DateTime::fromParts(m_date.year(), m_date.month(), day));
}

void frmCalendar::reload()
{
    m_isStale = true;
    m_markedYear = 0;
    m_timer->start();
}

void frmCalendar::showWaiting()
{
    if (m_isStale && isVisible())
        selectDate(m_date);
}

void frmCalendar::cmdFind_Click()
{
    const std::optional<DateTime> day = typedDate(m_txtDate->text(), dateOrder());
    if (!day) {
        basic::MsgBox(u"Invalid Date"_s, {}, basic::Icon::Exclamation);
        m_txtDate->setFocus();
        m_txtDate->selectAll();
        return;
    }
    showDay(*day);
}

void frmCalendar::cmdMonth_Click() { DisplayYearCalendar(!isYearShown()); }

void frmCalendar::DisplayYearCalendar(bool show)
{
    m_pages->setCurrentIndex(show ? yearPage : monthPage);
    m_yearKey->setChecked(show);
    m_yearKey->setToolTip(show ? u" - Click to Hide Year Calendar "_s : u" - Click to Show Year Calendar "_s);
    m_year->widget()->setToolTip(u" - Click to Hide Year Calendar "_s);
    if (!m_date.hasDate())
        return;
    UpdateTitle();
    if (show)
        drawYear();
    else
        pickedCell()->setFocus();
}

void frmCalendar::cmdColor_Click()
{
    const std::optional<quint32> chosen = basic::prompts().chooseColour(palette().color(QPalette::Window).rgb() & 0xFFFFFF);
    if (!chosen)
        return;
    PutIniValue(iniSettings, u"CalendarBackColour"_s, QString::number(basic::numberOfColour(QColor::fromRgb(*chosen))));
    paintScreen();
    drawMonth();
}

void frmCalendar::PrintWholeCalendar()
{
    if (m_calls.print)
        m_calls.print(m_date.year(), m_date.month(), {listKinds(), ticked(u"chkCalendar"_s)});
}

void frmCalendar::chkInfo_Click()
{
    m_info->setVisible(ticked(u"chkInfo"_s));
}

QString frmCalendar::GetFilePath(const QString &path)
{
    return chooseDataPath({.caption = u"Cal Pic"_s, .path = path, .name = monthTitle(m_date.year(), m_date.month()), .screen = this});
}

void frmCalendar::picImage_Click()
{
    const QString before = monthPicture(m_date.month()), chosen = GetFilePath(before);
    if (chosen != before)
        keepMonthPicture(m_date.month(), chosen);
    DisplayPicture();
}

// A picture whose file has gone is named, and stays chosen: its disk may come back.
void frmCalendar::DisplayPicture()
{
    const QString path = monthPicture(m_date.month()), file = pictureFile(path);
    const QString hint = path.isEmpty() ? u"Click here for a picture of this month"_s
                                        : u"The picture of this month was not found.\nClick here to choose another one."_s;
    m_picture->setUnreadableText(hint);
    m_picture->showFile(file.isEmpty() ? u":/"_s : file);       // a box without any path would stay blank, without the hint
    m_picture->setAccessibleDescription(m_picture->isShown() || m_picture->isDecoding() ? QString() : hint);
    m_pictureFile->setText(QFileInfo(QString(path).replace(u'\\', u'/')).fileName());
    m_pictureFile->setVisible(!path.isEmpty());
}

// A row under the pointer opens; else the only row of the day, or a choice of its rows; an empty day gets an appointment.
void frmCalendar::openDay(const DayEntry *entry)
{
    if (entry) {
        openRow(DayEntry(*entry));
        return;
    }
    const CalendarDay *cell = pickedCell();
    if (cell->entries().empty()) {
        if (basic::askYesNo(u"Create a New Blank Record?"_s))       // a slip of the mouse leaves no row behind
            openNew(DayKind::Appointment);
    } else if (cell->entries().size() == 1)
        openRow(DayEntry(cell->entries().front()));
    else
        showDayMenu(cell->mapToGlobal(cell->rect().center()));
}

void frmCalendar::openRow(const DayEntry &entry)
{
    if (m_calls.open)
        m_calls.open({codeOf(entry.kind), entry.id, {}}, this);
}

void frmCalendar::openNew(DayKind kind)
{
    if (m_calls.open)
        m_calls.open({codeOf(kind), 0, m_date}, this);
}

void frmCalendar::fillDayMenu(QMenu &menu)
{
    constexpr std::size_t most = 40;
    const std::vector<DayEntry> &entries = pickedCell()->entries();
    for (std::size_t i = 0; i < std::min(entries.size(), most); ++i)
        on(menu.addAction(menuText(entryText(entries[i]))), &QAction::triggered, handlers(), [this, entry = entries[i]] { openRow(entry); });
    if (!entries.empty())
        menu.addSeparator();
    for (QAction *entry : m_newEntries)
        menu.addAction(entry);
}

void frmCalendar::showDayMenu(const QPoint &screenPlace)
{
    auto *menu = new QMenu(this);
    menu->setObjectName(u"mnuDayRows"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillDayMenu(*menu);
    menu->popup(screenPlace);
    if (!menu->actions().isEmpty())
        menu->setActiveAction(menu->actions().front());
}

void frmCalendar::keyPressEvent(QKeyEvent *event)
{
    const auto *cell = qobject_cast<CalendarDay *>(focusWidget());
    const bool control = event->modifiers() & Qt::ControlModifier;
    const int months = control ? 12 : 1, way = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && (cell || focusWidget() == m_txtDate)) {
        basic::Trap([this, cell] { cell ? openDay(nullptr) : cmdFind_Click(); });
        return;
    }
    if (cell) {
        switch (event->key()) {
        case Qt::Key_Left: return selectDate(daysAway(m_date, -way));
        case Qt::Key_Right: return selectDate(daysAway(m_date, way));
        case Qt::Key_Up: return selectDate(daysAway(m_date, -monthColumns));
        case Qt::Key_Down: return selectDate(daysAway(m_date, monthColumns));
        case Qt::Key_Menu: return showDayMenu(cell->mapToGlobal(cell->rect().center()));
        default: break;
        }
    }
    switch (event->key()) {
    case Qt::Key_PageUp: return selectDate(monthsAway(m_date, -months));
    case Qt::Key_PageDown: return selectDate(monthsAway(m_date, months));
    case Qt::Key_Home: return selectDate(control ? basic::Date() : m_span.first);
    case Qt::Key_End: return selectDate(m_span.last);
    case Qt::Key_T: return selectDate(basic::Date());
    default: break;
    }
    if (control && event->key() == Qt::Key_P)
        basic::Trap([this] { PrintWholeCalendar(); });
    else
        Form::keyPressEvent(event);
}

void frmCalendar::wheelEvent(QWheelEvent *event)
{
    if (!m_pages->geometry().contains(event->position().toPoint()) || event->angleDelta().y() == 0)
        return;
    selectDate(monthsAway(m_date, event->angleDelta().y() > 0 ? -1 : 1));
}

// A small screen shows the month or what is beside it, one at a time.
void frmCalendar::arrange()
{
    constexpr int wide = 940, pictureHeight = 186, smallPicture = 64;
    const bool isNarrow = width() < wide, hasDetails = m_detailsKey->isChecked();
    m_detailsKey->setVisible(isNarrow);
    m_side->setVisible(!isNarrow || hasDetails);
    m_pages->setVisible(!isNarrow || !hasDetails);
    m_picture->setFixedHeight(isNarrow ? smallPicture : pictureHeight);
    m_head->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

bool frmCalendar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && watched == m_year->widget())
        basic::Trap([this] { DisplayYearCalendar(false); });
    return Form::eventFilter(watched, event);
}

void frmCalendar::resizeEvent(QResizeEvent *event)
{
    arrange();
    Form::resizeEvent(event);
}

void frmCalendar::changeEvent(QEvent *event)
{
    Form::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_date.hasDate() && m_today != basic::Date())
        drawMonth();
    else if (event->type() == QEvent::ThemeChange || event->type() == QEvent::ApplicationPaletteChange) {
        paintScreen();
        if (m_date.hasDate())
            drawMonth();
    }
}

void showCalendar(const CalendarCalls &calls, QWidget *parent, const std::optional<DateTime> &day)
{
    static QPointer<frmCalendar> open;
    if (!open || !open->isVisible()) {          // one that was closed goes only with the next event
        open = new frmCalendar(calls, parent);
        open->setAttribute(Qt::WA_DeleteOnClose);
    }
    if (day)
        open->showDay(*day);
    open->show();
    open->raise();
    open->activateWindow();
}

void showCalendarModal(const CalendarCalls &calls, QWidget *parent)
{
    frmCalendar calendar(calls, parent);
    calendar.ShowModal();
}

}
