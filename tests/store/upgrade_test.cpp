#include "store/upgrade.h"

#include "frame/startup.h"
#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/mainfile.h"
#include "store/rebuild.h"

#include <QDir>
#include <QFile>

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

// What a kill during the making leaves behind must neither stand in the way nor get into the new file.
TEST_F(UpgradeTest, aBrokenOffCreationIsForgotten)
{
    const QByteArray half = bytes().left(20000);
    ASSERT_TRUE(QFile::remove(path()));
    for (const QString &trace : {u"cdbVOREL.MDB.tmp"_s, u"cdbVOREL.MDB.tmp-journal"_s, u"VOREL.MDB-journal"_s, u"VOREL.MDB-wal"_s})
        m_folder.write(trace, half);
    UpgradeDatabase(DataFile::Main, path(), 290);
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
    EXPECT_EQ(count(u"Setup"_s), 0);
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
    QStringList rowsOf(DataFile file, const QString &sql)
    {
        const QString before = std::exchange(state().path(DataFile::Main), QString(state().path(file)));
        const QStringList found = rows(sql);
        state().path(DataFile::Main) = before;
        return found;
    }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files); }
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
    const struct {
        DataFile file;
        QString table;
        int rows;
    } groups[] = {
        {DataFile::Main, u"Events"_s, 5}, {DataFile::HowTo, u"HowTo"_s, 1}, {DataFile::Movies, u"MOVIES"_s, 1},
        {DataFile::Books, u"BOOKS"_s, 1}, {DataFile::Music, u"MUSIC"_s, 1},
        {DataFile::Recipe, u"RECIPE"_s, 1}, {DataFile::Recipe, u"INGREDIENTS"_s, 7}, {DataFile::Sports, u"GENERAL"_s, 1},
        {DataFile::Sports, u"PERSONAL"_s, 1}, {DataFile::HowTo, u"HEALTH"_s, 1}, {DataFile::HowTo, u"GENERALHEALTH"_s, 1},
        {DataFile::HowTo, u"HEALTHVISITS"_s, 1}, {DataFile::Contacts, u"Contacts"_s, 1},
        {DataFile::Contacts, u"ContactData"_s, 1}, {DataFile::Garden, u"GARDEN"_s, 1}, {DataFile::Main, u"PROFILE"_s, 1},
        {DataFile::Main, u"PROFILEDATA"_s, 1}, {DataFile::Accounts, u"Accounts"_s, 44}, {DataFile::Main, u"TODO"_s, 0},
        {DataFile::Notes, u"Notes"_s, 0}, {DataFile::HowTo, u"MotorVehicle"_s, 0},
    };
    for (const auto &group : groups)
        EXPECT_EQ(rowsOf(group.file, u"SELECT * FROM ["_s + group.table + u']').size(), group.rows) << qPrintable(group.table);
    EXPECT_EQ(rows(u"SELECT [DATE],[APPTIME] FROM [Appointments]"_s),
              QStringList({u"2026-11-22|09:00 Am"_s, u"2026-11-22|09:00 Am"_s, u"2026-11-21|09:00 Am"_s}));
    EXPECT_EQ(rows(u"SELECT [DATE],[BILL] FROM [Bills]"_s),
              QStringList({u"2026-11-22|TELEPHONE ACCOUNT"_s, u"2026-11-21|VEHICLE INSURANCE"_s}));
    EXPECT_EQ(rows(u"SELECT [DATE],[EVENT] FROM [Events] WHERE [SUBJECT]='GENERAL'"_s),
              QStringList{u"2026-11-21|TODAY'S DISPLAYED IN YELLOW"_s});
    EXPECT_EQ(rows(u"SELECT [ITEM],[NUMBER],[LASTCOST],[AMOUNT],[TOTAL],[PICK] FROM [SHOPPING]"_s),
              QStringList{u"COFFEE 150g|1|4.25|3.9|3.9|True"_s});
    EXPECT_EQ(rows(u"SELECT [Item],[DatePurchased],[Category] FROM [INVENTORY]"_s),
              QStringList{u"Vacuum Cleaner|01/01/2005|Electrical"_s});
    EXPECT_EQ(rowsOf(DataFile::Contacts, u"SELECT [Contacts].[ID] FROM [Contacts] INNER JOIN [ContactData] "
                                         "ON [Contacts].[ID]=[ContactData].[ID] WHERE [ContactData].[ID]=2"_s),
              QStringList{u"2"_s});
}

// Amounts, rows and texts are the same whatever marks a country sets in its numbers and dates.
TEST_F(PassTest, aFirstStartInAnyCountry)
{
    for (const QString &region : {u"fr_FR"_s, u"pl_PL"_s, u"fi_FI"_s, u"sv_SE"_s, u"cs_CZ"_s, u"hu_HU"_s, u"ru_RU"_s, u"ar_EG"_s,
                                  u"fa_IR"_s, u"de_DE"_s, u"es_ES"_s, u"it_IT"_s, u"nl_NL"_s, u"tr_TR"_s, u"en_AU"_s}) {
        SCOPED_TRACE(region.toStdString());
        setRegion(region);
        for (const DataFile file : {DataFile::Main, DataFile::HowTo})
            QFile::remove(state().path(file));
        UpgradeAllDatabases();
        EXPECT_EQ(state().mainFile, MainFileAccess::Full);
        dao::Database file = open();
        const dao::Recordset coffee = file.OpenRecordset(u"SELECT [NUMBER],[LASTCOST],[AMOUNT],[TOTAL] FROM [SHOPPING]"_s);
        EXPECT_EQ(coffee.Get(0).get<std::int16_t>(), 1);
        EXPECT_EQ(coffee.Get(1).get<double>(), 4.25);
        EXPECT_EQ(coffee.Get(2).get<double>(), 3.90);
        EXPECT_EQ(coffee.Get(3).get<double>(), 3.90);
        dao::Recordset bills = file.OpenRecordset(u"SELECT [AMOUNT] FROM [BILLS]"_s);
        EXPECT_EQ(bills.Get(0).get<basic::Currency>(), basic::Currency::fromDouble(64.50));
        bills.MoveNext();
        EXPECT_EQ(bills.Get(0).get<basic::Currency>(), basic::Currency::fromDouble(412));
        EXPECT_EQ(file.OpenRecordset(u"SELECT [COST] FROM [INVENTORY]"_s).Get(0).get<basic::Currency>(), basic::Currency::fromDouble(249));
        EXPECT_EQ(file.OpenRecordset(u"SELECT [DATE] FROM [Appointments]"_s).Get(0), basic::Value(basic::DateTime::fromParts(2026, 11, 22)));
        EXPECT_EQ(file.OpenRecordset(u"SELECT [DeleteAfterDays] FROM [Setup]"_s).Get(0).get<std::int16_t>(), 30);
        file.Close();
        EXPECT_EQ(count(u"Subjects"_s), 3);
        EXPECT_EQ(count(u"Events"_s), 5);
        EXPECT_EQ(rowsOf(DataFile::HowTo, u"SELECT [VISITDATE] FROM [HEALTHVISITS]"_s).size(), 1);
    }
}

TEST_F(PassTest, theRowsThatMustExist)
{
    const QString heading = u"SELECT [InvoiceHeading],[TAXNAME1],[TAXNAME2],[Printname],[FiscalMonth] FROM [SETUP]"_s;
    const struct { QString region, month, tax; } cases[] = {
        {u"en_US"_s, u"January"_s, u"S"_s}, {u"en_AU"_s, u"July"_s, u"G"_s}};
    for (const auto &[region, month, tax] : cases) {
        setRegion(region);
        QFile::remove(state().path(DataFile::Accounts));
        UpgradeAllDatabases();
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(rowsOf(DataFile::Accounts, heading), QStringList{u"Tax Invoice|GST|PST|True|"_s + month});
            EXPECT_EQ(rowsOf(DataFile::Accounts, u"SELECT [DATE],[INCLUDE],[AP-Account],[TaxSystem] FROM [tblInvoiceDetails]"_s),
                      QStringList{u"2026-11-22|True|Sales|"_s + tax});
            EXPECT_EQ(rowsOf(DataFile::Accounts, u"SELECT [DATE],[AccountType] FROM [Bill]"_s),
                      QStringList{u"2026-11-22|Expense"_s});
            EXPECT_EQ(rowsOf(DataFile::Accounts, u"SELECT [DATE],[AccountType],[AP-Account] FROM [Income]"_s),
                      QStringList{u"2026-11-22|Income|Payroll Income"_s});
            EXPECT_EQ(rows(u"SELECT [AdminPassword],[DeleteAfterDays],[BackupAfterDays] FROM [Setup]"_s), QStringList{u"0|30|0"_s});
            UpgradeAllDatabases();
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
    EXPECT_EQ(rowsOf(DataFile::Movies, u"SELECT [FILENAME] FROM [MOVIES]"_s), QStringList{m_folder.path(u"sample-movie.jpg"_s)});
    const QString garden = m_folder.path(u"sample-garden.jpg"_s);
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

// Of a protected file the stamp is read with the password; the parameter only tells whether there is one.
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
    m_prompts.expect(u"Type mismatch\r\n\r\nThe file was left as it is."_s);
    UpgradeAllDatabases();
    EXPECT_EQ(rows(u"SELECT [DATEDUE] FROM [TODO]"_s), QStringList{u"some day"_s});
    EXPECT_EQ(GetDatabaseVersion(path()), 0);
    EXPECT_TRUE(QFile::exists(place));
    EXPECT_EQ(state().mainFile, MainFileAccess::Full);      // as it is
}

TEST_F(PassTest, aFolderThatTakesNoFilesIsToldOnce)
{
    test::putEmptyFiles(m_folder.path());
    for (const DataFile file : {DataFile::Main, DataFile::Books, DataFile::Music})
        state().path(file) = m_folder.path(u"nowhere/"_s) + QString::number(static_cast<int>(file)) + u".MDB"_s;
    m_prompts.expect(u"0.MDB\r\n"_s + state().path(DataFile::Music) + u"\r\n"_s + state().path(DataFile::Books));
    UpgradeAllDatabases();
    EXPECT_TRUE(m_prompts.texts().last().endsWith(u"The file could not be made."_s));
    EXPECT_EQ(state().mainFile, MainFileAccess::None);
    EXPECT_EQ(rowsOf(DataFile::Garden, u"SELECT * FROM [Garden]"_s), QStringList());     // no main file, no samples
}

}
