#pragma once

#include "platform/controls/grid.h"
#include "session/state.h"

#include <array>
#include <map>

class QAbstractButton;
class QAction;
class QLabel;
class QLineEdit;
class QMainWindow;
class QMenu;
class QSplitter;
class QStatusBar;
class QTimer;
class QToolBar;

namespace vorel {

class CaddyGround;
class DetailPane;
class InfoPanel;
class Rail;

// One of the three reminder grids with all that goes with it.
struct ReminderGrid {
    QString code;                       // "A", "B", "E"
    QString sectionName;                // what DisplayCategory takes for this grid alone
    QString table;
    controls::Grid *grid = nullptr;
    controls::DataControl *data = nullptr;
    QAbstractButton *panEdit = nullptr;
    QString ShownPeriod::*sql = nullptr;      // the period's query
    QString newRowSource;               // what the record screen reads when it starts on a new row
    int textColumn = 4;                 // the column that names the row
    bool waits = false;                 // its query was set while it was hidden: read when it is shown
};

// Everything on the main screen, by the names that the rest of the program knows. Owned by the window.
struct CaddyControls {
    std::array<ReminderGrid, 3> reminders;
    controls::Grid *SUBJECTGRID = nullptr;
    controls::DataControl *dtaSubjects = nullptr;

    Rail *rail = nullptr;
    QToolBar *Toolbar1 = nullptr;
    std::map<QString, QAction *> toolbarKeys;
    std::vector<QAction *> periodKeys;              // the places of the period keys on the toolbar
    QWidget *panSearch = nullptr;
    QLineEdit *txtSearch = nullptr;
    QAbstractButton *cmdNext = nullptr;

    CaddyGround *page = nullptr;        // all that lies between the rail and the strip
    QLabel *panPeriod = nullptr;
    QAbstractButton *panNew = nullptr, *panEditS = nullptr;
    QSplitter *SSPanel1 = nullptr;
    DetailPane *picDetails = nullptr;
    std::map<QString, QAbstractButton *> tools;     // cmdCalendar, cmdInfo, ... by name

    QStatusBar *StatusBar1 = nullptr;
    InfoPanel *panInfo = nullptr;
    QLabel *lblUsername = nullptr, *lblDate = nullptr, *lblTime = nullptr;
    QAbstractButton *panAppoint = nullptr, *panMessages = nullptr, *panBackup = nullptr;

    std::map<QString, QMenu *> menus;
    std::map<QString, QAction *> actions;           // menu entries, the menus' own entries included
    QTimer *Timer2 = nullptr, *TimerMessages = nullptr;

    ReminderGrid &appointments() { return reminders[0]; }
    ReminderGrid &bills() { return reminders[1]; }
    ReminderGrid &events() { return reminders[2]; }
    // The reminder grid of a code, nullptr for any other section.
    ReminderGrid *reminder(const QString &code)
    {
        for (ReminderGrid &one : reminders)
            if (one.code == code)
                return &one;
        return nullptr;
    }
    // The first of the reminder grids that is on show.
    ReminderGrid *firstShown();
    void enableAction(const QString &name, bool enable);
    void showAction(const QString &name, bool show);
};

inline constexpr int idColumn = 0, dateColumn = 1, dayColumn = 2;

}
