#include "frame/frmCaddySections.h"

#include "frame/frmCaddyGround.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "frame/frmLater.h"
#include "frame/frmUnload.h"
#include "frame/menus.h"
#include "frame/periods.h"
#include "frame/rowrules.h"
#include "frame/startup.h"
#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "session/datafiles.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QToolBar>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::GridColumn;

namespace {

constexpr int buttonWidth = 600;        // twips

const QString &bannerLine()
{
    static const QString line = u"Reminders and household records"_s;
    return line;
}

// Passwords and Journal ask for the administration password.
constexpr bool isGuarded(int index)
{
    return index == 4 || index == 17;
}

// The columns that share the room left over, where these are not all of the texts. The first takes most.
QStringList growingFields(const QString &code)
{
    static const std::map<QString, QStringList> fields = {
        {u"F"_s, {u"FILENAME"_s}}, {u"G"_s, {u"TODO"_s}},     {u"H"_s, {u"ITEM"_s, u"STORE"_s}},
        {u"M"_s, {u"Message"_s}},  {u"N"_s, {u"NOTES"_s}},    {u"MV"_s, {u"VEHICLEMODEL"_s, u"VEHICLEMAKE"_s}},
        {u"O"_s, {u"USERNAME"_s}}, {u"P"_s, {u"SORTNAME"_s, u"Email1Address"_s}},
        {u"Y"_s, {u"SOLUTION"_s, u"HOWTO"_s}}};
    const auto found = fields.find(code);
    return found == fields.end() ? QStringList() : found->second;
}

// A text that should fit into the column.
QString sampleOf(const QString &code, const QString &field, dao::DataType type)
{
    if (code == u"P"_s && field.endsWith(u"TelephoneNumber"_s))
        return u"00 0000 0000"_s;
    if (code == u"P"_s && field == u"Email1Address"_s)
        return u"someone@example.org"_s;
    if (code == u"P"_s && field == u"SORTNAME"_s)
        return u"WILLIAMS, Alexandra [Ann]"_s;
    if (type != dao::dbDate)
        return {};
    const double time = code == u"M"_s ? basic::TimeSerial(22, 28, 28).serial() : 0;
    return basic::Format(basic::DateTime(basic::DateSerial(2028, 12, 28).serial() + time), state().settings.gDateDisplay);
}

// Prices that are kept as plain numbers.
bool moneyField(const QString &code, const QString &field)
{
    return code == u"H"_s && (field == u"LASTCOST"_s || field == u"AMOUNT"_s || field == u"TOTAL"_s);
}

bool isReminder(const QString &code)
{
    const Section *section = sectionByCode(code);
    return section && section->kind == SectionKind::Reminder;
}

}

CaddySections::CaddySections(CaddyControls &c, MainScreen &screen, GridLayout &sizes, CaddyColumns &columns,
                             CaddySearch &search)
    : m_c(c), m_screen(screen), m_sizes(sizes), m_columns(columns), m_search(search)
{
    for (const GridPane &pane : m_c.panes)
        controls::on(pane.data, &controls::DataControl::Error, pane.data,
                     [this](int number, const QString &text) { rowsFailed(number, text); });
}

void CaddySections::cmdCat_Click(int index)
{
    markButton({});
    UpdateRowHeight();
    const CategoryButton &button = categoryButtons()[static_cast<std::size_t>(index)];
    if (isGuarded(index)) {
        adminPassword()();
        if (!state().selection.gAdminOk)
            return;
    }
    m_screen.DisplayCategory(button.tag);
    SizeGrids();
    if (state().selection.gSection == u"P"_s && m_c.subjects().grid->rows() == 0)
        showMissingContacts();
}

// A name that the catalogue does not know (a bare code after a change) leaves the screen as it stands.
void CaddySections::DisplayCategory(const QString &name)
{
    const Section *section = sectionByName(name);
    if (!section || m_switching)
        return;
    const QScopedValueRollback guard(m_switching, true);
    show(*section);
}

void CaddySections::show(const Section &section)
{
    if (section.kind == SectionKind::Action) {
        showAction(section);
        return;
    }
    clearScreen(section);
    state().selection.gLastCategory = section.name;
    if (section.kind == SectionKind::Reminder)
        showReminders(section);
    else
        showGrid(section);
}

void CaddySections::clearScreen(const Section &section)
{
    m_c.txtSearch->clear();
    m_screen.DisableButtons(true);
    unloadScreens({u"frmCalendar"_s, u"frmCalculator"_s, u"frmEnterBill"_s, u"frmInformation"_s});
    UpdateRowHeight();
    m_c.picDetails->showBanner(state().gProductTitle, bannerLine());
    state().selection.gAdminOk = false;
    for (const GridPane &pane : m_c.panes) {
        pane.grid->hide();
        pane.panEdit->hide();
    }
    m_c.panPeriod->setVisible(section.kind == SectionKind::Reminder && remindersSwitchedOn());
    m_c.panSearch->show();
    m_c.panNew->show();
    m_c.showAction(u"mnuMessages"_s, false);
    m_c.toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->setEnabled(false);
    m_c.enableAction(u"mnuPrint"_s, state().gPrinterReady);
    for (const MenuEntry &entry : menuTable())
        if (entry.call == MenuCall::Print)
            m_c.enableAction(entry.objectName, false);
    m_c.showAction(u"mnuTasksToOutlook"_s, false);
    m_c.subjects().data->setRecordSource({});
    m_c.subjects().data->Refresh();
    m_c.subjects().lastId = 0;
    m_waiting = false;
    m_notice.clear();
    showNotice();
}

void CaddySections::showReminders(const Section &section)
{
    state().selection.gSection = section.code;
    markButton(section.name);
    allowPeriods(true);
    for (std::size_t i = 0; i < m_c.reminders().size(); ++i) {
        m_c.reminders()[i].grid->setVisible(section.grids[i]);
        m_c.reminders()[i].panEdit->setVisible(section.grids[i]);
    }
    SizeGrids();
    allowPrinting(section);
    RefreshData();
    readWaiting();
    m_search.showPlaceholder();
}

void CaddySections::showGrid(const Section &section)
{
    state().selection.gSection = section.code;
    markButton(section.name);
    allowPeriods(false);
    QString title = section.gridTitle;
    if (section.code == u"M"_s)
        title += u" for "_s + state().settings.gUserName;
    m_c.subjects().grid->setTitle(title);
    m_c.subjects().grid->setAccessibleName(title);
    connectSubjects(section);
    showSubjectColumns(section);
    m_c.subjects().grid->show();
    m_c.subjects().panEdit->show();
    m_c.showAction(u"mnuTasksToOutlook"_s, section.code == u"G"_s && m_sizes.outlookFunctions);
    m_c.showAction(u"mnuMessages"_s, section.code == u"M"_s && state().settings.gNetwork && state().settings.gFeature[u"Messages"_s]);
    allowPrinting(section);
    RefreshData();
    m_search.showPlaceholder();
    m_screen.DisableButtons(true);
}

// Screens of their own. The two of the accounts stand in place of a section and give way to the one before.
void CaddySections::showAction(const Section &section)
{
    if (section.code.isEmpty()) {
        openScreen(section.name);
        return;
    }
    clearScreen(section);
    state().selection.gSection = section.code;
    markButton(section.name);
    m_c.panSearch->hide();
    m_c.panNew->setVisible(section.code == u"IN"_s);
    basic::Trap([&] { openScreen(section.name); });
    const Section *before = sectionByName(state().selection.gLastCategory);
    if (!before || before->kind == SectionKind::Action)
        before = sectionByName(u"All"_s);
    show(*before);
}

void CaddySections::openScreen(const QString &name)
{
    if (const auto step = m_answers.find(name); step != m_answers.end())
        step->second();
    else
        showLater(name);
}

// A journal that was never begun is no error: its section shows nothing. Any other file that is not there is told by the
// data control.
void CaddySections::connectSubjects(const Section &section)
{
    const DataPlace place = dataPlace(section.file);
    const bool none = place.file == DataFile::DataJ && basic::Dir(place.path).isEmpty();
    if (!none)
        basic::IgnoreErrors([&] { openDataFile(section.file).Close(); });       // repairs one that does not open
    state().selection.gSqlSection[section.code] = section.query;
    m_c.subjects().data->setConnect(place.connect.isEmpty() ? u"Access"_s : place.connect);
    m_c.subjects().data->setDatabaseName(none ? QString() : place.path);
    m_c.subjects().data->setRecordSource(section.query);
    read(m_c.subjects());
}

void CaddySections::showSubjectColumns(const Section &section)
{
    const dao::Recordset &rows = m_c.subjects().data->Recordset();
    const bool known = rows && rows.Fields().size() == section.columns.size();
    const QStringList growing = growingFields(section.code);
    std::vector<GridColumn> columns;
    CaddyColumns::Plan plan{section.layoutWord, {}, -1};
    plan.lines = linesOfRow(section.code);
    for (std::size_t i = 0; i < section.columns.size(); ++i) {
        const SectionColumn &from = section.columns[i];
        GridColumn column{known ? rows.Fields()[i].Name : from.field, from.title};
        column.visible = from.role != SectionColumn::Role::Hidden;
        if (from.role == SectionColumn::Role::Button) {
            column.style = GridColumn::Style::Button;
            column.width = buttonWidth;
        }
        const dao::DataType type = known ? rows.Fields()[i].Type : dao::dbText;
        if (type == dao::dbBoolean)
            column.style = GridColumn::Style::Check;
        else if (type == dao::dbDate)
            column.format = state().settings.gDateDisplay;
        else if (type == dao::dbCurrency || moneyField(section.code, from.field))
            column.format = state().settings.gNumberFormat;
        if (type == dao::dbCurrency || type == dao::dbLong || type == dao::dbInteger || type == dao::dbDouble)
            column.alignment = Qt::AlignRight;
        const bool isText = type == dao::dbText || type == dao::dbMemo;
        if (column.visible && from.widthColumn > 0 && column.style == GridColumn::Style::Text
            && (growing.isEmpty() ? isText : growing.contains(from.field))) {
            plan.growing.push_back(static_cast<int>(i));
            if (growing.isEmpty() || from.field == growing.front())
                plan.wideColumn = static_cast<int>(i);
        }
        if (from.field == u"HomeTelephoneNumber"_s)
            plan.givingColumn = static_cast<int>(i);
        plan.samples.push_back(sampleOf(section.code, from.field, type));
        plan.numbers.push_back(from.widthColumn);
        columns.push_back(std::move(column));
    }
    m_columns.show(m_c.subjects().grid, std::move(columns), std::move(plan));
}

// The query of a grid that is not on show is set and read later: nobody waits for rows that nobody sees.
bool CaddySections::refresh(GridPane &pane)
{
    pane.data->setRecordSource(state().period.*pane.sql);
    pane.waits = !pane.isShown();
    return pane.waits || read(pane);
}

bool CaddySections::read(GridPane &pane)
{
    if (pane.data->Refresh())
        return true;
    pane.waits = pane.isReminder();
    return false;
}

bool CaddySections::readReminders()
{
    const auto reminders = m_c.reminders();
    return std::all_of(reminders.begin(), reminders.end(), [this](GridPane &pane) { return refresh(pane); });
}

bool CaddySections::readWaiting()
{
    for (GridPane &pane : m_c.reminders()) {
        if (!pane.waits || !pane.isShown())
            continue;
        pane.waits = false;
        if (!read(pane))
            return false;
    }
    return true;
}

bool CaddySections::readSubjects()
{
    GridPane &pane = m_c.subjects();
    const Selection &now = state().selection;
    const auto query = now.gSqlSection.find(now.gSection);
    if (isReminder(now.gSection) || query == now.gSqlSection.end() || pane.data->DatabaseName().isEmpty())
        return true;
    pane.data->setRecordSource(query->second);
    if (!read(pane))
        return false;
    if (pane.data->hasRows() && pane.data->FindFirst(u"ID=%1"_s.arg(pane.lastId)))
        pane.grid->setBookmark(pane.data->Recordset().Bookmark());
    return true;
}

void CaddySections::GetData()
{
    m_waiting = false;
    if (!readReminders() || !readSubjects())
        return;
    m_notice.clear();
    showNotice();
    m_search.forgetRows();
    m_screen.DisplayCaption();
}

void CaddySections::RefreshData()
{
    static const QStringList skipped = {u"Y"_s, u"MV"_s, u"N"_s, u"H"_s, u"P"_s, u"L"_s, u"J"_s, u"All"_s};
    if (skipped.contains(state().selection.gSection))
        return;
    if (state().period.gSqlAppointments.isEmpty())
        SetDayPeriod(u"Today"_s);
    const QScopedValueRollback quiet(m_quiet, true);
    if (!readReminders())
        return;
    m_search.forgetRows();
    m_screen.DisplayCaption();
}

bool CaddySections::retry()
{
    if (!m_waiting)
        return true;
    if (std::any_of(m_c.panes.begin(), m_c.panes.end(), [](const GridPane &pane) { return pane.grid->isRowChanged(); }))
        return false;                   // the row would be written, and refused, at every tick
    const int wait = dao::DBEngine::LockWait();
    dao::DBEngine::setLockWait(0);
    const QScopedValueRollback quiet(m_quiet, true);
    basic::IgnoreErrors([] {
        if (!state().gMainDb)
            openMainDatabase();
    });
    m_screen.GetData();
    dao::DBEngine::setLockWait(wait);
    return !m_waiting;
}

void CaddySections::fileIsBusy()
{
    m_waiting = true;
    m_notice = u"Another program is using the data file. The rows on show may be out of date; they are read again as soon as "
               u"the file is free."_s;
    showNotice();
}

// What the engine says when a grid's rows cannot be read.
void CaddySections::rowsFailed(int number, const QString &text)
{
    if (number == dao::err::Locked || number == dao::err::FileInUse) {
        fileIsBusy();
        return;
    }
    m_notice = u"The rows could not be read: "_s + text;
    showNotice();
    if (!m_quiet)
        basic::MsgBox(m_notice, {}, basic::Icon::Exclamation);
}

void CaddySections::showNotice()
{
    QString text = m_notice;
    if (text.isEmpty() && state().mainFile == MainFileAccess::None)
        text = u"There is no main data file. Restart the program and let it create a new one."_s;
    m_c.lblNotice->setText(text);
    m_c.lblNotice->setVisible(!text.isEmpty());
}

void CaddySections::allowPeriods(bool allow)
{
    m_c.enableAction(u"mnuDisplayPeriod"_s, allow);
    for (const auto &[key, action] : m_c.toolbarKeys)
        if (action->isCheckable())
            action->setEnabled(allow);
}

void CaddySections::UpdateRowHeight()
{
    const auto height = [this](const GridPane &pane) { return m_columns.rowHeight(pane.grid); };
    vorel::UpdateRowHeight(m_sizes, {height(m_c.appointments()), height(m_c.bills()), height(m_c.events()), height(m_c.subjects())});
}

// One grid alone has the whole middle; several share it evenly.
void CaddySections::SizeGrids()
{
    QList<int> sizes;
    for (int i = 0; i < m_c.SSPanel1->count(); ++i)
        sizes << (m_c.SSPanel1->widget(i)->isHidden() ? 0 : 1000);
    m_c.SSPanel1->setSizes(sizes);
}

void CaddySections::markButton(const QString &tag)
{
    for (const CategoryButton &entry : categoryButtons())
        m_c.rail->button(entry.index)->setChecked(!tag.isEmpty() && entry.tag == tag);
}

void CaddySections::allowPrinting(const Section &section)
{
    const bool ready = state().gPrinterReady;
    const QStringList entries = printMenusOf(section);
    for (const QString &name : entries)
        m_c.enableAction(name, ready);
    if (!entries.isEmpty() || section.kind == SectionKind::Reminder)
        m_c.toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->setEnabled(ready);
}

void CaddySections::applyFeatures()
{
    const auto show = [this](const QString &name, bool visible) {
        m_c.showAction(name, visible);
        // A menu shares its name with its entry; shown as a widget it would pop up.
        if (auto *control = m_c.page->window()->findChild<QWidget *>(name); control && !qobject_cast<QMenu *>(control))
            control->setVisible(visible);
    };
    for (const FeatureEntry &feature : featureTable()) {
        const bool on = state().settings.gFeature[feature.key];
        if (feature.category >= 0)
            m_c.rail->button(feature.category)->setVisible(on);
        for (const QString &name : feature.controls)
            show(name, on);
    }
    const bool any = remindersSwitchedOn();
    for (const QString &name : reminderControls())
        show(name, any);
    for (QAction *group : m_c.periodKeys)
        group->setVisible(any);
}

}
