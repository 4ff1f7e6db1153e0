#include "frame/startup.h"

#include "frame/ini.h"
#include "frame/sections.h"
#include "frame/shared.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "reminders/recurrence.h"

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

namespace {

std::function<bool()> &printerProbe()
{
    static std::function<bool()> probe;
    return probe;
}

// A file of the program folder by its described name, "\NAME".
QString programFile(const QString &name)
{
    return basic::realPath(basic::programFolder() + u'/' + name.mid(1));
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

const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> &dataFiles()
{
    static const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> files{{
        {DataFile::Main, u"DataPath"_s, u"\\VOREL.MDB"_s, false},
        {DataFile::Contacts, u"ContactsDBPath"_s, u"\\CONTACTS.MDB"_s, false},
        {DataFile::Garden, u"GardenDBPath"_s, u"\\GARDEN.MDB"_s, false},
        {DataFile::Movies, u"MovieDBPath"_s, u"\\MOVIES.MDB"_s, false},
        {DataFile::Music, u"MusicDBPath"_s, u"\\MUSIC.MDB"_s, false},
        {DataFile::Books, u"BooksDBPath"_s, u"\\BOOKS.MDB"_s, false},
        {DataFile::Notes, u"NotesDBPath"_s, u"\\NOTES.MDB"_s, false},
        {DataFile::HowTo, u"HowToDBPath"_s, u"\\HOWTO.MDB"_s, false},
        {DataFile::Recipe, u"RecipeDBPath"_s, u"\\RECIPE.MDB"_s, false},
        {DataFile::Sports, u"SportsDBPath"_s, u"\\SPORTS.MDB"_s, false},
        {DataFile::Accounts, u"AccountsDBPath"_s, u"\\ACCOUNTS.MDB"_s, false},
        {DataFile::DataP, u"DataPDBPath"_s, u"\\DATAP.MDB"_s, true},
        {DataFile::DataJ, u"DataJDBPath"_s, u"\\DATAJ.MDB"_s, true},
    }};
    return files;
}

QString protectedConnect()
{
    return u";pwd=KARVELOT"_s;
}

void DetectDateOrder()
{
    int day = 0;
    basic::IgnoreErrors([&] { day = basic::DatePart(u"d", basic::CDate(u"2/7/2000"_s)); });
    const bool dayFirst = day == 2;     // any other answer is month first
    State &s = state();
    s.gDateShort = dayFirst ? u"dd/mm/yyyy"_s : u"mm/dd/yyyy"_s;
    s.gDateLong = dayFirst ? u"dd mmm yyyy"_s : u"mmm dd yyyy"_s;
    s.gDateTimeLong = s.gDateLong + u" hh:mm am/pm"_s;
}

void LoadProgramState(quint32 formColour)
{
    State &s = state();
    s.gIniFile = programFile(u"\\vorelreminder.ini"_s);
    // gDateShort is not detected yet: on a fresh configuration dates show in the general format until the setup
    // screen has saved a choice.
    s.gDateDisplay = settingOr(u"DateDisplay"_s, s.gDateShort);
    s.gOsName = GetOsName();
    s.gPopUpCloser = true;
    s.gFormColour = QString::number(formColour);
    s.gProductTitle = u"Vorel Reminder %1"_s.arg(VOREL_VERSION_MAJOR);
    LoadDataPaths();
}

void LoadDataPaths()
{
    for (const DataFileEntry &entry : dataFiles()) {
        QString path = basic::Trim(setting(entry.key, {}));
        if (path.isEmpty() || basic::Dir(path).isEmpty()) {
            path = programFile(entry.defaultName);
            PutIniValue(iniSettings, entry.key, path);
        }
        state().path(entry.file) = basic::realPath(path);
    }
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
    basic::IgnoreErrors([&] { available = printerProbe() && printerProbe()(); });
    return available;
}

void RunStartupPasses()
{
    if (state().mainFile != MainFileAccess::Full)
        return;
    basic::Trap([] { RollForwardDates(); });
    basic::Trap([] { PurgeExpiredRows(); });
}

void LoadMainSettings()
{
    State &s = state();
    s.gToday = basic::Date();
    s.gWeekStartDay = iniInteger(setting(u"WeekStartDay"_s, u"0"_s));
    if (s.gWeekStartDay == 0)
        s.gWeekStartDay = 1;
    s.gNumberFormat = settingOr(u"NumberFormat"_s, u"######0.00"_s);
    s.gWarnBefore = iniInteger(setting(u"AWarningBefore"_s, u"3"_s));
    s.gWarnAfter = iniInteger(setting(u"AWarningAfter"_s, u"1"_s));
    s.gPopUpCloser = booleanSetting(u"PopUpCloser"_s, true);
    s.gBirthdayFormat = setting(u"BirthdayFormat"_s, u"Lastname, Firstname/s"_s);
    s.gAutoEmail = booleanSetting(u"AutoEmail"_s, false);
    s.gEmailName = setting(u"EmailName"_s, u"User"_s);
}

void OpenMainDatabase()
{
    State &s = state();
    if (s.mainFile == MainFileAccess::None)
        return;
    s.gMainDb = dao::DBEngine::OpenDatabase(s.path(DataFile::Main));
    dao::Recordset setup = s.gMainDb.OpenRecordset(u"SELECT * FROM [Setup];"_s, dao::dbOpenSnapshot);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    s.gDeleteAfterDays = 0;
    s.gBackupAfterDays = 0;
    if (setup.RecordCount() > 0) {
        s.gDeleteAfterDays = dayCount(setup, u"DeleteAfterDays");
        s.gBackupAfterDays = dayCount(setup, u"BackupAfterDays");
    }
    setup.Close();
    if (s.gBackupAfterDays == 0)
        s.gBackupAfterDays = 14;
}

void LoadUserName()
{
    state().gUserName = settingOr(u"UserName"_s, u"User"_s);
}

void SetTodayParts()
{
    State &s = state();
    const QDate today = basic::Date().date();
    s.gTodayDay = static_cast<std::int16_t>(today.day());
    s.gTodayMonth = static_cast<std::int16_t>(today.month());
    s.gTodayYear = static_cast<std::int16_t>(today.year());
}

QString LoadStartCategory()
{
    const QString category = settingOr(u"Category"_s, u"All"_s);
    state().gTips = booleanSetting(u"Tips"_s, true);
    state().gDisplayAds = booleanSetting(u"DisplayAds"_s, true);
    return category;
}

void LoadWarningSettings()
{
    state().gAppointmentWarning = booleanSetting(u"AppointmentWarning"_s, true);
    state().gNetwork = booleanSetting(u"Network"_s, true);
}

void LoadSoundFile()
{
    // A chosen file that has gone means silence, not the default sound.
    const QString chosen = setting(u"SoundFile"_s, {});
    const QString path = chosen.isEmpty() ? desktop::findResource(u"\\WISH.wav"_s) : chosen;
    const bool exists = chosen.isEmpty() ? !path.isEmpty() : !basic::Dir(path).isEmpty();
    state().gSoundFile = exists ? path : QString();
}

void LoadFeatures()
{
    for (const FeatureEntry &feature : featureTable()) {
        double number = 0;
        basic::IgnoreErrors([&] { number = basic::Val(GetIniValue(iniFeatures, feature.key, u"1"_s)); });
        state().gFeature[feature.key] = number == 1;
    }
}

}
