#include "platform/dao/connection.h"
#include "script.h"
#include "support/fulldisk.h"

#include <QProcess>
#include <cstdio>

// Several processes on one file. The other process is this program, started for one job.
namespace vorel::dao::test {

namespace {

const char *const jobVariable = "VOREL_DAO_CHILD";
const QString update = u"UPDATE SAMPLE SET NAME='other' WHERE ID=1"_s;

void say(const QString &word)
{
    std::printf("#%s\n", word.toUtf8().constData());
    std::fflush(stdout);
}

void waitForWord()
{
    char line[64];
    if (!std::fgets(line, sizeof line, stdin))
        std::_Exit(1);
}

void holdTransaction(const QString &path)
{
    Database file = DBEngine::OpenDatabase(path);
    Transaction all(file);
    file.Execute(update);
    say(u"ready"_s);
    waitForWord();
    all.Commit();
}

// Far more than the cache holds, so that half of it is in the file when the process dies.
void writeUntilKilled(const QString &path)
{
    Database file = DBEngine::OpenDatabase(path);
    Transaction all(file);
    file.Execute(u"DELETE FROM SAMPLE"_s);
    Recordset rows = file.OpenRecordset(u"SAMPLE"_s);
    for (int i = 0; i < 300; ++i)
        add(rows, { { u"NOTE", QString(50000, u'x') } });
    say(u"ready"_s);
    waitForWord();
}

void fillTheDisk(const QString &path)
{
    Database file = DBEngine::OpenDatabase(path);
    Recordset rows = file.OpenRecordset(u"SAMPLE"_s);
    const vorel::test::FullDisk full(256 * 1024);
    rows.AddNew();
    rows.Set(u"NOTE", QString(900000, u'x'));
    try {
        rows.Update();
        say(u"written"_s);
    } catch (const EngineError &error) {
        say(u"%1 %2"_s.arg(error.number()).arg(error.text()));
    }
    rows.Set(u"NOTE", u"short"_s);
    rows.Update();
    say(u"pending kept"_s);
}

void runJob(const QStringList &job)
{
    const QString path = job.value(1);
    if (job[0] == u"hold") {
        holdTransaction(path);
    } else if (job[0] == u"exclusive") {
        const Database file = DBEngine::OpenDatabase(path, true);
        say(u"ready"_s);
        waitForWord();
    } else if (job[0] == u"open") {
        DBEngine::setLockWait(50);
        say(QString::number(errorOf([&] { DBEngine::OpenDatabase(path, false, false, job.value(2)); })));
    } else if (job[0] == u"kill") {
        writeUntilKilled(path);
    } else if (job[0] == u"full") {
        fillTheDisk(path);
    } else {
        DBEngine::OpenDatabase(path).Execute(job[0]);
    }
}

}

TEST(Child, DISABLED_Run)
{
    const QString job = qEnvironmentVariable(jobVariable);
    if (!job.isEmpty())
        runJob(job.split(u'\n'));
}

class Processes : public Script {
protected:
    Processes()
    {
        m_verbs[u"other"_s] = [this](const QString &sql) { run(sql); return QString(); };
        m_verbs[u"idle"_s] = [](const QString &) { DBEngine::Idle(dbRefreshCache); return QString(); };
    }
    void SetUp() override
    {
        Script::SetUp();
        addRows(m_file, { u"a"_s, u"b"_s, u"c"_s });
    }
    void TearDown() override { DBEngine::setLockWait(5000); }
    void closeFile()
    {
        m_file.Close();
        DBEngine::Forget(path());
    }

    // Another process at an SQL statement, or at one of the jobs above.
    struct Other : QProcess {
        explicit Other(const QString &job, const QString &file, const QString &connect = {})
        {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QString::fromLatin1(jobVariable), QStringList { job, file, connect }.join(u'\n'));
            setProcessEnvironment(environment);
            start(QCoreApplication::applicationFilePath(), { u"--gtest_filter=Child.DISABLED_Run"_s, u"--gtest_also_run_disabled_tests"_s });
            EXPECT_TRUE(waitForStarted());
            if (QStringList { u"hold"_s, u"exclusive"_s, u"kill"_s }.contains(job)) {
                EXPECT_EQ(word(), u"ready");
            }
        }
        // What it says next, without its mark.
        QString word()
        {
            while (true) {
                while (canReadLine()) {
                    const QString line = QString::fromUtf8(readLine()).trimmed();
                    if (line.startsWith(u'#'))
                        return line.mid(1);
                }
                if (!waitForReadyRead(30000))
                    return {};
            }
        }
        void letGo()
        {
            write("go\n");
            EXPECT_TRUE(waitForFinished());
        }
        void end()
        {
            kill();
            waitForFinished();
        }
    };
    void run(const QString &job)
    {
        Other process(job, path());
        ASSERT_TRUE(process.waitForFinished(60000));
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardOutput().constData();
    }
};

// The waits are spent on a clock of the test's own.
struct VainWaits {
    VainWaits() { now = slept = 0; DBEngine::setLockWait(5000); }
    ~VainWaits() { setLockClock(before); }
    static inline qint64 now, slept;
    const LockClock before = setLockClock({ [] { return now; }, [](int pause) { now += pause; slept += pause; } });
};

TEST_F(Processes, ChangesOfOthersAreSeen) { play("changed elsewhere"); }
TEST_F(Processes, ARowChangedSinceEditIsNotOverwritten) { play("changed since Edit"); }
TEST_F(Processes, ANumberTakenMeanwhileIsReplaced) { play("number taken meanwhile"); }

TEST_F(Processes, AWriteWaitsAndThenReportsALock)
{
    Other other(u"hold"_s, path());
    DBEngine::setLockWait(50);
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    rows.MoveLast();
    rows.Edit();
    rows.Set(u"NAME", u"mine"_s);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3218);
    EXPECT_TRUE(rows.editPending());
    EXPECT_EQ(errorOf([&] { Transaction all(m_file); }), 3218);
    DBEngine::setLockWait(5000);
    other.write("go\n");
    other.waitForBytesWritten();
    rows.Update();                      // waits for the other's end
    ASSERT_TRUE(other.waitForFinished());
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"mine"_s));
    DBEngine::Idle();
    EXPECT_EQ(m_file.OpenRecordset(u"SELECT NAME FROM SAMPLE WHERE ID=1"_s).Get(0), Value(u"other"_s));
}

TEST_F(Processes, AnExclusiveHandleKeepsOthersOut)
{
    create(u"LOCKED.MDB"_s, protectedConnect).AppendTable(sample());
    for (const auto &[file, connect] : { std::pair(u"DATA.MDB"_s, QString()), std::pair(u"LOCKED.MDB"_s, protectedConnect) }) {
        const auto elsewhere = [&, name = file, password = connect] {
            Other other(u"open"_s, path(name), password);
            const QString result = other.word();
            other.waitForFinished();
            return result;
        };
        DBEngine::Forget(path(file));
        for (int time = 0; time < 2; ++time) {
            if (file == u"DATA.MDB")
                m_file.Close();
            Database held = DBEngine::OpenDatabase(path(file), true, false, connect);
            held.Execute(u"UPDATE SAMPLE SET LARGE=7"_s);
            EXPECT_EQ(elsewhere(), u"3356") << file.toStdString() << time;
            held.Close();
            EXPECT_EQ(elsewhere(), u"0");
            m_file = DBEngine::OpenDatabase(path());
        }
    }
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), (QStringList { u"DATA.MDB"_s, u"LOCKED.MDB"_s }));
}

TEST_F(Processes, AnExclusiveOpeningLeavesAnothersWriteAlone)
{
    closeFile();
    Other other(u"kill"_s, path());
    DBEngine::setLockWait(50);
    EXPECT_NE(errorOf([&] { DBEngine::OpenDatabase(path(), true); }), 0);
    EXPECT_TRUE(QFile::exists(path() + u"-journal"_s));
    other.end();
    m_file = DBEngine::OpenDatabase(path(), true);
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);
}

// A screen asks many statements in a row. The wait is spent on a clock of the test's own.
TEST_F(Processes, AfterOneVainWaitTheNextStatementsFailAtOnce)
{
    const VainWaits clock;
    Other other(u"hold"_s, path());
    const auto write = [&] { return errorOf([&] { m_file.Execute(u"UPDATE SAMPLE SET LARGE=7"_s); }); };
    EXPECT_EQ(write(), 3218);
    EXPECT_EQ(clock.slept, 5000);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(write(), 3218);
    EXPECT_EQ(clock.slept, 5000);
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);     // what needs no lock is not refused
    VainWaits::now += 5000;
    EXPECT_EQ(write(), 3218);       // after a while it is worth waiting again
    EXPECT_EQ(clock.slept, 10000);
    other.letGo();
    EXPECT_EQ(write(), 0);
    Other next(u"hold"_s, path());                  // and what got through ends the time early
    EXPECT_EQ(write(), 3218);
    EXPECT_EQ(clock.slept, 15000);
    next.end();
}

// However often it is opened: 5 s once, not for each.
TEST_F(Processes, AFileThatIsLockedForLongIsAskedForQuickly)
{
    const VainWaits clock;
    closeFile();
    Other other(u"exclusive"_s, path());
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path()); }), 3356);
    EXPECT_EQ(clock.slept, 5000);
    other.end();
    m_file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);
}

TEST_F(Processes, AKillLeavesAllOrNone)
{
    Other other(u"kill"_s, path());
    other.end();
    DBEngine::Idle();
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE ORDER BY ID"_s);
    ASSERT_EQ(rows.rowTotal(), 3);
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"a"_s));
    rows.Close();
    m_file.Close();
    const QByteArray before = contentOf(path());
    DBEngine::RepairDatabase(path());   // finds nothing to mend
    EXPECT_EQ(contentOf(path()), before);
}

TEST_F(Processes, ADamagedFileInUseIsNotMended)
{
    closeFile();
    Other other(u"hold"_s, path());
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(QByteArray(100, 'x'));
    file.close();
    const QByteArray before = contentOf(path());
    DBEngine::setLockWait(50);
    EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path()); }), 3356);
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_FALSE(QFile::exists(path() + u".damaged"_s));
    other.end();
}

TEST_F(Processes, AFullDiskIsToldAndLosesNothing)
{
    Other other(u"full"_s, path());
    EXPECT_EQ(other.word(), u"3026 Not enough space on disk.");
    EXPECT_EQ(other.word(), u"pending kept");
    other.waitForFinished();
    EXPECT_EQ(other.exitCode(), 0);
    DBEngine::Idle();
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    EXPECT_EQ(rows.rowTotal(), 4);
    rows.MoveLast();
    EXPECT_EQ(rows.Get(u"NOTE"), Value(u"short"_s));
}

}
