#pragma once

#include "session/state.h"

#include <functional>

// The work of the splash and of the main screen's load, without their windows.
namespace vorel {

// The splash's load up to the paths: gIniFile, gDateDisplay, gOsName, gPopUpCloser, gFormColour, gProductTitle, paths.
// formColour: the splash's back colour number. Ends with loadDataPaths.
void loadProgramState(quint32 formColour);
bool ShowSplashScreen();        // the key, default True
// What GetPrinter asks: the program installs one that knows the print library. Empty: no printer.
void setPrinterProbe(std::function<bool()> probe);
bool GetPrinter();              // a usable printer exists; a failing probe counts as none
// The passes of LoadVorel before the main screen shows: RollForwardDates, PurgeExpiredRows, each under the trap.
void runStartupPasses();

// The settings that the main load reads, in its order (steps 1, 2, 7, 10 to 13 of it call these).
void loadMainSettings();        // gToday, WeekStartDay ... EmailName
void openMainDatabase();        // gMainDb and the Setup row
void loadUserName();
void setTodayParts();           // gTodayDay, gTodayMonth, gTodayYear from today (after DisplayDates)
QString loadStartCategory();    // the section to open ("All" when unset); reads Tips and DisplayAds
void loadWarningSettings();     // AppointmentWarning, Network
void loadSoundFile();
void loadFeatures();            // the "Features" switches into gFeature

}
