#include "frame/frmCaddy.h"

#include "frame/frmCaddyGround.h"
#include "frame/frmCaddyHead.h"
#include "frame/frmCaddyIcons.h"
#include "frame/frmCaddyInfo.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "frame/frmCaddyRooms.h"
#include "frame/frmUnload.h"
#include "frame/periods.h"
#include "frame/startup.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/form.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/profile.h"
#include "reminders/greetings.h"
#include "session/changes.h"
#include "session/datafiles.h"
#include "session/ini.h"
#include "utilities/hints.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>

namespace vorel {

using namespace Qt::StringLiterals;

frmCaddy::frmCaddy(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(u"frmCaddy"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    d = std::make_unique<Rooms>(*this);
    connectGrids();
    controls::DataControl::setOpener(openDataFileAt);        // a grid or record screen repairs what does not open
    connectButtons();
    answerMenus();
    controls::on(d->c.Timer2, &QTimer::timeout, this, [this] { Timer2_Timer(); });
    connect(d->c.TimerMessages, &QTimer::timeout, this, [this] {
        // Looks every few seconds: a file that cannot be read is reported by the action that uses it.
        basic::IgnoreErrors([this] {
            CheckForMessages();
            CheckForBackupFiles();
        });
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

void frmCaddy::loadSettings()
{
    loadMainSettings();
    LoadGridSettings(d->sizes);
    d->painting.applyLayout();
    applyBackground();
    d->sections.applyFeatures();
}

void frmCaddy::openData()
{
    openMainDatabase();
}

void frmCaddy::showStart()
{
    setTodayParts();
    DisplayDates();
    const QString category = loadStartCategory();
    d->c.panInfo->setVisible(state().settings.gDisplayAds);
    DisplayCategory(category);
    if (state().selection.gLastCategory.isEmpty())        // not the name of a section
        DisplayCategory(u"All"_s);
}

void frmCaddy::Load()
{
    CaddyControls &c = d->c;
    setWindowTitle(state().gProductTitle);
    // A step that fails shows its error, and the next one is taken all the same.
    basic::Trap([this] { loadSettings(); });
    basic::Trap([this] { openData(); });
    for (const GridPane &pane : c.panes) {
        pane.data->setConnect(u"Access"_s);
        if (state().mainFile != MainFileAccess::None)
            pane.data->setDatabaseName(state().path(DataFile::Main));
    }
    basic::Trap([] { loadUserName(); });
    basic::Trap([this] { showStart(); });
    basic::Trap([this] {
        if (iniInteger(GetIniValue(iniSettings, u"Screen"_s, u"1"_s)) == 2)
            setWindowState(windowState() | Qt::WindowMaximized);
    });
    basic::Trap([&c] {
        loadWarningSettings();
        c.Timer2->start();
        if (state().settings.gNetwork)
            c.TimerMessages->start();
    });
    basic::Trap([] { loadSoundFile(); });
    basic::Trap([this] { d->painting.DefaultMenu(); });
    basic::Trap([] { LoadHints(); });
    basic::Trap([this] { d->strip.ScrollMessages(); });
    basic::Trap([this] { CheckForMessages(); });
    c.picDetails->setPaper(desktop::findResource(u"\\Paper.jpg"_s));
    for (const SectionDesign *section : categoryButtons())
        if (section->isGuarded && basic::Dir(state().path(section->file)).isEmpty())
            c.rail->button(section->button->index)->setEnabled(false);
    runLoadPasses();
}

// The last steps of the load: what goes to other programs.
void frmCaddy::runLoadPasses()
{
    basic::Trap([this] { CheckForBackupFiles(); });
    // The pop-up program and the greetings work on today's rows, whatever period the grids show.
    const QScopedValueRollback shown(state().period);
    SetDayPeriod(u"Today"_s);
    // A folder that takes no files has been reported by now.
    if (state().mainFile != MainFileAccess::Read)
        basic::Trap([this] { d->alerts.CreateAppointsFile(); });
    if (state().settings.gAutoEmail && state().mainFile == MainFileAccess::Full)
        basic::Trap([] { SendBirthdayEmails(); });
}

void frmCaddy::DisplayCategory(const QString &name)
{
    if (!writeRows())
        return;
    d->sections.DisplayCategory(name);
    d->painting.showGround();
    d->cells.enterSection();
    d->painting.markActive(d->edit.activeGrid());
    d->edit.showDetails();
}

void frmCaddy::GetData()
{
    if (writeRows())
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
void frmCaddy::holdTimer(bool hold)
{
    if (hold) {
        m_held = d->c.Timer2->isActive();
        d->c.Timer2->stop();
    } else if (std::exchange(m_held, false)) {
        d->c.Timer2->start();
    }
}

bool frmCaddy::writeRows() { return d->cells.writeRows(); }
void frmCaddy::SortData() { d->search.SortData(state().selection.gSection); }

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
    constexpr int leastWithPane = 700;
    if (room.width() < leastWithPane)
        fitSmallScreen(d->c);
    resize(QSize(1272, 760).boundedTo(room));
}

void frmCaddy::applyBackground()
{
    QColor chosen;
    if (const auto number = colourNumber(GetIniValue(iniSettings, u"ScreenBackColour"_s, {})))
        chosen = basic::colourOfNumber(*number);
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
    PutIniValue(iniSettings, u"SetupPicture"_s, basic::keptPath(*file));
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
    PutIniValue(iniSettings, u"ScreenBackColour"_s, QString::number(basic::numberOfColour(QColor::fromRgb(*chosen))));
    applyBackground();
}

void frmCaddy::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (event->spontaneous())
        return;
    d->sections.SizeGrids();
    if (const GridPane *first = d->c.firstShown())
        first->grid->setFocus();
    emit Activated();
}

void frmCaddy::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !d)
        return;
    applyIconTheme();
    applyCaddyIcons(d->c);
    d->c.rail->applyIcons();
    d->painting.applyPalette();
    d->painting.markActive(d->edit.activeGrid());
    d->periods.showChosen();
    d->search.showPlaceholder();
    applyBackground();
}

// Not every display hands the keyboard back when a box over the screen closes.
bool frmCaddy::event(QEvent *event)
{
    if (event->type() == QEvent::WindowUnblocked) {
        // The screen that was over this one has gone: its rows are here before anything goes on.
        Changes::instance().deliver();
        basic::Trap([this] { d->sections.readChanged(); });
        QTimer::singleShot(0, this, [this] {
            if (isVisible() && !QApplication::activeWindow() && !QApplication::activeModalWidget())
                activateWindow();
        });
    }
    return QMainWindow::event(event);
}

void frmCaddy::cmdCat_Click(int index)
{
    if (writeRows()) {
        d->sections.cmdCat_Click(index);
        return;
    }
    for (const SectionDesign *section : categoryButtons())
        d->c.rail->button(section->button->index)->setChecked(section->name == state().selection.gLastCategory);
}

void frmCaddy::panEditS_Click()
{
    if (state().selection.gSection == u"H"_s)
        d->cells.ClearShoppingChecks();
    else
        d->edit.ShowEdit();
}

// What was typed into a grid and cannot be stored keeps the screen open.
void frmCaddy::closeEvent(QCloseEvent *event)
{
    bool written = true;
    if (!m_unloaded)
        basic::Trap([&] { written = writeRows(); });
    event->setAccepted(written);
    if (written)
        Unload();
}

void frmCaddy::Timer2_Timer()
{
    d->alerts.showTime();
    if (!d->sections.retry())
        return;
    d->sections.readChanged();
    d->periods.followDay();
    d->alerts.Timer2_Timer();
}

// Each screen over this one closes as by its own key, the topmost first; one that does not let itself be closed keeps all
// open. A screen's message loop ends only after this returns, so the next one is left to the loop below.
void frmCaddy::endSession()
{
    QWidget *top = QApplication::activeModalWidget();
    if (!top) {
        close();
        return;
    }
    if (!top->close()) {
        if (auto *box = qobject_cast<QMessageBox *>(top))
            box->reject();
    }
    if (!top->isVisible())
        QTimer::singleShot(0, this, &frmCaddy::endSession);
}

// The session may yet go on: everything typed is stored, nothing is closed.
void frmCaddy::saveTyped()
{
    basic::Trap([this] { writeRows(); });
    for (QWidget *window : QApplication::topLevelWidgets())
        for (controls::DataControl *rows : window->findChildren<controls::DataControl *>())
            basic::Trap([rows] { rows->UpdateRecord(); });
}

void frmCaddy::Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    unloadScreens({u"frmImportEvents"_s, u"frmCalculator"_s, u"frmCalendar"_s});
    basic::Trap([this] {
        const desktop::ProfileBatch oneWrite;
        d->sections.UpdateRowHeight();
        SaveGridSettings(d->sizes, static_cast<std::int16_t>(d->c.subjects().grid->rowHeightTwips()));
    });
    if (state().settings.gPopUpCloser)
        startProgram(u"PopUpCloser.exe"_s);
    d->c.Timer2->stop();
    d->c.TimerMessages->stop();
    for (const GridPane &pane : d->c.panes)
        pane.data->Close();
    state().gMainDb = {};
    hide();
    emit Unloaded();
    QApplication::quit();
}

}
