#pragma once

#include "session/state.h"

#include <QStringList>
#include <vector>

// The catalogue of sections: what DisplayCategory, GetData, the rail, the menus and the search read.
namespace vorel {

enum class SectionKind { Reminder, Grid, Action };     // Action: Calculator, Calendar, Expenses, Income, Help

// A field of a section's query as a grid column.
struct SectionColumn {
    enum class Role { Hidden, Shown, Button };
    QString field;              // as the query lists it ("' '" for the button column)
    QString title;
    Role role = Role::Shown;
    int widthColumn = 0;        // number in the width keys, from 1; 0 = no width kept
};

struct Section {
    QString name;               // what DisplayCategory takes
    QString code;               // gSection
    SectionKind kind = SectionKind::Grid;
    DataFile file = DataFile::Main;
    QString query;
    QString gridTitle;
    QStringList columnTitles;   // in field order; "" hides the column or makes it the button column
    QString printMenu;          // the print entry that it enables, "" if none
    QString styleSet;           // of SUBJECTGRID
    QString layoutWord;         // of its width keys ("BOOKS")
    bool grids[3] = {false, false, false};      // Appointments, Bills, Events visible (Reminder only)
    std::vector<SectionColumn> columns = {};    // one per field of the query, in order (Grid only)
};
const std::vector<Section> &sectionTable();
const Section *sectionByName(const QString &name);     // exact, whatever the case
const Section *sectionByCode(const QString &code);
// The print entries that the section enables: its own, or those of the reminder grids that it shows.
QStringList printMenusOf(const Section &section);

struct CategoryButton {
    int index;                  // cmdCat(index)
    QString tag;                // the section's name
    QString caption;
    QString toolTip;
    QString icon;               // theme or built-in name
    QString feature;            // key in "Features", "" if none
};
const std::vector<CategoryButton> &categoryButtons();

// A "Features" switch and the controls that follow it. "All" (cmdCat(3)) and the period menus follow the three reminder
// switches together, see remindersSwitchedOn.
struct FeatureEntry {
    QString key;
    int category;               // cmdCat index, -1 if none
    QStringList controls;       // objectNames
};
const std::vector<FeatureEntry> &featureTable();
bool remindersSwitchedOn();     // any of Appointments, Bills, Events
QStringList reminderControls(); // what goes with them: cmdCat(3), mnuDisplayPeriod, mnuDisplay, panPeriod

QString SectionName();          // back from gSection: a name for some codes, the code itself for the others

}
