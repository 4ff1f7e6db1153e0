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
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
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

// A text that should fit into the column.
QString sampleOf(const SectionColumn &column, dao::DataType type)
{
    if (type != dao::dbDate)
        return column.sample;
    const double time = column.isTimed ? basic::TimeSerial(22, 28, 28).serial() : 0;
    return basic::Format(basic::DateTime(basic::DateSerial(2028, 12, 28).serial() + time), state().settings.gDateDisplay);
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
    const SectionDesign &section = *categoryButtons()[static_cast<std::size_t>(index)];
    if (section.isGuarded) {
        adminPassword()();
        if (!state().selection.gAdminOk)
            return;
    }
    m_screen.DisplayCategory(section.name);
    SizeGrids();
    if (isShown(SectionId::Contacts) && m_c.subjects().grid->rows() == 0)
        showMissingContacts();
}

// A name that the catalogue does not know (a bare code after a change) leaves the screen as it is.
void CaddySections::DisplayCategory(const QString &name)
{
    const SectionDesign *section = sectionByName(name);
    if (!section || m_switching)
        return;
    const QScopedValueRollback guard(m_switching, true);
    show(*section);
}

void CaddySections::show(const SectionDesign &section)
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

void CaddySections::clearScreen(const SectionDesign &section)
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

// What an empty grid says instead of rows.
void CaddySections::showEmptyTexts(const SectionDesign &section)
{
    const bool noFile = state().mainFile == MainFileAccess::None;
    for (GridPane &pane : m_c.reminders())
        pane.grid->setEmptyText(noFile ? QString() : sectionByCode(pane.code)->grid->empty);
    if (section.list)
        m_c.subjects().grid->setEmptyText(noFile && section.file == DataFile::Main ? QString() : section.grid->empty);
}

void CaddySections::showReminders(const SectionDesign &section)
{
    state().selection.gSection = section.code;
    showEmptyTexts(section);
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

void CaddySections::showGrid(const SectionDesign &section)
{
    state().selection.gSection = section.code;
    markButton(section.name);
    allowPeriods(false);
    QString title = section.list->title;
    if (section.list->addsUserName)
        title += u" for "_s + state().settings.gUserName;
    m_c.subjects().grid->setTitle(title);
    m_c.subjects().grid->setAccessibleName(title);
    showEmptyTexts(section);
    connectSubjects(section);
    showSubjectColumns(section);
    m_c.subjects().grid->show();
    m_c.subjects().panEdit->show();
    m_c.showAction(u"mnuTasksToOutlook"_s, section.id == SectionId::ToDo && m_sizes.outlookFunctions);
    m_c.showAction(u"mnuMessages"_s, section.id == SectionId::Messages && state().settings.gNetwork && state().settings.gFeature[u"Messages"_s]);
    allowPrinting(section);
    RefreshData();
    m_search.showPlaceholder();
    m_screen.DisableButtons(true);
}

// Screens of their own. The two of the accounts replace a section, and the one before returns when they close.
void CaddySections::showAction(const SectionDesign &section)
{
    if (section.code.isEmpty()) {
        openScreen(section.name);
        return;
    }
    clearScreen(section);
    state().selection.gSection = section.code;
    markButton(section.name);
    m_c.panSearch->hide();
    m_c.panNew->setVisible(section.id == SectionId::Income);
    basic::Trap([&] { openScreen(section.name); });
    const SectionDesign *before = sectionByName(state().selection.gLastCategory);
    if (!before || before->kind == SectionKind::Action)
        before = &sectionDesign(SectionId::AllReminders);
    show(*before);
}

void CaddySections::openScreen(const QString &name)
{
    if (const auto step = m_answers.find(name); step != m_answers.end())
        step->second();
    else
        showLater(name);
}

// A journal that was never begun is not an error: its section shows nothing. For any other missing file the data control
// reports the error.
void CaddySections::connectSubjects(const SectionDesign &section)
{
    const DataPlace place = dataPlace(section.file);
    const bool none = section.missingFile == MissingFile::Empty && basic::Dir(place.path).isEmpty();
    state().selection.gSqlSection[section.code] = section.list->query;
    m_c.subjects().data->setConnect(place.connect.isEmpty() ? u"Access"_s : place.connect);
    m_c.subjects().data->setDatabaseName(none ? QString() : place.path);
    m_c.subjects().data->setRecordSource(section.list->query);
    m_c.subjects().waits = false;
    read(m_c.subjects());
}

void CaddySections::showSubjectColumns(const SectionDesign &section)
{
    const dao::Recordset &rows = m_c.subjects().data->Recordset();
    const bool known = rows && rows.Fields().size() == section.list->columns.size();
    const QStringList &growing = section.list->growing;
    std::vector<GridColumn> columns;
    CaddyColumns::Plan plan{section.grid->word, {}, -1};
    plan.lines = section.list->lines;
    for (std::size_t i = 0; i < section.list->columns.size(); ++i) {
        const SectionColumn &from = section.list->columns[i];
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
        else if (type == dao::dbCurrency || from.isMoney)
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
        if (from.gives)
            plan.givingColumn = static_cast<int>(i);
        plan.samples.push_back(sampleOf(from, type));
        plan.numbers.push_back(from.widthColumn);
        columns.push_back(std::move(column));
    }
    m_columns.show(m_c.subjects().grid, std::move(columns), std::move(plan));
}

// The query of a grid that is not on show is set and read later: no one waits for rows that are not seen.
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

// The row that was current stays so, where it was.
bool CaddySections::readInPlace(GridPane &pane)
{
    const QString id = pane.grid->CellText(idColumn);
    const qsizetype first = pane.grid->FirstRow();
    if (!read(pane))
        return false;
    if (id.isEmpty() || !pane.data->hasRows() || !pane.data->FindFirst(u"ID="_s + id))
        return true;
    pane.grid->Scroll(first);
    pane.grid->setBookmark(pane.data->Recordset().Bookmark());
    return true;
}

void CaddySections::rowsChanged(const QString &table)
{
    for (GridPane &pane : m_c.panes) {
        const SectionDesign *section = sectionByCode(pane.sectionCode());
        if (section && section->rowTip && section->rowTip->table.compare(table, Qt::CaseInsensitive) == 0)
            pane.waits = pane.waits || !pane.isOwnChange;
    }
    readChanged();
}

void CaddySections::readChanged()
{
    if (m_waiting || m_switching || QApplication::activeModalWidget() || m_c.isTyping())
        return;
    const bool any = std::any_of(m_c.panes.begin(), m_c.panes.end(), [](const GridPane &pane) { return pane.waits && pane.isShown(); });
    if (!any)
        return;
    const QScopedValueRollback quiet(m_quiet, true);
    readWaiting();
    m_search.forgetRows();
}

bool CaddySections::readReminders()
{
    const auto reminders = m_c.reminders();
    return std::all_of(reminders.begin(), reminders.end(), [this](GridPane &pane) { return refresh(pane); });
}

bool CaddySections::readWaiting()
{
    for (GridPane &pane : m_c.panes) {
        if (!pane.waits || !pane.isShown())
            continue;
        pane.waits = false;
        if (!readInPlace(pane))
            return false;
    }
    return true;
}

bool CaddySections::readSubjects()
{
    GridPane &pane = m_c.subjects();
    const Selection &now = state().selection;
    const auto query = now.gSqlSection.find(now.gSection);
    const SectionDesign *section = shownSection();
    const bool isReminder = section && section->kind == SectionKind::Reminder;
    if (isReminder || query == now.gSqlSection.end() || pane.data->DatabaseName().isEmpty())
        return true;
    pane.data->setRecordSource(query->second);
    pane.waits = false;
    if (!read(pane))
        return false;
    if (pane.data->hasRows() && pane.data->FindFirst(u"ID="_s + dao::literal(pane.lastId)))
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
    if (const SectionDesign *section = shownSection(); section && !section->refreshesReminders)
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
    // A file that is still locked is what the notice on show says already; the next tick tries again.
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
    for (const SectionDesign *section : categoryButtons())
        m_c.rail->button(section->button->index)->setChecked(!tag.isEmpty() && section->name == tag);
}

void CaddySections::allowPrinting(const SectionDesign &section)
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
    // By name, for the designs name menu entries, buttons of the rail and tools.
    std::map<QString, QWidget *> widgets(m_c.tools.begin(), m_c.tools.end());
    for (const SectionDesign *section : categoryButtons())
        widgets[u"cmdCat(%1)"_s.arg(section->button->index)] = m_c.rail->button(section->button->index);
    widgets[m_c.panPeriod->objectName()] = m_c.panPeriod;
    const auto show = [&](const QString &name, bool visible) {
        m_c.showAction(name, visible);
        if (const auto control = widgets.find(name); control != widgets.end())
            control->second->setVisible(visible);
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
