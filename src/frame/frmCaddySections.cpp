#include "frame/frmCaddySections.h"

#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "frame/frmLater.h"
#include "frame/menus.h"
#include "frame/periods.h"
#include "frame/startup.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"

#include <QAction>
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

constexpr int missingTable = 3078;

const QString &bannerLine()
{
    static const QString line = u"Reminders and household records"_s;
    return line;
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
    // A file that does not hold the section's table yet leaves the section empty.
    QObject::connect(m_c.dtaSubjects, &controls::DataControl::Error, m_c.SUBJECTGRID, [](int number, const QString &text) {
        if (number != missingTable)
            basic::MsgBox(text, {}, basic::Icon::Exclamation);
    });
}

void CaddySections::cmdCat_Click(int index)
{
    markButton({});
    UpdateRowHeight();
    const QString &tag = categoryButtons()[static_cast<std::size_t>(index)].tag;
    m_screen.DisplayCategory(tag);
    SizeGrids();
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
    if (section.kind == SectionKind::Reminder)
        showReminders(section);
    else
        showGrid(section);
}

void CaddySections::clearScreen(const Section &section)
{
    m_c.txtSearch->clear();
    m_screen.DisableButtons(true);
    UpdateRowHeight();
    m_c.picDetails->showBanner(state().gProductTitle, bannerLine());
    state().gAdminOk = false;
    for (ReminderGrid &one : m_c.reminders) {
        one.grid->hide();
        one.panEdit->hide();
    }
    m_c.SUBJECTGRID->hide();
    m_c.panEditS->hide();
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
    m_c.dtaSubjects->setRecordSource({});
    m_c.dtaSubjects->Refresh();
    state().gLastCategory = section.name;
}

void CaddySections::showReminders(const Section &section)
{
    state().gSection = section.code;
    markButton(section.name);
    m_c.enableAction(u"mnuDisplayPeriod"_s, true);
    for (std::size_t i = 0; i < m_c.reminders.size(); ++i) {
        m_c.reminders[i].grid->setVisible(section.grids[i]);
        m_c.reminders[i].panEdit->setVisible(section.grids[i]);
    }
    SizeGrids();
    allowPrinting(section);
    RefreshData();
    readWaiting();
}

void CaddySections::showGrid(const Section &section)
{
    state().gSection = section.code;
    markButton(section.name);
    m_c.enableAction(u"mnuDisplayPeriod"_s, false);
    QString title = section.gridTitle;
    if (section.code == u"M"_s)
        title += u" for "_s + state().gUserName;
    m_c.SUBJECTGRID->setTitle(title);
    m_c.SUBJECTGRID->setAccessibleName(title);
    if (connectSubjects(section))
        m_c.dtaSubjects->Refresh();
    showSubjectColumns(section);
    m_c.SUBJECTGRID->setRowHeightTwips(m_sizes.rowHeight(section.layoutWord));
    m_c.SUBJECTGRID->show();
    m_c.panEditS->show();
    m_c.showAction(u"mnuMessages"_s, section.code == u"M"_s && state().gNetwork);
    allowPrinting(section);
    RefreshData();
    m_screen.DisableButtons(true);
}

// Screens of their own. The two of the accounts stand in place of a section and give way to the one before.
void CaddySections::showAction(const Section &section)
{
    if (section.code.isEmpty()) {
        ShowLater(section.name);
        return;
    }
    state().gSection = section.code;
    markButton(section.name);
    ShowLater(section.name);
    const Section *before = sectionByName(state().gLastCategory);
    if (!before || before->kind == SectionKind::Action)
        before = sectionByName(u"All"_s);
    show(*before);
}

// false: there is no file to read yet.
bool CaddySections::connectSubjects(const Section &section)
{
    DataFile file = section.file;
    if (section.name == u"Passwords"_s && basic::Dir(state().path(file)).isEmpty())
        file = DataFile::Main;
    const QString &path = state().path(file);
    state().gSqlSection[section.code] = section.query;
    if (basic::Dir(path).isEmpty())
        return false;
    const bool isProtected = dataFiles()[static_cast<std::size_t>(file)].isProtected;
    m_c.dtaSubjects->setConnect(isProtected ? protectedConnect() : u"Access"_s);
    m_c.dtaSubjects->setDatabaseName(path);
    m_c.dtaSubjects->setRecordSource(section.query);
    return true;
}

void CaddySections::showSubjectColumns(const Section &section)
{
    const dao::Recordset &rows = m_c.dtaSubjects->Recordset();
    const bool known = rows && rows.Fields().size() == section.columns.size();
    std::vector<GridColumn> columns;
    CaddyColumns::Plan plan{section.layoutWord, {}, -1};
    for (std::size_t i = 0; i < section.columns.size(); ++i) {
        const SectionColumn &from = section.columns[i];
        GridColumn column{known ? rows.Fields()[i].Name : from.field, from.title};
        column.visible = from.role != SectionColumn::Role::Hidden;
        if (from.role == SectionColumn::Role::Button)
            column.style = GridColumn::Style::Button;
        const dao::DataType type = known ? rows.Fields()[i].Type : dao::dbText;
        if (type == dao::dbBoolean)
            column.style = GridColumn::Style::Check;
        else if (type == dao::dbDate)
            column.format = state().gDateDisplay;
        else if (type == dao::dbCurrency)
            column.format = state().gNumberFormat;
        if (type == dao::dbCurrency || type == dao::dbLong || type == dao::dbInteger || type == dao::dbDouble)
            column.alignment = Qt::AlignRight;
        if (column.visible && from.widthColumn > 0 && column.style == GridColumn::Style::Text)
            plan.wideColumn = static_cast<int>(i);
        plan.numbers.push_back(from.widthColumn);
        columns.push_back(std::move(column));
    }
    m_columns.show(m_c.SUBJECTGRID, std::move(columns), std::move(plan));
}

// The query of a grid that is not on show is set and read later: nobody waits for rows that nobody sees.
void CaddySections::refresh(ReminderGrid &one)
{
    one.data->setRecordSource(state().*one.sql);
    one.waits = one.grid->isHidden();
    if (!one.waits)
        one.data->Refresh();
}

void CaddySections::readWaiting()
{
    for (ReminderGrid &one : m_c.reminders) {
        if (!one.waits || one.grid->isHidden())
            continue;
        one.waits = false;
        one.data->Refresh();
    }
}

void CaddySections::GetData()
{
    State &s = state();
    for (ReminderGrid &one : m_c.reminders)
        refresh(one);
    const auto query = s.gSqlSection.find(s.gSection);
    if (!isReminder(s.gSection) && query != s.gSqlSection.end() && !m_c.dtaSubjects->DatabaseName().isEmpty()) {
        m_c.dtaSubjects->setRecordSource(query->second);
        m_c.dtaSubjects->Refresh();
        if (m_c.dtaSubjects->hasRows() && m_c.dtaSubjects->FindFirst(u"ID=%1"_s.arg(s.gLastRecord)))
            m_c.SUBJECTGRID->setBookmark(m_c.dtaSubjects->Recordset().Bookmark());
    }
    m_search.forgetRows();
    m_screen.DisplayCaption();
}

void CaddySections::RefreshData()
{
    static const QStringList skipped = {u"Y"_s, u"MV"_s, u"N"_s, u"H"_s, u"P"_s, u"L"_s, u"J"_s, u"All"_s};
    if (skipped.contains(state().gSection))
        return;
    if (state().gSqlAppointments.isEmpty())
        SetDayPeriod(u"Today"_s);
    for (ReminderGrid &one : m_c.reminders)
        basic::IgnoreErrors([&] { refresh(one); });
    m_search.forgetRows();
    m_screen.DisplayCaption();
}

void CaddySections::UpdateRowHeight()
{
    const auto height = [](const controls::Grid *grid) { return static_cast<std::int16_t>(grid->rowHeightTwips()); };
    vorel::UpdateRowHeight(m_sizes, {height(m_c.appointments().grid), height(m_c.bills().grid), height(m_c.events().grid),
                                     height(m_c.SUBJECTGRID)});
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
    if (!entries.isEmpty())
        m_c.toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->setEnabled(ready);
}

void CaddySections::ApplyFeatures()
{
    const auto show = [this](const QString &name, bool visible) {
        m_c.showAction(name, visible);
        if (QWidget *control = m_c.page->window()->findChild<QWidget *>(name))
            control->setVisible(visible);
    };
    for (const FeatureEntry &feature : featureTable()) {
        const bool on = state().gFeature[feature.key];
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
