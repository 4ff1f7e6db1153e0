#include "store/upgrade.h"

#include "frame/startup.h"
#include "store/designs.h"
#include "store/mainfile.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

namespace vorel {

using namespace Qt::StringLiterals;

using UpgradeTest = test::MainFileTest;

TEST_F(UpgradeTest, aFreshFileIsStampedAndHasItsSetupRow)
{
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
    EXPECT_EQ(rows(u"SELECT * FROM [Setup];"_s), QStringList(u"Null|30|0|0|Null"_s));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList(u"VOREL.MDB"_s));
}

TEST_F(UpgradeTest, aSecondStartChangesNothing)
{
    execute(u"UPDATE [Setup] SET [DeleteAfterDays] = 7;"_s);
    execute(u"INSERT INTO [Appointments] ([Appointment]) VALUES ('Dentist');"_s);
    const QByteArray before = bytes();
    UpgradeAllDatabases();
    EXPECT_EQ(bytes(), before);
}

TEST_F(UpgradeTest, aMissingSetupRowIsWritten)
{
    execute(u"DELETE * FROM [Setup];"_s);
    UpgradeAllDatabases();
    EXPECT_EQ(rows(u"SELECT [AdminPassword], [DeleteAfterDays] FROM [Setup];"_s), QStringList(u"0|30"_s));
}

// What a kill during the making leaves behind must neither stand in the way nor get into the new file.
TEST_F(UpgradeTest, aBrokenOffCreationIsForgotten)
{
    const QByteArray half = bytes().left(20000);
    ASSERT_TRUE(QFile::remove(path()));
    for (const QString &trace : {u".new"_s, u".new-journal"_s, u".new-wal"_s, u"-journal"_s, u"-wal"_s})
        m_folder.write(u"VOREL.MDB"_s + trace, half);
    UpgradeAllDatabases();
    EXPECT_EQ(GetDatabaseVersion(path()), 290);
    EXPECT_EQ(count(u"Setup"_s), 1);
    EXPECT_FALSE(QFile::exists(path() + u".new"_s));
}

TEST_F(UpgradeTest, aFileThatCannotBeReadIsReportedOnceAndLeftAsItIs)
{
    const QByteArray good = bytes();
    const struct {
        const char *name;
        QByteArray content;
    } cases[] = {
        {"a text", "Dear diary, this is no database at all. " + QByteArray(5000, '.')},
        {"cut short", good.left(good.size() / 2)},
        {"cut within its head", good.left(50)},
        {"zeroes in its middle", good.left(2000) + QByteArray(static_cast<int>(good.size()) - 2000, '\0')},
        {"another program's tables", {}},
    };
    for (const auto &broken : cases) {
        SCOPED_TRACE(broken.name);
        ASSERT_TRUE(QFile::remove(path()));
        if (broken.content.isEmpty()) {
            dao::Database other = dao::DBEngine::CreateDatabase(path(), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
            other.Execute(u"CREATE TABLE [Stamps] ([Country] TEXT)"_s);
            other.Close();
        } else {
            m_folder.write(u"VOREL.MDB"_s, broken.content);
        }
        const QByteArray before = bytes();
        m_prompts.expect(path());
        UpgradeAllDatabases();
        EXPECT_TRUE(m_prompts.isDone());
        EXPECT_TRUE(m_prompts.texts().last().endsWith(u"The file was left as it is."));
        EXPECT_EQ(bytes(), before);
    }
}

TEST_F(UpgradeTest, aPlaceThatTakesNoFileIsReportedOnce)
{
    const QString folder = m_folder.path(u"taken"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const QString &place : {folder, m_folder.path(u"nowhere/VOREL.MDB"_s)}) {
        state().path(DataFile::Main) = place;
        m_prompts.expect(place);
        UpgradeAllDatabases();
        EXPECT_TRUE(m_prompts.isDone()) << qPrintable(place);
    }
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(UpgradeTest, withoutPermissionItIsReportedOnce)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may do anything";
    const QByteArray before = bytes();
    QFile file(path());
    for (const QFile::Permissions allowed : {QFile::Permissions(), QFile::Permissions(QFile::ReadOwner)}) {
        ASSERT_TRUE(file.setPermissions(allowed));
        m_prompts.expect(path());
        UpgradeAllDatabases();
        EXPECT_TRUE(m_prompts.isDone());
    }
    EXPECT_EQ(bytes(), before);

    ASSERT_TRUE(file.remove());
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    m_prompts.expect(path());
    UpgradeAllDatabases();
    EXPECT_TRUE(m_prompts.texts().last().endsWith(u"The file could not be made."));
    EXPECT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(UpgradeTest, theVersionStamp)
{
    const QString plain = m_folder.path(u"PLAIN.MDB"_s);
    EXPECT_EQ(GetDatabaseVersion(plain), 0);
    SetDatabaseVersion(plain, 290);
    EXPECT_FALSE(QFile::exists(plain));

    dao::DBEngine::CreateDatabase(plain, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s).Close();
    EXPECT_EQ(GetDatabaseVersion(plain), 0);
    for (const int version : {290, 32767, -1, 0}) {
        SetDatabaseVersion(plain, version);
        EXPECT_EQ(GetDatabaseVersion(plain), version);
    }
    dao::Database database = dao::DBEngine::OpenDatabase(plain);
    dao::Recordset stamps = database.OpenRecordset(u"SELECT COUNT(*) FROM [Database Info]"_s, dao::dbOpenSnapshot);
    EXPECT_EQ(test::shown(stamps.Get(0)), u"1");
    stamps.Close();
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

// The pair for the protected files opens the file in use; its parameter only tells whether there is one.
TEST_F(UpgradeTest, theVersionStampOfAProtectedFile)
{
    const QString journal = m_folder.path(u"DATAJ.MDB"_s);
    state().path(DataFile::DataJ) = journal;
    dao::DBEngine::CreateDatabase(journal, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s + protectedConnect()).Close();
    SetProtectedDatabaseVersion(DataFile::DataJ, journal, 290);
    EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, journal), 290);
    EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, path()), 290);
    EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, m_folder.path(u"GONE.MDB"_s)), 0);
    EXPECT_EQ(GetDatabaseVersion(journal), 0);      // without the password nothing is read
}

}
