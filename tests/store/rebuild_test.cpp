#include "store/rebuild.h"

#include "frame/startup.h"
#include "store/designs.h"
#include "store/mainfile.h"

#include <QDir>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// One file brought to its design, and all that can happen on the way.
namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;

namespace {

const QString restoreQuestion = u"Would you like to restore this copy?"_s;
const QString createQuestion = u"Would you like to create a new database?"_s;

}

class RebuildTest : public test::MainFileTest {
protected:
    bool upgrade() { return UpgradeDatabase(DataFile::Main, path(), 290); }
    QString copy() const { return m_folder.path(u"VOREL.BAK"_s); }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files); }
    QStringList rowsOf(const QString &file, const QString &sql)
    {
        const QString before = std::exchange(state().path(DataFile::Main), file);
        const QStringList found = rows(sql);
        state().path(DataFile::Main) = before;
        return found;
    }
    // The appointment table as an older program had it, among others.
    void makeOld()
    {
        execute(u"DROP TABLE [APPOINTMENTS]"_s);
        execute(u"CREATE TABLE [APPOINTMENTS] ([ID] LONG, [DATE] TEXT(10), [APPOINTMENT] MEMO, [MET] TEXT(5), [Mood] TEXT(9))"_s);
        execute(u"INSERT INTO [APPOINTMENTS] VALUES (5,'11/20/2026','Dentist ','-1','merry')"_s);
        execute(u"INSERT INTO [APPOINTMENTS] VALUES (9,Null,'"_s + QString(300, u'x') + u"','no',Null)"_s);
        execute(u"CREATE TABLE [Stamps] ([Country] TEXT)"_s);
        execute(u"INSERT INTO [TODO] ([ToDo]) VALUES ('Stay')"_s);
        execute(u"UPDATE [Database Info] SET [Version] = 280"_s);
    }
    void expectUpgraded()
    {
        EXPECT_EQ(rows(u"SELECT [ID],[DATE],[APPOINTMENT],[MET],[PeriodDays] FROM [APPOINTMENTS]"_s),
                  QStringList({u"5|2026-11-20|Dentist|True|0"_s, u"9|Null|"_s + QString(255, u'x') + u"|False|0"_s}));
        EXPECT_EQ(rows(u"SELECT [ID],[ToDo] FROM [TODO]"_s), QStringList{u"1|Stay"_s});
        EXPECT_EQ(GetDatabaseVersion(path()), 290);
    }
};

TEST_F(RebuildTest, anOldFileComesToTheDesignOfANewOne)
{
    const std::vector<dao::TableDef> fresh = open().TableDefs();
    makeOld();
    {
        dao::Database database = open();
        database.Execute(u"CREATE INDEX [MINE] ON [TODO] ([ToDo])"_s);      // an index more makes a table change
        database.Execute(u"DROP TABLE [EVENTS]"_s);
        dao::TableDef bills = database.TableDefByName(u"BILLS");
        database.DeleteTable(u"BILLS");
        bills.Helpers.clear();                                              // a helper less does not
        database.AppendTable(bills);
    }
    EXPECT_TRUE(upgrade());
    expectUpgraded();
    dao::Database database = open();
    EXPECT_FALSE(database.hasTable(u"Stamps"));
    for (const dao::TableDef &wanted : fresh) {
        const dao::TableDef found = database.TableDefByName(wanted.Name);
        EXPECT_EQ(found.Fields, wanted.Fields) << qPrintable(wanted.Name);
        EXPECT_EQ(found.Indexes, wanted.Indexes) << qPrintable(wanted.Name);
        EXPECT_EQ(found.Helpers, wanted.Helpers) << qPrintable(wanted.Name);
    }
    EXPECT_EQ(database.TableDefs().size(), fresh.size());
    database.Close();
    EXPECT_EQ(names(), QStringList({u"VOREL.BAK"_s, u"VOREL.MDB"_s}));
    EXPECT_EQ(rowsOf(copy(), u"SELECT [Mood] FROM [APPOINTMENTS] WHERE [ID]=5"_s), QStringList{u"merry"_s});
}

TEST_F(RebuildTest, whatOtherToolsLeftInAFileGoes)
{
    makeOld();
    {
        dao::Database database = open();
        dao::TableDef taken = database.TableDefByName(u"TODO");
        taken.Name = u"TODO$$"_s;
        database.AppendTable(taken);
        database.Execute(u"DROP TABLE [Database Info]"_s);
        database.Execute(u"CREATE TABLE [Database Info] ([Other] TEXT)"_s);
    }
    EXPECT_TRUE(upgrade());
    expectUpgraded();
    EXPECT_FALSE(open().hasTable(u"TODO$$"));
}

TEST_F(RebuildTest, theProtectedFilesKeepTheirPassword)
{
    const QString journal = state().path(DataFile::DataJ) = m_folder.path(u"DATAJ.MDB"_s);
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(UpgradeDatabase(DataFile::DataJ, journal, 290));
        EXPECT_EQ(GetProtectedDatabaseVersion(DataFile::DataJ, journal), 290);
        EXPECT_FALSE(m_folder.read(u"DATAJ.MDB"_s).startsWith("SQLite"));
        dao::Database database = dao::DBEngine::OpenDatabase(journal, false, false, u";pwd=KARVELOT"_s);
        EXPECT_EQ(database.OpenRecordset(u"Journal"_s).rowTotal(), time);
        database.Execute(u"INSERT INTO [Journal] ([NAME]) VALUES ('Quiet day')"_s);
    }
    EXPECT_EQ(names(), QStringList({u"DATAJ.BAK"_s, u"DATAJ.MDB"_s, u"VOREL.MDB"_s}));
}

TEST_F(RebuildTest, aLostFileIsRestoredOrMadeAnewAsTheUserSays)
{
    execute(u"INSERT INTO [TODO] ([ToDo]) VALUES ('Kept')"_s);
    EXPECT_TRUE(upgrade());
    const QByteArray kept = m_folder.read(u"VOREL.BAK"_s);
    const QByteArray lost(9000, 'x');
    const struct {
        bool copyStands;
        std::vector<Answer> answers;
        int rows;                       // -1: no file
    } cases[] = {
        {true, {Answer::Yes}, 1},
        {true, {Answer::No, Answer::Yes}, 0},
        {true, {Answer::No, Answer::No}, -1},
        {false, {Answer::Yes}, 0},
        {false, {Answer::No}, -1},
    };
    for (const auto &c : cases) {
        for (const QString &name : names())
            QFile::remove(m_folder.path(name));
        m_folder.write(u"VOREL.MDB"_s, lost);
        if (c.copyStands)
            m_folder.write(u"VOREL.BAK"_s, kept);
        for (size_t i = 0; i < c.answers.size(); ++i)
            m_prompts.expect(c.copyStands && i == 0 ? restoreQuestion : createQuestion, c.answers[i]);
        EXPECT_EQ(upgrade(), c.rows >= 0);
        EXPECT_TRUE(m_prompts.isDone());
        EXPECT_EQ(QFile::exists(path()), c.rows >= 0);
        if (c.rows >= 0) {
            EXPECT_EQ(count(u"TODO"_s), c.rows);
        }
        EXPECT_EQ(m_folder.read(u"VOREL.MDB.damaged"_s), lost);
        if (c.copyStands && c.rows <= 0) {
            EXPECT_EQ(m_folder.read(u"VOREL.BAK"_s), kept);
        }
    }
    const auto &asked = m_prompts.shown();
    EXPECT_TRUE(asked[0].text.startsWith(u"Database was corrupted beyond repair.\r\nA backup has been found dated: "));
    EXPECT_EQ(asked[0].buttons, basic::Buttons::YesNo);
    EXPECT_EQ(asked[0].icon, basic::Icon::Question);
    EXPECT_EQ(asked[2].text, u"Database was corrupted beyond repair and should be recreated.\r\nIf you have a backup you "
                             "should restore the file: "_s + path() + u"\r\n\r\n"_s + createQuestion);
}

// The work in another process that may write no file longer than `limit`; false if it was killed or failed there.
static bool inChild(const std::function<void()> &work, rlim_t limit, bool killed)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none = {0, 0}, size = {limit, limit};
        setrlimit(RLIMIT_CORE, &none);
        setrlimit(RLIMIT_FSIZE, &size);
        std::signal(SIGXFSZ, killed ? SIG_DFL : SIG_IGN);
        int outcome = 1;
        basic::IgnoreErrors([&] {
            work();
            outcome = 0;
        });
        _exit(outcome);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Killed at each further page that is written, or given a full disk: the file is the old one or the new one, and
// the safety copy is whole.
TEST_F(RebuildTest, aKillOrAFullDiskLeavesTheOldFileOrTheNewOne)
{
    EXPECT_TRUE(upgrade());
    makeOld();
    dao::DBEngine::Forget(path());
    const QByteArray old = bytes();
    const QByteArray copyBefore = m_folder.read(u"VOREL.BAK"_s);
    for (const bool killed : {true, false}) {
        bool done = false;
        for (rlim_t limit = 0; !done; limit += 12 * 1024) {
            SCOPED_TRACE(limit);
            ASSERT_LT(limit, 1024u * 1024u);
            m_folder.write(u"VOREL.MDB"_s, old);
            m_folder.write(u"VOREL.BAK"_s, copyBefore);
            done = inChild([this] { upgrade(); }, limit, killed);
            const QByteArray kept = m_folder.read(u"VOREL.BAK"_s);
            EXPECT_TRUE(kept == copyBefore || kept == old);
            if (done)
                break;
            EXPECT_EQ(bytes(), old);
            if (!killed) {
                EXPECT_EQ(names(), QStringList({u"VOREL.BAK"_s, u"VOREL.MDB"_s}));
            }
        }
        expectUpgraded();
        store::removeDeadScratch(store::scratchBeside({path()}));       // of the killed ones
    }
    EXPECT_EQ(names(), QStringList({u"VOREL.BAK"_s, u"VOREL.MDB"_s}));
}

// What a repair saves of a file may be less than its copy holds.
TEST_F(RebuildTest, aMendedFileLeavesTheEarlierCopyBesideIts)
{
    for (int i = 0; i < 60; ++i)
        execute(u"INSERT INTO [TODO] ([ToDo]) VALUES ('"_s + QString(200, u'x') + u"')"_s);
    EXPECT_TRUE(upgrade());
    const QByteArray kept = m_folder.read(u"VOREL.BAK"_s);
    QByteArray damaged = bytes();
    damaged.replace(damaged.lastIndexOf("xxx") / 4096 * 4096, 4096, QByteArray(4096, '\0'));
    m_folder.write(u"VOREL.MDB"_s, damaged);
    EXPECT_TRUE(upgrade());
    EXPECT_TRUE(count(u"TODO"_s) > 20 && count(u"TODO"_s) < 60) << count(u"TODO"_s);
    EXPECT_EQ(m_folder.read(u"VOREL.BAK.old"_s), kept);
    EXPECT_EQ(m_folder.read(u"VOREL.MDB.damaged"_s), damaged);
}

TEST_F(RebuildTest, compactingKeepsTheRowsAndGivesTheRoomBack)
{
    for (int i = 0; i < 60; ++i)
        execute(u"INSERT INTO [TODO] ([ToDo]) VALUES ('"_s + QString(200, u'x') + u"')"_s);
    execute(u"DELETE * FROM [TODO] WHERE [ID]<60"_s);
    m_folder.write(u"NEWDB.MDB"_s, "left by a kill");
    const auto before = QFileInfo(path()).size();
    CompactFile(path());
    EXPECT_LT(QFileInfo(path()).size(), before);
    EXPECT_EQ(rows(u"SELECT [ID] FROM [TODO]"_s), QStringList{u"60"_s});
    EXPECT_EQ(names(), QStringList{u"VOREL.MDB"_s});
    CompactFile(m_folder.path(u"GONE.MDB"_s));
}

TEST_F(RebuildTest, theCopysName)
{
    EXPECT_EQ(backupNameOf(u"/folder.with.points/VOREL.MDB"_s), u"/folder.with.points/VOREL.BAK"_s);
    EXPECT_EQ(backupNameOf(u"/folder/VOREL.2005.MDB"_s), u"/folder/VOREL.BAK"_s);
    EXPECT_EQ(backupNameOf(u"/folder/VOREL"_s), u"/folder/VOREL.BAK"_s);
}

}
