#pragma once

#include <QString>
#include <vector>

// The main screen's menus and toolbar as tables: what is where, and what it calls.
namespace vorel {

enum class MenuCall {
    Menu,           // a menu with entries below it
    Category,       // argument: the name for DisplayCategory
    Period,         // argument: the objectName itself, a row of periodTable()
    Print,          // argument: the code of the list report
    Action          // argument: a key that the main screen answers
};

struct MenuEntry {
    QString objectName;
    QString caption;        // with its mnemonic; of a period: until DisplayDates has written the dates
    QString parent;         // objectName of the menu that holds it, "" for the menu bar
    MenuCall call = MenuCall::Action;
    QString argument;
};
// Menus before their entries, entries in the order shown.
const std::vector<MenuEntry> &menuTable();
const MenuEntry *menuEntry(const QString &objectName);

struct ToolbarButton {
    int index;              // from 1; a gap between two indexes is a separator
    QString key;
    QString toolTip;        // of a period: until DisplayDates has written the dates
    QString icon;
    QString menu;           // the menu entry that it runs, "" for the print key
};
const std::vector<ToolbarButton> &toolbarTable();
inline constexpr int toolbarPrintIndex = 19;
// The list report of the section on show, for the print key: its code, "" where the section has none.
QString printCodeFor(const QString &sectionCode);

}
