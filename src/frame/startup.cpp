#include "frame/startup.h"

#include "media/pictures.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "reminders/recurrence.h"
#include "session/datafiles.h"
#include "session/ini.h"
#include "session/sections.h"
#include "session/shared.h"

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

namespace {

std::function<bool()> &printerProbe()
{
    static std::function<bool()> probe;
    return probe;
}

QString setting(const QString &key, const QString &defaultText)
{
    return GetIniValue(iniSettings, key, defaultText);
}

bool booleanSetting(const QString &key, bool defaultValue)
{
    return iniBoolean(setting(key, defaultValue ? u"True"_s : u"False"_s));
}

QString settingOr(const QString &key, const QString &whenEmpty)
{
    const QString text = setting(key, {});
    return text.isEmpty() ? whenEmpty : text;
}

// A field of the Setup row as a day count: Null and unreadable text count as 0.
std::int16_t dayCount(const dao::Recordset &setup, QStringView field)
{
    return iniInteger(setup.Get(field).text());
}

}

void loadProgramState(quint32 formColour)
{
    State &s = state();
    s.gIniFile = programFile(u"\\vorelreminder.ini"_s);
    // gDateShort is not detected yet: on a fresh configuration dates show in the general format until the setup
    // screen has saved a choice.
    s.settings.gDateDisplay = settingOr(u"DateDisplay"_s, s.settings.gDateShort);
    s.gOsName = GetOsName();
    s.settings.gPopUpCloser = true;
    s.settings.gFormColour = QString::number(formColour);
    s.gProductTitle = u"Vorel Reminder %1"_s.arg(VOREL_VERSION_MAJOR);
    loadDataPaths();
}

bool ShowSplashScreen()
{
    return booleanSetting(u"ShowSplashScreen"_s, true);
}

void setPrinterProbe(std::function<bool()> probe)
{
    printerProbe() = std::move(probe);
}

bool GetPrinter()
{
    bool available = false;
    // Whatever the print system answers, the program starts.
    basic::IgnoreErrors([&] { available = printerProbe() && printerProbe()(); });
    return available;
}

void runStartupPasses()
{
    if (state().mainFile != MainFileAccess::Full)
        return;
    basic::Trap([] { RollForwardDates(); });
    basic::Trap([] { PurgeExpiredRows(); });
}

void loadMainSettings()
{
    State &s = state();
    s.period.gToday = basic::Date();
    s.settings.gWeekStartDay = iniInteger(setting(u"WeekStartDay"_s, u"0"_s));
    if (s.settings.gWeekStartDay == 0)
        s.settings.gWeekStartDay = 1;
    s.settings.gNumberFormat = settingOr(u"NumberFormat"_s, u"######0.00"_s);
    s.settings.gWarnBefore = iniInteger(setting(u"AWarningBefore"_s, u"3"_s));
    s.settings.gWarnAfter = iniInteger(setting(u"AWarningAfter"_s, u"1"_s));
    s.settings.gPopUpCloser = booleanSetting(u"PopUpCloser"_s, true);
    s.settings.gBirthdayFormat = setting(u"BirthdayFormat"_s, u"Lastname, Firstname/s"_s);
    s.settings.gAutoEmail = booleanSetting(u"AutoEmail"_s, false);
    s.settings.gEmailName = setting(u"EmailName"_s, u"User"_s);
}

void openMainDatabase()
{
    State &s = state();
    if (s.mainFile == MainFileAccess::None)
        return;
    s.gMainDb = openDataFile(DataFile::Main);
    dao::Recordset setup = s.gMainDb.OpenRecordset(u"SELECT * FROM [Setup];"_s, dao::dbOpenSnapshot);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    s.settings.gDeleteAfterDays = 0;
    s.settings.gBackupAfterDays = 0;
    if (setup.RecordCount() > 0) {
        s.settings.gDeleteAfterDays = dayCount(setup, u"DeleteAfterDays");
        s.settings.gBackupAfterDays = dayCount(setup, u"BackupAfterDays");
    }
    setup.Close();
    if (s.settings.gBackupAfterDays == 0)
        s.settings.gBackupAfterDays = 14;
}

void loadUserName()
{
    state().settings.gUserName = settingOr(u"UserName"_s, u"User"_s);
}

void setTodayParts()
{
    State &s = state();
    const QDate today = basic::Date().date();
    s.period.gTodayDay = static_cast<std::int16_t>(today.day());
    s.period.gTodayMonth = static_cast<std::int16_t>(today.month());
    s.period.gTodayYear = static_cast<std::int16_t>(today.year());
}

QString loadStartCategory()
{
    const QString category = settingOr(u"Category"_s, u"All"_s);
    state().settings.gTips = booleanSetting(u"Tips"_s, true);
    state().settings.gDisplayAds = booleanSetting(u"DisplayAds"_s, true);
    return category;
}

void loadWarningSettings()
{
    state().settings.gAppointmentWarning = booleanSetting(u"AppointmentWarning"_s, true);
    state().settings.gNetwork = booleanSetting(u"Network"_s, true);
}

void loadSoundFile()
{
    // A chosen file that no longer exists means silence, not the default sound.
    const QString chosen = setting(u"SoundFile"_s, {});
    // Found as a picture is: the folder may have moved since.
    state().settings.gSoundFile = chosen.isEmpty() ? desktop::findResource(u"\\WISH.wav"_s) : pictureFile(chosen);
}

void loadFeatures()
{
    for (const FeatureEntry &feature : featureTable()) {
        state().settings.gFeature[feature.key] = basic::valOr(GetIniValue(iniFeatures, feature.key, u"1"_s), 0) == 1;
    }
}

}
