#pragma once

#include "platform/controls/grid.h"
#include "session/state.h"

#include <array>
#include <map>
#include <span>

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
class QToolButton;

namespace vorel {

class CaddyGround;
class DetailPane;
class InfoPanel;
class MonthBox;
class Rail;

// One of the main screen's four grids with all that belongs to it: three show the reminders of a period, the fourth
// whatever other section is on show.
struct GridPane {
    QString code;                       // "A", "B", "E"; the general grid has that of the section on show
    QString sectionName;                // what DisplayCategory takes for this grid alone
    QString layoutWord;                 // of its keys in the layout
    controls::Grid *grid = nullptr;
    controls::DataControl *data = nullptr;
    QAbstractButton *panEdit = nullptr;
    QString ShownPeriod::*sql = nullptr;      // the period's query; nullptr: the general grid
    QString newRowSource;               // what the record screen reads when it starts on a new row
    int textColumn = 4;                 // the column that names the row
    bool waits = false;                 // its rows are out of date: read when it is shown and nobody is typing
    bool isOwnChange = false;           // the change that is being reported was made in the grid itself
    qint32 lastId = 0;                  // of the record last worked on

    bool isReminder() const { return sql != nullptr; }
    QString sectionCode() const { return isReminder() ? code : state().selection.gSection; }
    bool isShown() const { return !grid->isHidden(); }
};

// Everything on the main screen, by the names that the rest of the program knows. Owned by the window.
struct CaddyControls {
    explicit CaddyControls(QMainWindow *window);        // puts them in their places; nothing is connected yet

    std::array<GridPane, 4> panes;      // appointments, bills, events, the general grid

    Rail *rail = nullptr;
    QToolBar *Toolbar1 = nullptr;
    std::map<QString, QAction *> toolbarKeys;
    std::vector<QAction *> periodKeys;              // the places of the period keys on the toolbar
    struct PeriodGroup {
        QWidget *box = nullptr;
        QToolButton *here = nullptr;                // names the chosen period of the group
        std::array<QString, 3> keys;                // back, the period itself, forward
        QString caption;
    };
    std::vector<PeriodGroup> periodGroups;
    QWidget *panSearch = nullptr;
    QLineEdit *txtSearch = nullptr;
    QLabel *lblNotFound = nullptr;
    QAbstractButton *cmdNext = nullptr;

    CaddyGround *page = nullptr;        // all that lies between the rail and the strip
    QLabel *panPeriod = nullptr;
    QLabel *lblNotice = nullptr;        // shown over the grids while the rows cannot be read
    QAbstractButton *panNew = nullptr;
    QSplitter *SSPanel1 = nullptr;
    DetailPane *picDetails = nullptr;
    MonthBox *picMonth = nullptr;
    std::map<QString, QAbstractButton *> tools;     // cmdCalendar, cmdInfo, ... by name

    QStatusBar *StatusBar1 = nullptr;
    InfoPanel *panInfo = nullptr;
    QLabel *lblUsername = nullptr, *lblDate = nullptr, *lblTime = nullptr;
    QAbstractButton *panAppoint = nullptr, *panMessages = nullptr, *panBackup = nullptr;

    std::map<QString, QMenu *> menus;
    std::map<QString, QAction *> actions;           // menu entries, the menus' own entries included
    QTimer *Timer2 = nullptr, *TimerMessages = nullptr;

    GridPane &appointments() { return panes[0]; }
    GridPane &bills() { return panes[1]; }
    GridPane &events() { return panes[2]; }
    GridPane &subjects() { return panes[3]; }
    const GridPane &subjects() const { return panes[3]; }
    std::span<GridPane> reminders() { return std::span(panes).first(3); }
    // The reminder grid of a section's code, nullptr for any other section.
    GridPane *reminder(const QString &code);
    GridPane &paneOf(const controls::Grid *grid);
    // The first of the reminder grids that is on show.
    GridPane *firstShown();
    bool isTyping() const;              // a cell is open, or a row is changed and not written
    void enableAction(const QString &name, bool enable);
    void showAction(const QString &name, bool show);
};

inline constexpr int idColumn = 0, dateColumn = 1, dayColumn = 2;

}
