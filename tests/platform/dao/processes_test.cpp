#include "daotest.h"
#include "platform/dao/connection.h"
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

class Processes : public DaoTest {
protected:
    void SetUp() override
    {
        m_file = create();
        m_file.AppendTable(sample());
        addRows(m_file, { u"a"_s, u"b"_s, u"c"_s });
    }
    void TearDown() override { DBEngine::setLockWait(5000); }

    // An SQL statement, or one of the jobs above.
    void start(QProcess &process, const QString &job, const QString &file = u"DATA.MDB"_s, const QString &connect = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(jobVariable), QStringList { job, path(file), connect }.join(u'\n'));
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(),
                      { u"--gtest_filter=Child.DISABLED_Run"_s, u"--gtest_also_run_disabled_tests"_s });
        ASSERT_TRUE(process.waitForStarted());
    }
    // What the other process says next, without its mark.
    QString word(QProcess &process)
    {
        while (true) {
            while (process.canReadLine()) {
                const QString line = QString::fromUtf8(process.readLine()).trimmed();
                if (line.startsWith(u'#'))
                    return line.mid(1);
            }
            if (!process.waitForReadyRead(30000))
                return {};
        }
    }
    void run(const QString &job)
    {
        QProcess process;
        start(process, job);
        ASSERT_TRUE(process.waitForFinished(60000));
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardOutput().constData();
    }
    Database m_file;
};

TEST_F(Processes, ChangesOfOthersAreSeen)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"a"_s));
    EXPECT_EQ(rows.cell(1, 1), Value(u"b"_s));
    run(update);
    run(u"DELETE FROM SAMPLE WHERE ID=2"_s);
    run(u"CREATE TABLE MORE (A LONG)"_s);
    DBEngine::Idle(dbRefreshCache);
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"other"_s));
    EXPECT_EQ(rows.cell(1, 1), Value());
    EXPECT_EQ(rows.rowTotal(), 3);
    rows.MoveNext();
    EXPECT_EQ(errorOf([&] { rows.Get(u"NAME"); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3167);
    EXPECT_TRUE(m_file.hasTable(u"MORE"));
    EXPECT_EQ(m_file.OpenRecordset(u"SELECT A FROM MORE"_s).rowTotal(), 0);
}

TEST_F(Processes, ARowChangedSinceEditIsNotOverwritten)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    rows.Edit();
    rows.Set(u"LARGE", 99);
    run(update);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3197);
    EXPECT_TRUE(rows.editPending());
    rows.CancelUpdate();
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"other"_s));
    EXPECT_EQ(rows.Get(u"LARGE"), Value(1));
    edit(rows, { { u"LARGE", 99 } });
    EXPECT_EQ(rows.Get(u"LARGE"), Value(99));
}

TEST_F(Processes, ANumberTakenMeanwhileIsReplaced)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    rows.AddNew();
    EXPECT_EQ(rows.Get(u"ID"), Value(4));
    rows.Set(u"NAME", u"ours"_s);
    run(u"INSERT INTO SAMPLE (NAME) VALUES ('theirs')"_s);
    rows.Update();
    rows.setBookmark(rows.LastModified());
    EXPECT_EQ(rows.Get(u"ID"), Value(5));
    EXPECT_EQ(m_file.OpenRecordset(u"SELECT * FROM SAMPLE WHERE NAME IN ('ours','theirs')"_s).rowTotal(), 2);
}

TEST_F(Processes, AWriteWaitsAndThenReportsALock)
{
    QProcess other;
    start(other, u"hold"_s);
    ASSERT_EQ(word(other), u"ready");
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
            QProcess other;
            start(other, u"open"_s, name, password);
            const QString result = word(other);
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
    m_file.Close();
    DBEngine::Forget(path());
    QProcess other;
    start(other, u"kill"_s);
    ASSERT_EQ(word(other), u"ready");
    DBEngine::setLockWait(50);
    EXPECT_NE(errorOf([&] { DBEngine::OpenDatabase(path(), true); }), 0);
    EXPECT_TRUE(QFile::exists(path() + u"-journal"_s));
    other.kill();
    other.waitForFinished();
    m_file = DBEngine::OpenDatabase(path(), true);
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);
}

// A screen asks many statements in a row. The wait is spent on a clock of the test's own.
TEST_F(Processes, AfterOneVainWaitTheNextStatementsFailAtOnce)
{
    static qint64 now, slept;
    now = slept = 0;
    const LockClock before = setLockClock({ [] { return now; }, [](int pause) { now += pause; slept += pause; } });
    DBEngine::setLockWait(5000);
    QProcess other;
    start(other, u"hold"_s);
    ASSERT_EQ(word(other), u"ready");
    const auto write = [&] { return errorOf([&] { m_file.Execute(u"UPDATE SAMPLE SET LARGE=7"_s); }); };
    EXPECT_EQ(write(), 3218);
    EXPECT_EQ(slept, 5000);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(write(), 3218);
    EXPECT_EQ(slept, 5000);
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);     // what needs no lock is not refused
    now += 5000;
    EXPECT_EQ(write(), 3218);       // after a while it is worth waiting again
    EXPECT_EQ(slept, 10000);
    other.write("go\n");
    other.waitForFinished();
    EXPECT_EQ(write(), 0);
    QProcess next;                  // and what got through ends the time early
    start(next, u"hold"_s);
    ASSERT_EQ(word(next), u"ready");
    EXPECT_EQ(write(), 3218);
    EXPECT_EQ(slept, 15000);
    next.kill();
    next.waitForFinished();
    setLockClock(before);
}

// However often it is opened: 5 s once, not for each.
TEST_F(Processes, AFileThatIsLockedForLongIsAskedForQuickly)
{
    static qint64 now, slept;
    now = slept = 0;
    const LockClock before = setLockClock({ [] { return now; }, [](int pause) { now += pause; slept += pause; } });
    DBEngine::setLockWait(5000);
    m_file.Close();
    DBEngine::Forget(path());
    QProcess other;
    start(other, u"exclusive"_s);
    ASSERT_EQ(word(other), u"ready");
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path()); }), 3356);
    EXPECT_EQ(slept, 5000);
    other.kill();
    other.waitForFinished();
    setLockClock(before);
    m_file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 3);
}

TEST_F(Processes, AKillLeavesAllOrNone)
{
    QProcess other;
    start(other, u"kill"_s);
    ASSERT_EQ(word(other), u"ready");
    other.kill();
    other.waitForFinished();
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
    m_file.Close();
    DBEngine::Forget(path());
    QProcess other;
    start(other, u"hold"_s);
    ASSERT_EQ(word(other), u"ready");
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(QByteArray(100, 'x'));
    file.close();
    const QByteArray before = contentOf(path());
    DBEngine::setLockWait(50);
    EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path()); }), 3356);
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_FALSE(QFile::exists(path() + u".damaged"_s));
    other.kill();
    other.waitForFinished();
}

TEST_F(Processes, AFullDiskIsToldAndLosesNothing)
{
    QProcess other;
    start(other, u"full"_s);
    EXPECT_EQ(word(other), u"3026 Not enough space on disk.");
    EXPECT_EQ(word(other), u"pending kept");
    other.waitForFinished();
    EXPECT_EQ(other.exitCode(), 0);
    DBEngine::Idle();
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    EXPECT_EQ(rows.rowTotal(), 4);
    rows.MoveLast();
    EXPECT_EQ(rows.Get(u"NOTE"), Value(u"short"_s));
}

}
