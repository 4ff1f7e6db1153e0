#pragma once

#include "session/sectiondesign.h"

// The sections as the edges of the program name them: buttons of the rail, switches of the configuration file, menus.
namespace vorel {

// The sections with a button on the rail, by its index: cmdCat(0) ...
const std::vector<const SectionDesign *> &categoryButtons();
// The print entries that the section enables: its own, or those of the reminder grids that it shows.
QStringList printMenusOf(const SectionDesign &section);

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
