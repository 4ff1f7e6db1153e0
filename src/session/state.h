#pragma once

#include "platform/basic/value.h"
#include "platform/dao/dao.h"
#include "session/reminderquery.h"

#include <QString>
#include <array>
#include <map>

// The values that live for the whole run: set at start-up in a fixed order, read everywhere.
namespace vorel {

enum class DataFile {       // in the order in which their paths are read
    Main, Contacts, Garden, Movies, Music, Books, Notes, HowTo, Recipe, Sports, Accounts, DataP, DataJ, Count
};

// How far the main file is usable, determined once at start-up.
enum class MainFileAccess { None, Read, Full };

// What the user and the machine have set; read at the start, changed by the setup screen.
struct Settings {
    QString gDateShort;             // "mm/dd/yyyy" or "dd/mm/yyyy"
    QString gDateLong;
    QString gDateTimeLong;
    QString gDateDisplay;           // "" on a fresh configuration: dates show in the general format
    QString gNumberFormat = QStringLiteral("######0.00");
    QString gFormColour;            // decimal text of the colour number (0xBBGGRR)
    quint32 lblBackcolor = 0xFFFFFF;        // the hidden label's colour, see GetIniColour
    QString gUserName = QStringLiteral("User");
    QString gEmailName = QStringLiteral("User");
    std::int16_t gWeekStartDay = 1;
    std::int16_t gWarnBefore = 3, gWarnAfter = 1;       // minutes
    std::int16_t gDeleteAfterDays = 0, gBackupAfterDays = 14;
    bool gPopUpCloser = true, gAutoEmail = false, gDisplayAds = true, gTips = true;
    bool gAppointmentWarning = true, gNetwork = true;
    QString gSoundFile;
    QString gBirthdayFormat;
    std::map<QString, bool> gFeature;       // the "Features" switches by key
};

// The days on show in the reminder grids.
struct ShownPeriod {
    basic::DateTime gToday;
    std::int16_t gTodayYear = 0, gTodayMonth = 0, gTodayDay = 0;
    QString gPeriodStart, gPeriodEnd;       // gDateShort form; the year periods and "all" see periods.h
    // The texts of the three queries below, as the grids run them: setQueries keeps both together.
    QString gSqlAppointments, gSqlBills, gSqlEvents;
    ReminderQuery appointments, bills, events;

    void setQueries(ReminderQuery ofAppointments, ReminderQuery ofBills, ReminderQuery ofEvents);
};

// What the user is working on.
struct Selection {
    QString gSection;
    QString gLastCategory;
    bool gAdminOk = false;
    std::map<QString, QString> gSqlSection; // by section code
};

struct State {
    QString gIniFile;
    QString gOsName;
    QString gProductTitle;
    bool gPrinterReady = false;
    std::array<QString, static_cast<std::size_t>(DataFile::Count)> paths;
    dao::Database gMainDb;
    MainFileAccess mainFile = MainFileAccess::Full;
    Settings settings;
    ShownPeriod period;
    Selection selection;

    QString &path(DataFile file) { return paths[static_cast<std::size_t>(file)]; }
    const QString &path(DataFile file) const { return paths[static_cast<std::size_t>(file)]; }
};

// The one state of the running program. A test replaces it whole: state() = State{}.
State &state();

// Sets gDateShort, gDateLong and gDateTimeLong from the regional order.
void DetectDateOrder();
// A date in the form that screens show (gDateDisplay; general format while that is empty).
QString displayDate(const basic::Value &date);
// A date in the form that gPeriodStart and dbText fields keep (gDateShort).
QString shortDate(const basic::Value &date);
// A date between number signs in a query: mm/dd/yyyy whatever the regional settings, without the signs.
QString sqlDate(basic::DateTime date);

}
