#include "frame/framefixture.h"
#include "session/ini.h"
#include "frame/startup.h"
#include "support/scriptedprompts.h"
#include "session/datafiles.h"

using namespace Qt::StringLiterals;

namespace vorel {

class StartupTest : public test::FrameTest {
protected:
    // As the process finds it: nothing detected, nothing read.
    void start(const QString &locale = u"en_AU"_s)
    {
        basic::setRegional(basic::regionalFor(locale));
        state() = State{};
        loadProgramState(0xC0FFC0);
    }
    void writeIni(const QByteArray &settings) { folder.write(u"vorelreminder.ini"_s, "[Settings]\n" + settings); }
    QStringList iniLines()
    {
        return QString::fromUtf8(folder.read(u"vorelreminder.ini"_s)).split(QRegularExpression(u"[\r\n]+"_s), Qt::SkipEmptyParts);
    }
};

TEST_F(StartupTest, dateOrderComesFromTheRegionalSettings)
{
    const struct { QString locale, shortForm, longForm, withTime; } cases[] = {
        {u"en_US"_s, u"mm/dd/yyyy"_s, u"mmm dd yyyy"_s, u"mmm dd yyyy hh:mm am/pm"_s},
        {u"en_AU"_s, u"dd/mm/yyyy"_s, u"dd mmm yyyy"_s, u"dd mmm yyyy hh:mm am/pm"_s},
        {u"en_GB"_s, u"dd/mm/yyyy"_s, u"dd mmm yyyy"_s, u"dd mmm yyyy hh:mm am/pm"_s},
        {u"de_DE"_s, u"dd/mm/yyyy"_s, u"dd mmm yyyy"_s, u"dd mmm yyyy hh:mm am/pm"_s},
        {u"C"_s, u"mm/dd/yyyy"_s, u"mmm dd yyyy"_s, u"mmm dd yyyy hh:mm am/pm"_s},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.locale.toStdString());
        basic::setRegional(basic::regionalFor(c.locale));
        DetectDateOrder();
        EXPECT_EQ(state().settings.gDateShort, c.shortForm);
        EXPECT_EQ(state().settings.gDateLong, c.longForm);
        EXPECT_EQ(state().settings.gDateTimeLong, c.withTime);
    }
}

TEST_F(StartupTest, freshFolderGetsTheThirteenPathsAndNothingElse)
{
    const QStringList keys{u"DataPath"_s,    u"ContactsDBPath"_s, u"GardenDBPath"_s, u"MovieDBPath"_s,  u"MusicDBPath"_s,
                           u"BooksDBPath"_s, u"NotesDBPath"_s,    u"HowToDBPath"_s,  u"RecipeDBPath"_s, u"SportsDBPath"_s,
                           u"AccountsDBPath"_s, u"DataPDBPath"_s, u"DataJDBPath"_s};
    const QStringList files{u"VOREL.MDB"_s, u"CONTACTS.MDB"_s, u"GARDEN.MDB"_s, u"MOVIES.MDB"_s, u"MUSIC.MDB"_s,
                            u"BOOKS.MDB"_s, u"NOTES.MDB"_s,    u"HOWTO.MDB"_s,  u"RECIPE.MDB"_s, u"SPORTS.MDB"_s,
                            u"ACCOUNTS.MDB"_s, u"DATAP.MDB"_s, u"DATAJ.MDB"_s};
    for (const QString &locale : {u"en_US"_s, u"en_AU"_s, u"de_DE"_s}) {
        SCOPED_TRACE(locale.toStdString());
        QFile::remove(folder.path(u"vorelreminder.ini"_s));
        start(locale);
        // What the main load reads adds no key.
        DetectDateOrder();
        loadMainSettings();
        loadUserName();
        loadStartCategory();
        loadWarningSettings();
        loadSoundFile();
        loadFeatures();
        QStringList expected{u"[Settings]"_s};
        for (qsizetype i = 0; i < keys.size(); ++i)
            expected << keys[i] + u"=\\"_s + files[i];
        EXPECT_EQ(iniLines(), expected) << iniLines().join(u'\n');
        for (std::size_t i = 0; i < state().paths.size(); ++i)
            EXPECT_EQ(state().paths[i], folder.path(files[static_cast<qsizetype>(i)]));
    }
}

TEST_F(StartupTest, pathsThatLeadNowhereAreForgotten)
{
    const QString elsewhere = folder.write(u"Elsewhere/Mine.MDB"_s, "x");
    writeIni("DataPath=   \nContactsDBPath=" + folder.path(u"gone/CONTACTS.MDB"_s).toUtf8()
             + "\nGardenDBPath=" + folder.path(u"elsewhere/mine.mdb"_s).toUtf8()
             + "\nMovieDBPath=" + folder.path(u"Elsewhere"_s).toUtf8() + "\nUserName=Ann\n");
    start();
    const State &s = state();
    EXPECT_EQ(s.path(DataFile::Main), folder.path(u"VOREL.MDB"_s));
    EXPECT_EQ(s.path(DataFile::Contacts), folder.path(u"CONTACTS.MDB"_s));
    EXPECT_EQ(s.path(DataFile::Garden), elsewhere);         // found whatever its case
    EXPECT_EQ(s.path(DataFile::Movies), folder.path(u"MOVIES.MDB"_s));     // a folder is not a file
    EXPECT_EQ(GetIniValue(iniSettings, u"DataPath"_s, {}), u"\\VOREL.MDB"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"ContactsDBPath"_s, {}), u"\\CONTACTS.MDB"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"GardenDBPath"_s, {}), u"\\Elsewhere\\Mine.MDB"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"UserName"_s, {}), u"Ann"_s);
}

// Paths within the program folder move with it; one elsewhere stays.
TEST_F(StartupTest, aMovedFolderWorksOnItsOwnFiles)
{
    const QTemporaryDir away, moved;
    const QString far = away.filePath(u"FAR.MDB"_s);
    ASSERT_TRUE(QFile(far).open(QIODevice::WriteOnly));
    folder.write(u"VOREL.MDB"_s, "x");
    folder.write(u"Data/Mine.MDB"_s, "x");
    writeIni("DataPath=" + folder.path(u"VOREL.MDB"_s).toUtf8() + "\nGardenDBPath=" + folder.path(u"Data/Mine.MDB"_s).toUtf8()
             + "\nMovieDBPath=" + far.toUtf8() + "\n");
    start();
    QDir target(moved.path());
    ASSERT_TRUE(target.mkdir(u"Data"_s));
    for (const QString &name : {u"VOREL.MDB"_s, u"Data/Mine.MDB"_s, u"vorelreminder.ini"_s})
        ASSERT_TRUE(QFile::copy(folder.path(name), target.filePath(name)));
    const QString before = basic::programFolder();
    basic::setProgramFolder(moved.path());
    start();
    EXPECT_EQ(state().path(DataFile::Main), target.filePath(u"VOREL.MDB"_s));
    EXPECT_EQ(state().path(DataFile::Garden), target.filePath(u"Data/Mine.MDB"_s));
    EXPECT_EQ(state().path(DataFile::Movies), far);
    basic::setProgramFolder(before);
}

// A configuration from before paths were kept within the folder: it names the files of the folder it was copied from.
TEST_F(StartupTest, aCopiedFolderAsksOnceWhoseFilesAreMeant)
{
    const QTemporaryDir original;
    for (const QString &name : {u"VOREL.MDB"_s, u"MOVIES.MDB"_s, u"BOOKS.MDB"_s})
        ASSERT_TRUE(QFile(original.filePath(name)).open(QIODevice::WriteOnly));
    folder.write(u"VOREL.MDB"_s, "x");
    folder.write(u"BOOKS.MDB"_s, "x");
    const QByteArray ini = "DataPath=" + original.filePath(u"VOREL.MDB"_s).toUtf8() + "\nMovieDBPath="
        + original.filePath(u"MOVIES.MDB"_s).toUtf8() + "\nBooksDBPath=" + original.filePath(u"BOOKS.MDB"_s).toUtf8() + "\n";
    test::ScriptedPrompts prompts;
    for (const basic::Answer answer : {basic::Answer::No, basic::Answer::Yes}) {
        const bool here = answer == basic::Answer::Yes;
        writeIni(ini);
        prompts.expect(original.filePath(u"VOREL.MDB"_s) + u"\r\n"_s + original.filePath(u"BOOKS.MDB"_s), answer);
        for (int time = 0; time < 2; ++time) {
            start();
            EXPECT_EQ(state().path(DataFile::Main), here ? folder.path(u"VOREL.MDB"_s) : original.filePath(u"VOREL.MDB"_s));
            EXPECT_EQ(state().path(DataFile::Books), here ? folder.path(u"BOOKS.MDB"_s) : original.filePath(u"BOOKS.MDB"_s));
            EXPECT_EQ(state().path(DataFile::Movies), original.filePath(u"MOVIES.MDB"_s));     // no namesake here
        }
        EXPECT_TRUE(prompts.isDone());
    }
}

TEST_F(StartupTest, displayFormatStaysEmptyUntilChosen)
{
    start();
    DetectDateOrder();
    EXPECT_EQ(state().settings.gDateDisplay, QString());
    const basic::Value day = basic::DateTime::fromParts(2005, 3, 4);
    EXPECT_EQ(displayDate(day), u"4/03/2005"_s);        // the machine's general form
    EXPECT_EQ(shortDate(day), u"04/03/2005"_s);

    writeIni("DateDisplay=dd mmm yyyy\n");
    start();
    EXPECT_EQ(displayDate(day), u"04 Mar 2005"_s);
    EXPECT_EQ(displayDate({}), QString());
}

TEST_F(StartupTest, programState)
{
    start();
    EXPECT_EQ(state().gIniFile, folder.path(u"vorelreminder.ini"_s));
    EXPECT_EQ(state().gProductTitle, u"Vorel Reminder 1"_s);
    EXPECT_EQ(state().settings.gFormColour, QString::number(0xC0FFC0));
    EXPECT_TRUE(state().settings.gPopUpCloser);
    EXPECT_TRUE(ShowSplashScreen());
    for (const auto &[text, shown] : {std::pair<QByteArray, bool>{"0", false}, {"1", true}, {"False", false}, {"True", true}}) {
        writeIni("ShowSplashScreen=" + text + "\n");
        EXPECT_EQ(ShowSplashScreen(), shown) << text.constData();
    }
}

TEST_F(StartupTest, configurationFileIsFoundWhateverItsCase)
{
    folder.write(u"VorelReminder.INI"_s, "[settings]\nusername=Ann\n");
    start();
    loadUserName();
    EXPECT_EQ(state().settings.gUserName, u"Ann"_s);
    EXPECT_FALSE(QFile::exists(folder.path(u"vorelreminder.ini"_s)));
}

TEST_F(StartupTest, mainSettings)
{
    // The numbers, the words, and the first letters of the switches that are on.
    const auto loaded = [] {
        loadMainSettings();
        loadUserName();
        loadWarningSettings();
        const QString category = loadStartCategory();
        const State &s = state();
        QString on;
        for (const auto &[is, letter] : {std::pair{s.settings.gAutoEmail, u'E'}, {s.settings.gAppointmentWarning, u'W'}, {s.settings.gNetwork, u'N'},
                                         {s.settings.gPopUpCloser, u'P'}, {s.settings.gTips, u'T'}, {s.settings.gDisplayAds, u'A'}})
            on += is ? QString(letter) : QString();
        return u"%1 %2 %3|%4|%5|%6|%7|%8"_s.arg(s.settings.gWeekStartDay).arg(s.settings.gWarnBefore).arg(s.settings.gWarnAfter)
            .arg(s.settings.gNumberFormat, s.settings.gEmailName, s.settings.gUserName, category, on);
    };
    start();
    EXPECT_EQ(loaded(), u"1 3 1|######0.00|User|User|All|WNPTA"_s);
    EXPECT_EQ(state().period.gToday, basic::DateTime::fromParts(2005, 6, 15));
    EXPECT_EQ(state().settings.gBirthdayFormat, u"Lastname, Firstname/s"_s);
    writeIni("WeekStartDay=0\nNumberFormat=\nAWarningBefore=x\nAWarningAfter=10\nPopUpCloser=False\nAutoEmail=True\n"
             "EmailName=\nUserName=\nCategory=AE\nTips=False\nDisplayAds=0\nAppointmentWarning=false\nNetwork=False\n");
    EXPECT_EQ(loaded(), u"1 0 10|######0.00||User|AE|E"_s);      // only a missing key means the default of EmailName
}

TEST_F(StartupTest, soundFile)
{
    start();
    const QString wish = folder.write(u"wish.WAV"_s, "RIFF");
    const QString mine = folder.write(u"mine.wav"_s, "RIFF");
    loadSoundFile();
    EXPECT_EQ(state().settings.gSoundFile, wish);
    for (const QByteArray &kept : {mine.toUtf8(), QByteArray("\\mine.wav"), QByteArray("/gone/mine.wav")}) {    // the last: before the folder moved
        writeIni("SoundFile=" + kept + "\n");
        loadSoundFile();
        EXPECT_EQ(state().settings.gSoundFile, mine);
    }
    QFile::remove(mine);
    loadSoundFile();
    EXPECT_EQ(state().settings.gSoundFile, QString());
}

TEST_F(StartupTest, featuresAreOnWhenTheyEqualOne)
{
    folder.write(u"vorelreminder.ini"_s, "[Features]\nBooks=0\nMovies=1\nMusic=2\nGolf=True\nVehicle=\nEmail= 1 \n");
    start();
    loadFeatures();
    EXPECT_EQ(state().settings.gFeature.size(), 25u);
    QStringList off;
    for (const auto &[key, on] : state().settings.gFeature) {
        if (!on)
            off << key;
    }
    off.sort();
    EXPECT_EQ(off, (QStringList{u"Books"_s, u"Golf"_s, u"Music"_s, u"Vehicle"_s})) << off.join(u' ');
}

TEST_F(StartupTest, daysOfTheSetupRow)
{
    start();
    const QString path = state().path(DataFile::Main);
    dao::DBEngine::CreateDatabase(path, {}).Close();
    dao::Database file = dao::DBEngine::OpenDatabase(path);
    file.Execute(u"CREATE TABLE [Setup] ([DeleteAfterDays] INTEGER, [BackupAfterDays] INTEGER)"_s);
    const struct { QString deleteAfter, backupAfter; int expectedDelete, expectedBackup; } cases[] = {
        {{}, {}, 0, 14},                        // no row at all
        {u"30"_s, u"0"_s, 30, 14},
        {u"NULL"_s, u"NULL"_s, 0, 14},
        {u"0"_s, u"7"_s, 0, 7},
    };
    for (const auto &c : cases) {
        file.Execute(u"DELETE * FROM [Setup];"_s);
        if (!c.deleteAfter.isEmpty())
            file.Execute(u"INSERT INTO [Setup] ([DeleteAfterDays],[BackupAfterDays]) VALUES (%1,%2);"_s.arg(c.deleteAfter, c.backupAfter));
        openMainDatabase();
        EXPECT_EQ(state().settings.gDeleteAfterDays, c.expectedDelete);
        EXPECT_EQ(state().settings.gBackupAfterDays, c.expectedBackup);
        if (c.backupAfter == u"0") {
            EXPECT_EQ(state().gMainDb.OpenRecordset(u"Setup"_s).Get(u"BackupAfterDays").text(), u"0"_s) << "the field stays";
        }
        state().gMainDb.Close();
    }
    file.Close();
}

TEST_F(StartupTest, printerIsThereOnlyIfTheProbeSaysSo)
{
    EXPECT_FALSE(GetPrinter());
    setPrinterProbe([] { return true; });
    EXPECT_TRUE(GetPrinter());
    setPrinterProbe([]() -> bool { throw basic::BasicError(482); });
    EXPECT_FALSE(GetPrinter());
    setPrinterProbe({});
}

TEST_F(StartupTest, failingPassIsShownAndTheNextOneRuns)
{
    start();                        // no main file yet
    state().settings.gDeleteAfterDays = 30;
    test::ScriptedPrompts prompts;
    prompts.expect(u"VOREL.MDB"_s);
    prompts.expect(u"VOREL.MDB"_s);
    runStartupPasses();
    EXPECT_TRUE(prompts.isDone());
}

}
