#pragma once

#include "frame/state.h"

#include <functional>

// The work of the splash and of the main screen's load, without their windows.
namespace vorel {

struct DataFileEntry {
    DataFile file;
    QString key;                // in "Settings"
    QString defaultName;        // "\VOREL.MDB"
    bool isProtected;           // opened with the fixed password
};
const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> &dataFiles();
QString protectedConnect();     // ";pwd=" and the fixed password

void DetectDateOrder();
// The splash's load up to the paths: gIniFile, gDateDisplay, gOsName, gPopUpCloser, gFormColour, gProductTitle, paths.
// formColour: the splash's back colour number. Ends with LoadDataPaths.
void LoadProgramState(quint32 formColour);
// For each data file: an empty or vanished path becomes program folder + default name, written back at once.
void LoadDataPaths();
bool ShowSplashScreen();        // the key, default True
// What GetPrinter asks: the program installs one that knows the print library. Empty: no printer.
void setPrinterProbe(std::function<bool()> probe);
bool GetPrinter();              // a usable printer exists; a failing probe counts as none
// The passes of LoadVorel before the main screen shows: RollForwardDates, PurgeExpiredRows, each under the trap.
void RunStartupPasses();

// The settings that the main load reads, in its order (steps 1, 2, 7, 10 to 13 of it call these).
void LoadMainSettings();        // gToday, WeekStartDay ... EmailName
void OpenMainDatabase();        // gMainDb and the Setup row
void LoadUserName();
void SetTodayParts();           // gTodayDay, gTodayMonth, gTodayYear from today (after DisplayDates)
QString LoadStartCategory();    // the section to open ("All" when unset); reads Tips and DisplayAds
void LoadWarningSettings();     // AppointmentWarning, Network
void LoadSoundFile();
void LoadFeatures();            // the "Features" switches into gFeature

}
