#include "frame/frmCaddy.h"

#include "frame/frmCaddyAlerts.h"
#include "frame/frmCaddyCells.h"
#include "frame/frmCaddyEdit.h"
#include "frame/frmCaddyGround.h"
#include "frame/frmCaddyIcons.h"
#include "frame/frmCaddyLayout.h"
#include "frame/frmCaddyMenus.h"
#include "frame/frmCaddyPainting.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "frame/frmCaddySections.h"
#include "frame/frmCaddyStrip.h"
#include "frame/frmCaddyTips.h"
#include "frame/frmLater.h"
#include "frame/frmUnload.h"
#include "frame/ini.h"
#include "frame/rowtips.h"
#include "frame/startup.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/form.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/profile.h"
#include "reminders/greetings.h"
#include "utilities/frmCalculator.h"
#include "utilities/frmInformation.h"
#include "utilities/hints.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>

namespace vorel {

using namespace Qt::StringLiterals;

struct frmCaddy::Rooms {
    explicit Rooms(frmCaddy &screen)
        : build(&screen, c), columns(sizes, &screen), painting(c, sizes, columns), search(c),
          sections(c, screen, sizes, columns, search), periods(c, screen), cells(c, screen), edit(c, screen, &screen),
          menus(c, screen, periods, &screen), strip(c, screen), tips(c, [this] { edit.showDetails(); }, &screen),
          alerts(c, painting, edit, &screen) {}

    struct Build {
        Build(QMainWindow *window, CaddyControls &c) { BuildCaddy(window, c); }
    };
    CaddyControls c;
    GridLayout sizes;
    Build build;
    CaddyColumns columns;
    CaddyPainting painting;
    CaddySearch search;
    CaddySections sections;
    CaddyPeriods periods;
    CaddyCells cells;
    CaddyEdit edit;
    CaddyMenus menus;
    CaddyStrip strip;
    CaddyTips tips;
    CaddyAlerts alerts;
};

frmCaddy::frmCaddy(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(u"frmCaddy"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    d = std::make_unique<Rooms>(*this);
    connectGrids();
    connectButtons();
    answerMenus();
    controls::on(d->c.Timer2, &QTimer::timeout, this, [this] { d->alerts.Timer2_Timer(); });
    connect(d->c.TimerMessages, &QTimer::timeout, this, [this] { 
        basic::IgnoreErrors([this] { CheckForMessages(); });
        basic::IgnoreErrors([this] { CheckForBackupFiles(); });
    });
    fitDesktop();
}

frmCaddy::~frmCaddy()
{
    if (!m_unloaded)
        state().gMainDb = {};
}

CaddyControls &frmCaddy::controls()
{
    return d->c;
}

void frmCaddy::RequeryReminders()
{
    for (ReminderGrid &one : d->c.reminders)
        if (!one.grid->isHidden())
            one.data->Refresh();
    d->search.forgetRows();
}

void frmCaddy::connectGrids()
{
    for (ReminderGrid &one : d->c.reminders) {
        using controls::Grid;
        Grid *grid = one.grid;
        grid->setToolTipProvider([this, &one](qsizetype row, int column) {
            return row >= 0 ? rowTip(one.grid, one.code, row) : d->edit.toolTip(one, row, column);
        });
        controls::on(grid, &Grid::DblClick, this, [this, &one](int y) { d->edit.DblClick(one, y); });
        controls::on(grid, &Grid::EnterKey, this, [&one] { one.panEdit->click(); });
        controls::on(grid, &Grid::HeadClick, this, [this, grid](int column) { d->search.HeadClick(grid, column); });
        controls::on(grid, &Grid::RowChange, this, [this, grid] {
            if (grid == d->edit.activeGrid())
                d->edit.showDetails();
        });
    }
    controls::Grid *subjects = d->c.SUBJECTGRID;
    controls::on(subjects, &controls::Grid::DblClick, this, [this](int y) {
        if (y > controls::headLinesTwips)
            d->edit.ShowEdit();
    });
    controls::on(subjects, &controls::Grid::EnterKey, this, [this] { d->edit.ShowEdit(); });
    controls::on(subjects, &controls::Grid::HeadClick, this,
                 [this, subjects](int column) { d->search.HeadClick(subjects, column); });
    controls::on(subjects, &controls::Grid::RowChange, this, [this] { d->edit.showDetails(); });
    controls::on(subjects, &controls::Grid::BtnClick, this, [this](int, qsizetype row) { d->edit.subjectButton(row); });
    subjects->setToolTipProvider(
        [this, subjects](qsizetype row, int) { return row < 0 ? QString() : rowTip(subjects, state().gSection, row); });
    controls::on(&d->edit, &CaddyEdit::ActiveGridChanged, this, [this](const controls::Grid *grid) {
        d->painting.MarkActive(grid);
        d->edit.showDetails();
    });
}

QString frmCaddy::rowTip(const controls::Grid *grid, const QString &code, qsizetype row) const
{
    if (!state().gTips || row >= grid->rows())
        return {};
    return SetToolTip(grid->dataControl()->Database(), code, static_cast<qint32>(basic::Val(grid->CellText(idColumn, row))));
}

void frmCaddy::connectButtons()
{
    CaddyControls &c = d->c;
    const auto click = [this](QAbstractButton *button, std::function<void()> step) {
        controls::on(button, &QAbstractButton::clicked, this, std::move(step));
    };
    for (const CategoryButton &entry : categoryButtons())
        click(c.rail->button(entry.index), [this, index = entry.index] { cmdCat_Click(index); });
    click(c.panNew, [this] { d->edit.panNew_Click(); });
    click(c.appointments().panEdit, [this] { d->edit.EditAppointment(); });
    click(c.bills().panEdit, [this] { d->edit.EditBill(); });
    click(c.events().panEdit, [this] { d->edit.EditEvent(); });
    click(c.panEditS, [this] { panEditS_Click(); });
    click(c.cmdNext, [this] { d->search.next(); });
    click(c.panMessages, [this] { DisplayCategory(u"Messages"_s); });
    click(c.panBackup, [this] { DisplayCategory(u"File Backup"_s); });
    click(c.panAppoint, [this] { d->alerts.panAppoint_Click(); });
    for (const auto &[name, button] : c.tools)
        click(button, [spoken = button->accessibleName()] { ShowLater(spoken); });
    const std::pair<QString, std::function<void()>> answered[] = {
        {u"cmdColor"_s, [this] { cmdColor_Click(); }},
        {u"cmdBackground"_s, [this] { cmdBackground_Click(); }},
        {u"cmdCalendar"_s, [this] { DisplayCategory(u"Calendar"_s); }},
        {u"cmdCalculator"_s, [this] { DisplayCategory(u"Calculator"_s); }},
        {u"cmdInvoice"_s, [this] { d->menus.run(u"mnuInvoice"_s); }},
        {u"cmdPopUpCloser"_s, [this] { d->alerts.cmdPopUpCloser_Click(); }},
        {u"cmdInfo"_s, [this] { d->menus.run(u"mnuHelp"_s); }},
    };
    for (const auto &[name, step] : answered) {
        c.tools.at(name)->disconnect(this);
        click(c.tools.at(name), step);
    }
    controls::on(c.txtSearch, &QLineEdit::textChanged, this, [this] { d->search.textChanged(); });
    controls::on(c.txtSearch, &QLineEdit::returnPressed, this, [this] { d->edit.editSearched(); });
    c.txtSearch->installEventFilter(this);
}

// Two keys of the search box: Esc empties it, Down goes on to the grid.
bool frmCaddy::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->c.txtSearch || event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        d->c.txtSearch->clear();
        return true;
    case Qt::Key_Down:
        d->search.searchGrid()->setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return QMainWindow::eventFilter(watched, event);
    }
}

void frmCaddy::answerMenus()
{
    CaddyMenus &menus = d->menus;
    menus.answer(u"mnuExit"_s, [this] { close(); });
    menus.answer(u"mnuQuit"_s, [this] { close(); });
    menus.answer(u"mnuHelp"_s, [] { ShowInfoPage(state().gSection); });
    menus.answer(u"mnuAbout"_s, [] {
        basic::MsgBox(state().gProductTitle + u"\n\nVersion "_s + QStringLiteral(VOREL_VERSION)
                          + u"\nProbably the Handiest Software you will own"_s, u"About"_s, basic::Icon::Information);
    });
    const std::pair<QString, MessageView> views[] = {{u"mnuMessagesSent"_s, MessageView::Sent},
                                                     {u"mnuMessagesReceived"_s, MessageView::Received},
                                                     {u"mnuMessagesBoth"_s, MessageView::Both}};
    for (const auto &[name, view] : views)
        menus.answer(name, [this, chosen = view] { d->strip.showMessages(chosen); });
    const auto startProgram = [](const QString &name) {
        const QString program = basic::programFolder() + u'/' + name;
        return !basic::Dir(program).isEmpty() && desktop::ShellExecute(basic::realPath(program));
    };
    menus.answer(u"mnuMaintenance"_s, [this, startProgram] {
        if (WriteRows() && startProgram(u"Chimer.exe"_s))
            Unload();
    });
    d->sections.answer(u"Calculator"_s, [this] { ShowCalculator(this); });
    d->sections.answer(u"Help"_s, [this] { d->menus.run(u"mnuHelp"_s); });
}

void frmCaddy::loadSettings()
{
    LoadMainSettings();
    LoadGridSettings(d->sizes);
    d->painting.ApplyLayout();
    applyBackground();
    d->sections.ApplyFeatures();
}

void frmCaddy::openData()
{
    OpenMainDatabase();
}

void frmCaddy::showStart()
{
    DisplayDates();
    SetTodayParts();
    d->periods.setQuietly(u"mnuToday"_s);
    const QString category = LoadStartCategory();
    DisplayCategory(category);
    if (state().gLastCategory.isEmpty())        // a name that is no section
        DisplayCategory(u"All"_s);
}

void frmCaddy::Load()
{
    CaddyControls &c = d->c;
    setWindowTitle(state().gProductTitle);
    // A step that fails shows its error, and the next one is taken all the same.
    basic::Trap([this] { loadSettings(); });
    basic::Trap([this] { openData(); });
    for (controls::DataControl *rows : {c.appointments().data, c.bills().data, c.events().data, c.dtaSubjects}) {
        rows->setConnect(u"Access"_s);
        if (state().mainFile != MainFileAccess::None)
            rows->setDatabaseName(state().path(DataFile::Main));
    }
    basic::Trap([] { LoadUserName(); });
    basic::Trap([this] { showStart(); });
    basic::Trap([this] {
        if (iniInteger(GetIniValue(iniSettings, u"Screen"_s, u"1"_s)) == 2)
            setWindowState(windowState() | Qt::WindowMaximized);
    });
    basic::Trap([&c] {
        LoadWarningSettings();
        c.Timer2->start();
        if (state().gNetwork)
            c.TimerMessages->start();
    });
    basic::Trap([] { LoadSoundFile(); });
    basic::Trap([this] { d->painting.DefaultMenu(); });
    basic::Trap([] { LoadHints(); });
    basic::Trap([this] { d->strip.ScrollMessages(); });
    basic::Trap([this] { CheckForMessages(); });
    c.picDetails->setPaper(desktop::findResource(u"\\Paper.jpg"_s));
    const auto needs = [&c](int index, DataFile file) {
        if (basic::Dir(state().path(file)).isEmpty())
            c.rail->button(index)->setEnabled(false);
    };
    needs(17, DataFile::DataJ);
    needs(4, DataFile::DataP);
    runLoadPasses();
}

// The last steps of the load: what goes to other programs.
void frmCaddy::runLoadPasses()
{
    basic::Trap([this] { CheckForBackupFiles(); });
    basic::Trap([this] { d->alerts.CreateAppointsFile(); });
    if (state().gAutoEmail && state().mainFile == MainFileAccess::Full)
        basic::Trap([] { SendBirthdayEmails(); });
}

void frmCaddy::DisplayCategory(const QString &name)
{
    if (!WriteRows())
        return;
    d->sections.DisplayCategory(name);
    d->painting.ShowGround();
    d->cells.EnterSection();
    d->painting.MarkActive(d->edit.activeGrid());
    d->edit.showDetails();
}

void frmCaddy::GetData()
{
    if (WriteRows())
        d->sections.GetData();
}

void frmCaddy::RefreshData() { d->sections.RefreshData(); }
void frmCaddy::DisplayCaption() { d->periods.DisplayCaption(); }
void frmCaddy::DisplayDates() { d->periods.DisplayDates(); }
void frmCaddy::CheckForMessages() { d->strip.CheckForMessages(); }
void frmCaddy::CheckForBackupFiles() { d->strip.CheckForBackupFiles(); }
void frmCaddy::CheckAppointments() { d->alerts.CheckAppointments(); }
void frmCaddy::ScrollMessages() { d->strip.ScrollMessages(); }
void frmCaddy::UpdateRowHeight() { d->sections.UpdateRowHeight(); }
bool frmCaddy::WriteRows() { return d->cells.WriteRows(); }
void frmCaddy::SortData() { d->search.SortData(state().gSection); }

void frmCaddy::DisableButtons(bool enable)
{
    d->c.SSPanel1->setEnabled(enable);
    d->c.rail->setEnabled(enable);
    d->c.Toolbar1->setEnabled(enable);
}

// The first size fits a small desktop; a larger one is not filled.
void frmCaddy::fitDesktop()
{
    const QScreen *desktop = screen();
    const QSize room = desktop ? desktop->availableSize() - QSize(8, 40) : QSize(1272, 760);
    resize(QSize(1272, 760).boundedTo(room));
}

void frmCaddy::applyBackground()
{
    QColor chosen;
    if (const auto number = colourNumber(GetIniValue(iniSettings, u"ScreenBackColour"_s, {})))
        chosen = colourOf(*number);
    const bool ownWords = d->sizes.screenFontColour > 0;
    const QColor words = ownWords ? screenFontColour(d->sizes.screenFontColour) : palette().color(QPalette::WindowText);
    QPalette page;
    if (chosen.isValid())
        page.setColor(QPalette::Window, chosen);
    if (chosen.isValid() || ownWords)
        page.setColor(QPalette::WindowText,
                      controls::readable(words, chosen.isValid() ? chosen : palette().color(QPalette::Window)));
    d->c.page->setAutoFillBackground(chosen.isValid());
    d->c.page->setPalette(page);
    d->c.page->setPicture(d->sizes.setupPicture);
    QPalette strip;
    if (ownWords)
        strip.setColor(QPalette::WindowText, controls::readable(words, palette().color(QPalette::Window)));
    for (QLabel *label : {d->c.lblUsername, d->c.lblDate, d->c.lblTime})
        label->setPalette(strip);
}

void frmCaddy::cmdBackground_Click()
{
    const std::optional<QString> file = basic::prompts().chooseFile(
        {u"Screen Background Pictures"_s, d->sizes.setupPicture, u"Pictures (*.bmp *.jpg *.jpeg *.gif *.png)"_s});
    if (!file)
        return;
    PutIniValue(iniSettings, u"SetupPicture"_s, QString(*file));
    d->sizes.setupPicture = *file;
    applyBackground();
    if (!d->c.page->hasPicture())
        basic::MsgBox(u"This file is not a picture that can be shown."_s, {}, basic::Icon::Exclamation);
}

void frmCaddy::cmdColor_Click()
{
    const QColor now = d->c.page->palette().color(QPalette::Window);
    const std::optional<quint32> chosen = basic::prompts().chooseColour(now.rgb() & 0xFFFFFF);
    if (!chosen)
        return;
    const quint32 bgr = (*chosen & 0xFF) << 16 | (*chosen & 0xFF00) | (*chosen >> 16 & 0xFF);
    PutIniValue(iniSettings, u"ScreenBackColour"_s, QString::number(bgr));
    applyBackground();
}

void frmCaddy::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (event->spontaneous())
        return;
    d->sections.SizeGrids();
    if (const ReminderGrid *first = d->c.firstShown())
        first->grid->setFocus();
    emit Activated();
}

void frmCaddy::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !d)
        return;
    ApplyIconTheme();
    ApplyCaddyIcons(d->c);
    d->c.rail->applyIcons();
    d->painting.ApplyPalette();
    d->painting.MarkActive(d->edit.activeGrid());
    applyBackground();
}

// Not every display hands the keyboard back when a box over the screen closes.
bool frmCaddy::event(QEvent *event)
{
    if (event->type() == QEvent::WindowUnblocked) {
        QTimer::singleShot(0, this, [this] {
            if (isVisible() && !QApplication::activeWindow() && !QApplication::activeModalWidget())
                activateWindow();
        });
    }
    return QMainWindow::event(event);
}

void frmCaddy::cmdCat_Click(int index)
{
    if (WriteRows()) {
        d->sections.cmdCat_Click(index);
        return;
    }
    for (const CategoryButton &entry : categoryButtons())
        d->c.rail->button(entry.index)->setChecked(entry.tag == state().gLastCategory);
}

void frmCaddy::panEditS_Click()
{
    if (d->c.panEditS->text() == u"Edit"_s)
        d->edit.ShowEdit();
    else
        d->cells.ClearShoppingChecks();
}

// What was typed into a grid and cannot be stored keeps the screen open.
void frmCaddy::closeEvent(QCloseEvent *event)
{
    bool written = true;
    if (!m_unloaded)
        basic::Trap([&] { written = WriteRows(); });
    event->setAccepted(written);
    if (written)
        Unload();
}

void frmCaddy::Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    UnloadScreens({u"frmImportEvents"_s, u"frmCalculator"_s, u"frmCalendar"_s});
    basic::Trap([this] {
        const desktop::ProfileBatch oneWrite;
        d->sections.UpdateRowHeight();
        SaveGridSettings(d->sizes, static_cast<std::int16_t>(d->c.SUBJECTGRID->rowHeightTwips()));
    });
    if (state().gPopUpCloser)
        StartProgram(u"PopUpCloser.exe"_s);
    d->c.Timer2->stop();
    d->c.TimerMessages->stop();
    for (ReminderGrid &one : d->c.reminders)
        one.data->Close();
    d->c.dtaSubjects->Close();
    state().gMainDb = {};
    hide();
    emit Unloaded();
    QApplication::quit();
}

}
