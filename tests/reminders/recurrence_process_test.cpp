#include "reminders/recurrence.h"
#include "store/mainfile.h"

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>

// Series saves in other processes: one that is killed on the way, and several at a time.
namespace vorel {

using namespace Qt::StringLiterals;

static const char fileVariable[] = "VOREL_TEST_SERIES_FILE";
static const char textVariable[] = "VOREL_TEST_SERIES_TEXT";
static const char savesVariable[] = "VOREL_TEST_SERIES_SAVES";

static SeriesFields dailyOrWeekly(const QString &text, bool daily)
{
    SeriesFields fields;
    fields.text = text;
    fields.date = basic::DateTime::fromParts(2026, 11, 22);
    fields.time = u"09:00 AM"_s;
    fields.days = daily ? 1 : 7;
    return fields;
}

// The other process: not a test of its own.
TEST(SeriesWriterProcess, DISABLED_savesOverAndOver)
{
    if (qEnvironmentVariableIsEmpty(fileVariable))
        GTEST_SKIP();
    basic::setClock([] { return QDateTime(QDate(2026, 11, 22), QTime(12, 0)); });
    basic::setRegional(basic::regionalFor(u"en_US"_s));
    state().path(DataFile::Main) = qEnvironmentVariable(fileVariable);
    const int saves = qEnvironmentVariableIntValue(savesVariable);
    for (int save = 0; save < saves; ++save) {
        dao::Database file = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
        CreateFutureDates(file, dailyOrWeekly(qEnvironmentVariable(textVariable), save % 2 == 0));
        std::puts("saved");
        std::fflush(stdout);
    }
}

class SeriesProcessTest : public test::MainFileTest {
protected:
    std::unique_ptr<QProcess> startWriter(const QString &text, int saves) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(fileVariable), path());
        environment.insert(QString::fromLatin1(textVariable), text);
        environment.insert(QString::fromLatin1(savesVariable), QString::number(saves));
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->start(QCoreApplication::applicationFilePath(),
                       {u"--gtest_also_run_disabled_tests"_s, u"--gtest_filter=SeriesWriterProcess.*"_s});
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }
    static void waitForSaves(QProcess &process, int wanted)
    {
        for (int seen = 0; seen < wanted;) {
            ASSERT_TRUE(process.canReadLine() || process.waitForReadyRead(60000));
            while (process.canReadLine())
                seen += process.readLine().startsWith("saved") ? 1 : 0;
        }
    }
    // After the first day, whose rows no save takes away.
    qsizetype countOf(const QString &text) const
    {
        return rows(u"SELECT [ID] FROM [Appointments] WHERE [Appointment]='%1' AND [Date]>#11/22/2026#;"_s.arg(text))
            .size();
    }
    static constexpr qsizetype daily = 404;     // from 23 November 2026 to 31 December 2027
    static constexpr qsizetype weekly = 57;
};

TEST_F(SeriesProcessTest, aKillLeavesAllOfASeriesOrNoneOfIt)
{
    execute(u"INSERT INTO [Appointments] ([Appointment], [Date]) VALUES ('Dentist', #12/24/2026#);"_s);
    for (int round = 0; round < 6; ++round) {
        auto writer = startWriter(u"Gym"_s, 1000000);
        waitForSaves(*writer, 1 + round % 3);   // it is already at the next one
        writer->kill();
        ASSERT_TRUE(writer->waitForFinished());
        EXPECT_EQ(writer->exitStatus(), QProcess::CrashExit);
        const qsizetype found = countOf(u"Gym"_s);
        EXPECT_TRUE(found == daily || found == weekly) << found;
        EXPECT_EQ(countOf(u"Dentist"_s), 1);
        EXPECT_EQ(GetDatabaseVersion(path()), 290);
    }
    dao::Database file = open();
    CreateFutureDates(file, dailyOrWeekly(u"Gym"_s, true));
    EXPECT_EQ(countOf(u"Gym"_s), daily);
}

TEST_F(SeriesProcessTest, twoProcessesWaitForEachOther)
{
    auto one = startWriter(u"Gym"_s, 5);
    auto two = startWriter(u"Walk"_s, 5);
    dao::Database file = open();
    for (int save = 0; save < 5; ++save)
        CreateFutureDates(file, dailyOrWeekly(u"Tea"_s, save % 2 == 0));
    for (QProcess *writer : {one.get(), two.get()}) {
        ASSERT_TRUE(writer->waitForFinished(120000));
        EXPECT_EQ(writer->exitCode(), 0) << writer->readAllStandardOutput().constData();
    }
    for (const QString &text : {u"Gym"_s, u"Walk"_s, u"Tea"_s})
        EXPECT_EQ(countOf(text), daily) << qPrintable(text);
}

}
