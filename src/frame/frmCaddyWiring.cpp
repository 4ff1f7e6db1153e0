#include "calendar/frmCalendar.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "contacts/frmInfoCard.h"
#include "contacts/frmLabels.h"
#include "contacts/frmPrintAddressBook.h"
#include "frame/frmCaddyRail.h"
#include "frame/frmCaddyRooms.h"
#include "frame/frmCaddyScreens.h"
#include "frame/frmLater.h"
#include "frame/rowtips.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "platform/desktop/desktop.h"
#include "print/monthcalendar.h"
#include "session/changes.h"
#include "utilities/frmCalculator.h"
#include "utilities/frmInformation.h"

#include <QApplication>
#include <QLineEdit>

// Which part handles which control, menu entry and key of the main screen.
namespace vorel {

using namespace Qt::StringLiterals;

void frmCaddy::connectGrids()
{
    for (GridPane &pane : d->c.reminders()) {
        using controls::Grid;
        Grid *grid = pane.grid;
        grid->setToolTipProvider([this, &pane](qsizetype row, int column) {
            return row >= 0 ? rowTip(pane.grid, pane.code, row) : d->edit.toolTip(pane, row, column);
        });
        controls::on(grid, &Grid::DblClick, this, [this, &pane](int y) { d->edit.DblClick(pane, y); });
        controls::on(grid, &Grid::EnterKey, this, [&pane] { pane.panEdit->click(); });
        controls::on(grid, &Grid::HeadClick, this, [this, grid](int column) { d->search.HeadClick(grid, column); });
    }
    // A list that becomes empty has no current row that could change: its details go with its rows.
    for (const GridPane &pane : d->c.panes) {
        const auto follow = [this, grid = pane.grid] {
            if (grid == d->edit.activeGrid())
                d->edit.showDetails();
        };
        controls::on(pane.grid, &controls::Grid::RowChange, this, follow);
        controls::on(pane.data, &controls::DataControl::RowsChanged, this, follow);
    }
    controls::Grid *subjects = d->c.subjects().grid;
    controls::on(subjects, &controls::Grid::DblClick, this, [this](int y) {
        if (y > controls::headLinesTwips)
            d->edit.ShowEdit();
    });
    controls::on(subjects, &controls::Grid::EnterKey, this, [this] { d->edit.ShowEdit(); });
    controls::on(subjects, &controls::Grid::HeadClick, this,
                 [this, subjects](int column) { d->search.HeadClick(subjects, column); });
    controls::on(subjects, &controls::Grid::BtnClick, this, [this](int, qsizetype row) { d->edit.subjectButton(row); });
    subjects->setToolTipProvider(
        [this, subjects](qsizetype row, int) { return row < 0 ? QString() : rowTip(subjects, state().selection.gSection, row); });
    controls::on(&d->edit, &CaddyEdit::activeGridChanged, this, [this](const controls::Grid *grid) {
        d->painting.markActive(grid);
        d->edit.showDetails();
    });
}

QString frmCaddy::rowTip(const controls::Grid *grid, const QString &code, qsizetype row) const
{
    if (!state().settings.gTips || row >= grid->rows())
        return {};
    return SetToolTip(grid->dataControl()->Database(), code, static_cast<qint32>(basic::Val(grid->CellText(idColumn, row))));
}

void frmCaddy::connectButtons()
{
    CaddyControls &c = d->c;
    const auto click = [this](QAbstractButton *button, std::function<void()> step) {
        controls::on(button, &QAbstractButton::clicked, this, std::move(step));
    };
    for (const SectionDesign *section : categoryButtons())
        click(c.rail->button(section->button->index), [this, index = section->button->index] { cmdCat_Click(index); });
    click(c.panNew, [this] { d->edit.panNew_Click(); });
    click(c.appointments().panEdit, [this] { d->edit.EditAppointment(); });
    click(c.bills().panEdit, [this] { d->edit.EditBill(); });
    click(c.events().panEdit, [this] { d->edit.EditEvent(); });
    click(c.subjects().panEdit, [this] { panEditS_Click(); });
    click(c.cmdNext, [this] { d->search.next(); });
    click(c.panMessages, [this] { DisplayCategory(u"Messages"_s); });
    click(c.panBackup, [this] { DisplayCategory(u"File Backup"_s); });
    click(c.panAppoint, [this] { d->alerts.panAppoint_Click(); });
    const std::map<QString, std::function<void()>> answered = {
        {u"cmdColor"_s, [this] { cmdColor_Click(); }},
        {u"cmdBackground"_s, [this] { cmdBackground_Click(); }},
        {u"cmdCalendar"_s, [this] { DisplayCategory(u"Calendar"_s); }},
        {u"cmdCalculator"_s, [this] { DisplayCategory(u"Calculator"_s); }},
        {u"cmdInvoice"_s, [this] { d->menus.run(u"mnuInvoice"_s); }},
        {u"cmdPopUpCloser"_s, [this] { d->alerts.cmdPopUpCloser_Click(); }},
        {u"cmdInfo"_s, [this] { d->menus.run(u"mnuHelp"_s); }},
    };
    for (const auto &[name, button] : c.tools) {
        const auto step = answered.find(name);
        click(button, step != answered.end() ? step->second
                                             : std::function<void()>([tool = button->accessibleName()] { showLater(tool); }));
    }
    controls::on(c.txtSearch, &QLineEdit::textChanged, this, [this] { d->search.textChanged(); });
    controls::on(c.txtSearch, &QLineEdit::returnPressed, this, [this] { d->edit.editSearched(); });
    c.txtSearch->installEventFilter(this);
    controls::on(c.picMonth, &SmallMonth::DayClicked, this, [this](basic::DateTime day) { showDay(day); });
    controls::on(c.picMonth, &SmallMonth::DayDblClicked, this,
                 [this](basic::DateTime day) { showCalendar(calendarCalls(), this, day); });
    controls::on(&Changes::instance(), &Changes::changed, this, [this](const QString &table) {
        basic::Trap([&] {
            d->sections.rowsChanged(table);
            d->edit.showDetails();
            if (table == u"MESSAGES")
                CheckForMessages();
        });
    });
}

// The reminders of one day; from another section, all of them.
void frmCaddy::showDay(basic::DateTime day)
{
    if (!writeRows())
        return;
    d->periods.chooseDay(day);
    if (const SectionDesign *section = shownSection(); !section || section->kind != SectionKind::Reminder)
        DisplayCategory(u"All"_s);
}

CalendarCalls frmCaddy::calendarCalls()
{
    return {[this](const RecordCall &call, QWidget *screen) { d->edit.openCall(call, screen); },
            [](int year, int month, const CalendarPaper &paper) { PrintMonthCalendar(month, year, paper); }};
}

void frmCaddy::startCalendar()
{
    DisableButtons(false);
    basic::Trap([this] { showCalendarModal(calendarCalls(), this); });
    DisableButtons(true);
}

void frmCaddy::answerMenus()
{
    CaddyMenus &menus = d->menus;
    menus.answer(u"mnuExit"_s, [this] { close(); });
    menus.answer(u"mnuQuit"_s, [this] { close(); });
    menus.answer(u"mnuHelp"_s, [] { ShowInfoPage(state().selection.gSection); });
    menus.answer(u"mnuAbout"_s, [] {
        basic::MsgBox(state().gProductTitle + u"\n\nVersion "_s + QStringLiteral(VOREL_VERSION)
                          + u"\nProbably the Handiest Software you will own"_s, u"About"_s, basic::Icon::Information);
    });
    const std::pair<QString, MessageView> views[] = {{u"mnuMessagesSent"_s, MessageView::Sent},
                                                     {u"mnuMessagesReceived"_s, MessageView::Received},
                                                     {u"mnuMessagesBoth"_s, MessageView::Both}};
    for (const auto &[name, view] : views)
        menus.answer(name, [this, chosen = view] { d->strip.showMessages(chosen); });
    menus.answer(u"mnuMaintenance"_s, [this] {
        if (hasProgram(u"Chimer.exe"_s) && writeRows() && startProgram(u"Chimer.exe"_s))
            Unload();
    });
    menus.answer(u"mnuFridgeCopy"_s, [this] { printFridgeCopy(); });
    menus.answer(u"mnuPrintLabels"_s, [this] { frmLabels(LabelMode::Labels, this).ShowModal(); });
    menus.answer(u"mnuPrintEnvelopes"_s, [this] { frmLabels(LabelMode::Envelopes, this).ShowModal(); });
    menus.answer(u"mnuPrintAddressBook"_s, [this] { frmPrintAddressBook(this).ShowModal(); });
    menus.answer(u"mnuInfoCard"_s, [this] { showInfoCard(); });
    d->sections.answer(u"Calculator"_s, [this] { showCalculator(this); });
    d->sections.answer(u"Calendar"_s, [this] { showCalendar(calendarCalls(), this); });
    d->sections.answer(u"Help"_s, [this] { d->menus.run(u"mnuHelp"_s); });
}

// The month for the wall, with all its blocks: the one that the small month shows.
void frmCaddy::printFridgeCopy()
{
    const SmallMonth &shown = *d->c.picMonth;
    PrintMonthCalendar(shown.month(), shown.year(), {{{}, true}, true});
}

void frmCaddy::showInfoCard()
{
    const auto open = [this](qint32 id) {
        const SectionDesign &contacts = sectionDesign(SectionId::Contacts);
        if (const RecordScreen *screen = recordScreen(contacts.screen->name))
            screen->open({contacts.code, id}, QApplication::activeModalWidget());
        else
            showLater(u"The screen of a record of "_s + contacts.name);
        GetData();
    };
    frmInfoCard(open, this).ShowModal();
}

}
