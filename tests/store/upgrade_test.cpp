#include "store/upgrade.h"

#include "frame/startup.h"
#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/mainfile.h"
#include "store/rebuild.h"
#include "store/startreport.h"
#include "support/fulldisk.h"
#include "support/table.h"

#include <QDir>
#include <QFile>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorel {

using namespace Qt::StringLiterals;

using UpgradeTest = test::MainFileTest;

TEST_F(UpgradeTest, aSecondStartChangesNothing)
{
    EXPECT_EQ(rows(u"SELECT * FROM [Setup];"_s), QStringList(u"Null|30|0|0|Null"_s));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList(u"VOREL.MDB"_s));
    execute(u"DELETE * FROM [Setup];"_s);
    UpgradeAllDatabases();
    EXPECT_EQ(rows(u"SELECT [AdminPassword], [DeleteAfterDays] FROM [Setup];"_s), QStringList(u"0|30"_s)) << "written anew";
    execute(u"UPDATE [Setup] SET [DeleteAfterDays] = 7;"_s);
    execute(u"INSERT INTO [Appointments] ([Appointment]) VALUES ('Dentist');"_s);
    const QByteArray before = bytes();
    UpgradeAllDatabases();
    EXPECT_EQ(bytes(), before);
}

// What a kill during creation leaves behind must neither block the next start nor get into the new file.
TEST_F(UpgradeTest, aBrokenOffCreationIsForgotten)
{
    const QByteArray half = bytes().left(20000);
    ASSERT_TRUE(QFile::remove(path()));
    for (const QString &trace : {u"cdbVOREL.MDB.tmp"_s, u"cdbVOREL.MDB.tmp-journal"_s, u"VOREL.MDB-journal"_s, u"VOREL.MDB-wal"_s})
        m_folder.write(trace, half);
    UpgradeAllDatabases();
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
    EXPECT_EQ(count(u"Setup"_s), 1);
    EXPECT_TRUE(QDir(m_folder.path()).entryList(QDir::Files).filter(u"cdb"_s).isEmpty());
}

// A program folder with its thirteen files, made by the pass itself.
class PassTest : public test::MainFileTest {
protected:
    PassTest()
    {
        QFile::remove(path());
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
    }
    static QStringList rowsOf(const QString &file, const QString &sql)
    {
        dao::Database database = dao::DBEngine::OpenDatabase(file);
        return MainFileTest::rowsOf(database, sql);
    }
    static QStringList rowsOf(DataFile file, const QString &sql) { return rowsOf(state().path(file), sql); }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files); }
    // The rows of each query of a table in store.tsv.
    void expectRows(const char *table, const char *column)
    {
        test::forEachRow("store", table, [&](const test::Row &row) {
            EXPECT_EQ(rowsOf(m_folder.path(row["file"]), row["query"]).join(u" / "_s).toStdString(), row.text(column));
        });
    }
    // A page in the middle of its rows: such a file opens.
    void damageBooks()
    {
        QByteArray bytes = m_folder.read(u"BOOKS.MDB"_s);
        m_folder.write(u"BOOKS.MDB"_s, bytes.replace(bytes.indexOf("number 150") / 4096 * 4096, 4096, QByteArray(4096, '\0')));
    }
    void removeFiles()
    {
        for (const QString &name : names())
            QFile::remove(m_folder.path(name));
    }
    void fillBooks()
    {
        dao::Database books = dao::DBEngine::OpenDatabase(state().path(DataFile::Books));
        dao::Transaction all(books);
        for (int i = 0; i < 300; ++i)
            books.Execute(u"INSERT INTO [BOOKS] ([TITLE]) VALUES ('A title of some length, number %1')"_s.arg(i));
        all.Commit();
    }
};

TEST_F(PassTest, aFirstStartMakesAllFilesWithTheirRows)
{
    UpgradeAllDatabases();
    QStringList wanted;
    for (const DataFileEntry &entry : dataFiles()) {
        wanted << entry.defaultName.mid(1);
        EXPECT_EQ(entry.isProtected ? GetProtectedDatabaseVersion(entry.file, state().path(entry.file))
                                    : GetDatabaseVersion(state().path(entry.file)), 290);
    }
    wanted.sort();
    QStringList found = names();
    found.removeIf([](const QString &name) { return name.endsWith(u".jpg"); });
    EXPECT_EQ(found, wanted);           // no scratch stays
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);
    expectRows("first start", "rows");
}

// Without room for one of the files a new installation is not called complete: the next start takes it up.
TEST_F(PassTest, aFirstStartWithoutRoomIsTakenUpByTheNextOne)
{
    test::putEmptyFiles(m_folder.path());
    fillBooks();
    const QString books = state().path(DataFile::Books);
    dao::DBEngine::OpenDatabase(books).Execute(u"UPDATE [BOOKS] SET [COMMENTS]='"_s + QString(1000, u'x') + u'\'');
    SetDatabaseVersion(books, 280);
    QFile::remove(path());
    {
        const test::FullDisk full(200 * 1024);          // more than the main file needs
        m_prompts.expect(u"Not enough space on disk."_s);
        UpgradeAllDatabases();
    }
    EXPECT_FALSE(QFile::exists(path()));
    UpgradeAllDatabases();
    EXPECT_EQ(GetDatabaseVersion(books), 290);
    EXPECT_EQ(rowsOf(DataFile::Books, u"SELECT [TITLE] FROM [BOOKS]"_s).size(), 300);
    EXPECT_EQ(count(u"Bills"_s), 2);
}

// Amounts, rows and texts are the same whatever marks a country sets in its numbers and dates.
TEST_F(PassTest, aFirstStartInAnyCountry)
{
    for (const QString &region : {u"fr_FR"_s, u"pl_PL"_s, u"fi_FI"_s, u"sv_SE"_s, u"cs_CZ"_s, u"hu_HU"_s, u"ru_RU"_s, u"ar_EG"_s,
                                  u"fa_IR"_s, u"de_DE"_s, u"es_ES"_s, u"it_IT"_s, u"nl_NL"_s, u"tr_TR"_s, u"en_AU"_s}) {
        SCOPED_TRACE(region.toStdString());
        setRegion(region);
        QFile::remove(path());
        UpgradeAllDatabases();
        EXPECT_EQ(state().mainFile, MainFileAccess::Full);
        setRegion(u"en_US"_s);
        expectRows("first start", "rows");
    }
}

TEST_F(PassTest, theRowsThatMustExist)
{
    for (const char *region : {"en_US", "en_AU"}) {
        setRegion(QString::fromLatin1(region));
        QFile::remove(state().path(DataFile::Accounts));
        for (int time = 0; time < 2; ++time) {
            UpgradeAllDatabases();
            expectRows("must exist", region);
        }
    }
}

// Only an installation without a main file is new; then each table for itself must be empty.
TEST_F(PassTest, sampleRowsComeOnceAndOnlyIntoEmptyTables)
{
    UpgradeAllDatabases();
    execute(u"DELETE * FROM [BILLS]"_s);
    for (const DataFile file : {DataFile::Garden, DataFile::Movies})
        QFile::remove(state().path(file));
    UpgradeAllDatabases();
    EXPECT_EQ(count(u"BILLS"_s), 0);
    EXPECT_EQ(rowsOf(DataFile::Garden, u"SELECT * FROM [Garden]"_s), QStringList());

    dao::DBEngine::OpenDatabase(state().path(DataFile::Books)).Execute(u"UPDATE [BOOKS] SET [TITLE]='Mine'"_s);
    QFile::remove(path());
    UpgradeAllDatabases();
    EXPECT_EQ(rowsOf(DataFile::Books, u"SELECT [TITLE] FROM [BOOKS]"_s), QStringList{u"Mine"_s});
    EXPECT_EQ(rowsOf(DataFile::Garden, u"SELECT [PlantName] FROM [Garden]"_s), QStringList{u"SUNFLOWER"_s});
    EXPECT_EQ(count(u"BILLS"_s), 2);
}

TEST_F(PassTest, aSamplesPictureLiesInTheProgramFolder)
{
    m_folder.write(u"sample-movie.jpg"_s, "a picture");
    UpgradeAllDatabases();
    EXPECT_EQ(rowsOf(DataFile::Movies, u"SELECT [FILENAME] FROM [MOVIES]"_s), QStringList{u"\\sample-movie.jpg"_s})
        << "it moves with the folder";
    const QString garden = u"\\sample-garden.jpg"_s;
    EXPECT_EQ(rowsOf(DataFile::Garden, u"SELECT [FILENAME] FROM [GARDEN]"_s),
              QStringList{desktop::findResource(u"sample-garden.jpg"_s).isEmpty() ? u"Null"_s : garden});
}

// The main file's version decides for all.
TEST_F(PassTest, anOldMainFileTakesAllFilesThroughTheUpgrade)
{
    test::putEmptyFiles(m_folder.path());
    const auto spoil = [] {
        dao::DBEngine::OpenDatabase(state().path(DataFile::Music)).Execute(u"DROP TABLE [Tracks]"_s);
    };
    spoil();
    UpgradeAllDatabases();
    EXPECT_FALSE(dao::DBEngine::OpenDatabase(state().path(DataFile::Music)).hasTable(u"Tracks"));
    EXPECT_EQ(names().size(), 13);
    SetDatabaseVersion(path(), 289);
    UpgradeAllDatabases();
    EXPECT_TRUE(dao::DBEngine::OpenDatabase(state().path(DataFile::Music)).hasTable(u"Tracks"));
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
    EXPECT_EQ(names().filter(u".BAK"_s).size(), 13);
    EXPECT_EQ(names().size(), 26);
    EXPECT_EQ(count(u"Appointments"_s), 0);
}

// As long as one file could not be served the main file keeps its version, so that the next start takes the rest up; what
// was done already is not done again, and its safety copy stays the one of the older version.
TEST_F(PassTest, anUpgradeThatWasCutShortIsTakenUp)
{
    test::putEmptyFiles(m_folder.path());
    for (const DataFileEntry &entry : dataFiles()) {
        if (!entry.isProtected)
            SetDatabaseVersion(state().path(entry.file), 280);
    }
    execute(u"INSERT INTO [TODO] ([ToDo]) VALUES ('Kept')"_s);
    const QString books = state().path(DataFile::Books);
    ASSERT_TRUE(QFile::rename(books, books + u".away"_s) && QDir().mkpath(books));
    m_prompts.expect(books);
    UpgradeAllDatabases();
    EXPECT_EQ(GetDatabaseVersion(path()), 280);
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);
    EXPECT_EQ(GetDatabaseVersion(state().path(DataFile::Music)), 290);

    ASSERT_TRUE(QDir().rmdir(books) && QFile::rename(books + u".away"_s, books));
    m_folder.write(u"cdbGARDEN.MDB.999999.tmp-journal"_s, "left by a killed run");
    m_folder.write(u"BOOKS.BAK.999999.tmp"_s, "left by a killed run");
    UpgradeAllDatabases();
    for (const DataFile file : {DataFile::Main, DataFile::Books, DataFile::Music})
        EXPECT_EQ(GetDatabaseVersion(state().path(file)), 290);
    EXPECT_EQ(GetDatabaseVersion(m_folder.path(u"MUSIC.BAK"_s)), 280);
    EXPECT_EQ(rows(u"SELECT [ToDo] FROM [TODO]"_s), QStringList{u"Kept"_s});
    EXPECT_EQ(names().filter(u"tmp"_s), QStringList());
}

// A kill at any point of the first start: the main file takes its place last, with its rows, so the next start is the first.
TEST_F(PassTest, aFirstStartThatWasKilledStillGetsItsRows)
{
    for (const rlim_t limit : {8u, 60u, 110u}) {
        removeFiles();
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit size = {limit * 1024, limit * 1024}, none = {0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            ::setrlimit(RLIMIT_FSIZE, &size);
            UpgradeAllDatabases();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        UpgradeAllDatabases();
        EXPECT_EQ(count(u"Appointments"_s), 3) << limit;
        EXPECT_EQ(count(u"Subjects"_s), 3) << limit;
        EXPECT_EQ(count(u"Setup"_s), 1) << limit;
        EXPECT_EQ(rowsOf(DataFile::Recipe, u"SELECT * FROM [INGREDIENTS]"_s).size(), 7) << limit;
        EXPECT_EQ(names().filter(u"tmp"_s), QStringList()) << limit;
    }
}

// Whatever the main file's version says, a file that does not open is repaired, at the start or when it is next opened, and
// the user is informed once.
TEST_F(PassTest, aDamagedFileBesideACurrentMainFileIsRepaired)
{
    for (const bool atStart : {true, false}) {
        test::putEmptyFiles(m_folder.path());
        fillBooks();
        UpgradeAllDatabases();
        const QByteArray whole = m_folder.read(u"BOOKS.MDB"_s), damaged = whole.left(whole.size() - 4196);     // the end is cut off
        m_folder.write(u"BOOKS.MDB"_s, damaged);
        m_prompts.expect(u"It was repaired"_s);
        if (atStart)
            UpgradeAllDatabases();
        const qsizetype left = openDataFile(DataFile::Books).OpenRecordset(u"BOOKS"_s).rowTotal();
        EXPECT_GT(left, 100);
        EXPECT_EQ(m_folder.read(u"BOOKS.MDB.damaged"_s), damaged);
        const QString told = m_prompts.texts().last();
        EXPECT_TRUE(told.contains(u"The damaged file is kept as "_s + m_folder.path(u"BOOKS.MDB.damaged"_s)));
        UpgradeAllDatabases();
        EXPECT_TRUE(m_prompts.isDone());
        removeFiles();
    }
}

TEST(StartReport, OneTextOfAllThatHappened)
{
    const QTemporaryDir folder;
    const QString books = folder.filePath(u"BOOKS.MDB"_s), notes = folder.filePath(u"NOTES.MDB"_s), music = folder.filePath(u"MUSIC.MDB"_s);
    store::Mending mended{books, books + u".damaged"_s, 120, 118, false, false, {u"BOOKS"_s}};
    store::Mending cutOff{music, music + u".damaged"_s, 635, 635, false, false, {u"MUSIC"_s, u"TRACKS"_s}};
    store::Mending lost{notes, notes + u".damaged2"_s, 0, 0, true, false, {}};
    const QString left = u"These data files were left as they were:"_s;
    const std::vector<store::Failure> failures = {
        {books, 3026, u"Not enough space on disk."_s, left},
        {notes, 13, u"Type mismatch"_s, left},
        {music, 61, u"Disk full"_s, left},
    };
    EXPECT_EQ(store::startReport({}, {}), QString());
    const QString text = store::startReport({mended, cutOff, lost}, failures);
    EXPECT_EQ(text.split(u"\r\n\r\n"_s), (QStringList{
        u"These data files were damaged:"_s,
        u"%1\r\n    It was repaired: 118 of 120 rows came back. Rows are missing in: BOOKS.\r\n    The damaged file is kept as %1.damaged"_s.arg(books),
        u"%1\r\n    It was repaired: 635 rows came back. An unknown number of rows is missing in: MUSIC, TRACKS.\r\n    The damaged file is kept as %1.damaged"_s.arg(music),
        u"%1\r\n    No row could be read from it.\r\n    The damaged file is kept as %1.damaged2"_s.arg(notes),
        u"%1\r\n    %2\r\n    %3\r\nNot enough space on disk. Free about 1 MB in %4, then start the program again."_s
            .arg(left, books, music, folder.path()),
        u"%1\r\n    %2\r\nType mismatch"_s.arg(left, notes)})) << text.toStdString();
}

// Damage that no opening shows: the file is not as the last run left it, that run did not come to its end, or the folder came
// without its note.
TEST_F(PassTest, aFileThatMayBeDamagedGetsTheFullCheck)
{
    for (const std::optional<bool> endedWell : {std::optional(true), std::optional(false), std::optional<bool>()}) {
        const auto note = [&] { return !endedWell ? QByteArray() : *endedWell ? dataFilesNote() : desktop::runningNote; };
        test::putEmptyFiles(m_folder.path());
        fillBooks();
        ASSERT_TRUE(desktop::claimSingleInstance());
        UpgradeAllDatabases();
        const QByteArray bytes = m_folder.read(u"BOOKS.MDB"_s);
        desktop::releaseSingleInstance(note());
        ASSERT_TRUE(desktop::claimSingleInstance());
        UpgradeAllDatabases();                          // a sound file stays as it is
        EXPECT_EQ(m_folder.read(u"BOOKS.MDB"_s), bytes);
        desktop::releaseSingleInstance(note());
        damageBooks();
        ASSERT_TRUE(desktop::claimSingleInstance());
        m_prompts.expect(u"It was repaired"_s);
        UpgradeAllDatabases();
        EXPECT_TRUE(m_prompts.isDone());
        desktop::releaseSingleInstance();
        removeFiles();
    }
}

// Damage within a file that opens, met by whoever reads: which file it is, and the next start repairs it whatever its date.
TEST_F(PassTest, damageThatIsMetWhileReadingIsToldAndRepairedByTheNextStart)
{
    test::putEmptyFiles(m_folder.path());
    fillBooks();
    ASSERT_TRUE(desktop::claimSingleInstance());
    UpgradeAllDatabases();
    const QString place = state().path(DataFile::Books);
    damageBooks();
    EXPECT_TRUE(dataFilesNote().contains("BooksDBPath"));
    QString text;
    try {
        dao::Recordset books = openDataFile(DataFile::Books).OpenRecordset(u"SELECT * FROM [BOOKS]"_s);
        for (; !books.EOF_(); books.MoveNext())
            books.Get(u"TITLE");
    } catch (const dao::EngineError &error) {
        EXPECT_EQ(error.number(), dao::err::Damaged);
        text = error.text();
    }
    EXPECT_TRUE(text.startsWith(u"The data file %1 is damaged."_s.arg(place))) << text.toStdString();
    EXPECT_FALSE(dataFilesNote().contains("BooksDBPath"));
    desktop::releaseSingleInstance(dataFilesNote());
    ASSERT_TRUE(desktop::claimSingleInstance());
    m_prompts.expect(u"It was repaired"_s);
    UpgradeAllDatabases();
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_TRUE(dataFilesNote().contains("BooksDBPath"));
    EXPECT_GT(rowsOf(DataFile::Books, u"SELECT [TITLE] FROM [BOOKS]"_s).size(), 200);
    desktop::releaseSingleInstance();
}

// Of a protected file the stamp is read with the password; the parameter only says whether there is one.
TEST_F(UpgradeTest, theVersionStamp)
{
    const QString plain = m_folder.path(u"PLAIN.MDB"_s), journal = m_folder.path(u"DATAJ.MDB"_s);
    state().path(DataFile::DataJ) = journal;
    SetDatabaseVersion(plain, 290);
    EXPECT_FALSE(QFile::exists(plain));
    const QString locale = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;
    dao::DBEngine::CreateDatabase(plain, locale).Close();
    dao::DBEngine::CreateDatabase(journal, locale + protectedConnect()).Close();
    for (const int version : {290, 32767, -1, 0, 17}) {
        SetDatabaseVersion(plain, version);
        EXPECT_EQ(GetDatabaseVersion(plain), version);
        SetProtectedDatabaseVersion(DataFile::DataJ, journal, version);
        EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, path()), version);
    }
    EXPECT_EQ(GetDatabaseVersion(journal), 0);      // without the password nothing is read
    EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, m_folder.path(u"GONE.MDB"_s)), 0);
    dao::Database database = dao::DBEngine::OpenDatabase(plain);
    EXPECT_EQ(database.OpenRecordset(u"SELECT [Version] FROM [Database Info]"_s, dao::dbOpenSnapshot).rowTotal(), 1);
    database.Execute(u"DELETE * FROM [Database Info]"_s);
    EXPECT_EQ(GetDatabaseVersion(plain), 0);
    SetDatabaseVersion(plain, 17);
    EXPECT_EQ(GetDatabaseVersion(plain), 17);
    database.Close();
    m_folder.write(u"PLAIN.MDB"_s, "no database");
    SetDatabaseVersion(plain, 290);
    EXPECT_EQ(GetDatabaseVersion(plain), 0);
    EXPECT_EQ(m_folder.read(u"PLAIN.MDB"_s), "no database");
}

TEST_F(PassTest, aFileThatFailsIsToldAndTheOthersGoOn)
{
    test::putEmptyFiles(m_folder.path());
    const QString place = state().path(DataFile::Books);
    QFile::remove(place);
    ASSERT_TRUE(QDir().mkpath(place));
    QFile::remove(state().path(DataFile::Sports));
    m_prompts.expect(place);
    UpgradeAllDatabases();
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_TRUE(QFile::exists(state().path(DataFile::Sports)));
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);

    // A row that no rule takes over ends its file's upgrade alone.
    QDir().rmdir(place);
    execute(u"DROP TABLE [TODO]"_s);
    execute(u"CREATE TABLE [TODO] ([ID] LONG, [DATEDUE] TEXT(20))"_s);
    execute(u"INSERT INTO [TODO] ([DATEDUE]) VALUES ('some day')"_s);
    SetDatabaseVersion(path(), 0);
    m_prompts.expect(u"These data files were left as they were:\r\n    "_s + path() + u"\r\nType mismatch"_s);
    UpgradeAllDatabases();
    EXPECT_EQ(rows(u"SELECT [DATEDUE] FROM [TODO]"_s), QStringList{u"some day"_s});
    EXPECT_EQ(GetDatabaseVersion(path()), 0);
    EXPECT_TRUE(QFile::exists(place));
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);      // as it is
}

// The same where the main file is the one that is missing.
TEST_F(PassTest, anOldFileOfANewInstallationIsTriedAgain)
{
    const QString notes = state().path(DataFile::Notes);
    dao::DBEngine::CreateDatabase(notes, {}).Close();
    dao::DBEngine::OpenDatabase(notes).Execute(u"CREATE TABLE [NOTES] ([ID] LONG, [NAME] TEXT(20), [DATE] TEXT(20))"_s);
    dao::DBEngine::OpenDatabase(notes).Execute(u"INSERT INTO [NOTES] ([NAME],[DATE]) VALUES ('Emma','some day')"_s);
    m_prompts.expect(u"These data files were left as they were:\r\n    "_s + notes + u"\r\nType mismatch"_s);
    UpgradeAllDatabases();
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);
    dao::DBEngine::OpenDatabase(notes).Execute(u"UPDATE [NOTES] SET [DATE]='11/22/2026'"_s);
    UpgradeAllDatabases();
    EXPECT_EQ(rowsOf(DataFile::Notes, u"SELECT [NAME],[DATE] FROM [NOTES]"_s), QStringList(u"Emma|2026-11-22"_s));
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
}

TEST_F(PassTest, aFolderThatTakesNoFilesIsToldOnce)
{
    test::putEmptyFiles(m_folder.path());
    for (const DataFile file : {DataFile::Main, DataFile::Books, DataFile::Music})
        state().path(file) = m_folder.path(u"nowhere/"_s) + QString::number(static_cast<int>(file)) + u".MDB"_s;
    const QString folder = m_folder.path(u"nowhere"_s);
    m_prompts.expect(u"These data files could not be made:\r\n    %1/0.MDB\r\n    %1/4.MDB\r\n    %1/5.MDB\r\nThe folder does not "
                     "exist. Bring %1 back, then start the program again."_s.arg(folder));
    UpgradeAllDatabases();
    EXPECT_EQ(state().mainFile, MainFileAccess::None);
}

}
