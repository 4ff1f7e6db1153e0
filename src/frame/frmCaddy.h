#pragma once

#include "platform/basic/value.h"
#include "session/mainscreen.h"

#include <QMainWindow>
#include <memory>

namespace vorel {

namespace controls {
class Grid;
}
struct CaddyControls;
struct CalendarCalls;

// The main screen: shows one section at a time, everything else opens from here and comes back here. Its rooms are
// frmCaddy*.h: sections, periods, painting, search, menus, editing, the strip.
class frmCaddy : public QMainWindow, public MainScreen {
    Q_OBJECT
public:
    explicit frmCaddy(QWidget *parent = nullptr);
    ~frmCaddy() override;

    void Load();                        // reads the settings, opens the main file, shows the start section; stays hidden
    CaddyControls &controls();

    void DisplayCategory(const QString &name) override;
    void GetData() override;
    void RefreshData() override;
    void DisplayCaption() override;
    void DisplayDates() override;
    void DisableButtons(bool enable) override;
    void CheckForMessages() override;
    void CheckForBackupFiles();
    void CheckAppointments();
    void ScrollMessages();
    void UpdateRowHeight() override;
    void holdTimer(bool hold) override;
    bool writeRows() override;
    // The desktop ends the program: what is being typed is stored as on closing, then everything closes.
    void endSession();
    void saveTyped();
    // Sorts the section on show, by a column that is asked for where none was clicked.
    void SortData();
    // The calendar over this screen, modal: CalendarStart.
    void startCalendar();

signals:
    void Activated();                   // the screen came up for the first time
    void Unloaded();                    // everything is saved; the program ends

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectGrids();
    void connectButtons();
    void answerMenus();
    void printFridgeCopy();
    void showInfoCard();
    CalendarCalls calendarCalls();
    void showDay(basic::DateTime day);
    void loadSettings();
    void openData();
    void showStart();
    void runLoadPasses();
    void cmdCat_Click(int index);
    void panEditS_Click();
    void fitDesktop();
    void applyBackground();
    void cmdColor_Click();
    void cmdBackground_Click();
    QString rowTip(const controls::Grid *grid, const QString &code, qsizetype row) const;
    void Timer2_Timer();
    void Unload();

    struct Rooms;
    std::unique_ptr<Rooms> d;
    bool m_unloaded = false;
    bool m_held = false;                // Timer2 waits, and went before
};

}
