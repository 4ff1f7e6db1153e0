#include "platform/basic/error.h"
#include "platform/basic/task.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>
#include <gtest/gtest.h>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

using Number = std::optional<int>;
using Ends = QStringList;

// Notes what the task ended with, and that it did so on this thread.
auto note(Ends &ends)
{
    return [&ends, home = QThread::currentThread()](const TaskOutcome<int> &outcome) {
        EXPECT_EQ(QThread::currentThread(), home);
        try {
            ends << (outcome.isStopped() ? u"stopped"_s : QString::number(outcome.value()));
        } catch (const Error &error) {
            ends << u"error "_s + QString::number(error.number());
        } catch (const std::bad_alloc &) {
            ends << u"no memory"_s;
        }
    };
}

void waitFor(const Task &task)
{
    while (task.isRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

Number untilCancelled(TaskContext &context)
{
    while (!context.isCancelled())
        QThread::usleep(100);
    return std::nullopt;
}

}

TEST(Task, ItsOutcomeComesBackOnTheCallersThread)
{
    Task task;
    Ends ends;
    const auto home = QThread::currentThread();
    const struct {
        std::function<Number(TaskContext &)> work;
        QString end;
    } cases[] = {
        {[home](TaskContext &) -> Number { return QThread::currentThread() == home ? 0 : 7; }, u"7"_s},
        {[](TaskContext &) -> Number { throw BasicError(61); }, u"error 61"_s},
        {[](TaskContext &) -> Number { throw std::bad_alloc(); }, u"no memory"_s},
        {[](TaskContext &) -> Number { return std::nullopt; }, u"stopped"_s},
    };
    for (const auto &one : cases) {
        task.start(one.work, note(ends));
        EXPECT_TRUE(task.isRunning());
        waitFor(task);
    }
    EXPECT_EQ(ends, Ends({u"7"_s, u"error 61"_s, u"no memory"_s, u"stopped"_s}));
}

TEST(Task, ItTellsHowFarItIsWithoutFloodingTheCaller)
{
    Task task;
    Ends ends;
    QSemaphore reported, seen;
    int progressed = 0;
    QObject::connect(&task, &Task::progressed, &task, [&] { ++progressed; });
    task.start([&](TaskContext &context) -> Number {
        for (int i = 1; i <= 10'000; ++i)
            context.progress(i, 20'000, u"half"_s);
        reported.release();
        seen.acquire();
        context.progress(20'000, 20'000, u"all"_s);
        return 1;
    }, note(ends));
    reported.acquire();                         // without the event loop, so that the reports pile up
    QCoreApplication::processEvents();
    EXPECT_EQ(progressed, 1);
    EXPECT_EQ(task.progress().done, 10'000);
    EXPECT_EQ(task.progress().text, u"half"_s);
    seen.release();
    waitFor(task);
    EXPECT_EQ(progressed, 2) << "and again once the first was heard";
}

TEST(Task, AWishToStopIsTheWorkersToGrant)
{
    Task task;
    Ends ends;
    task.start(untilCancelled, note(ends));
    task.cancel();
    EXPECT_TRUE(task.isRunning()) << "until it has cleaned up";
    waitFor(task);
    task.start([&](TaskContext &context) { untilCancelled(context); return Number(3); }, note(ends));
    task.cancel();
    waitFor(task);
    EXPECT_EQ(ends, Ends({u"stopped"_s, u"3"_s})) << "what was done in time counts";

    task.start(untilCancelled, note(ends));
    task.start([](TaskContext &context) -> Number { return context.isCancelled() ? 0 : 4; }, note(ends));
    waitFor(task);
    EXPECT_EQ(ends.mid(2), Ends({u"4"_s})) << "the one that was replaced says nothing";
}

TEST(Task, TheDeathOfItsOwnerStopsTheWorker)
{
    Ends ends;
    std::atomic<bool> ended = false;
    {
        QObject owner;
        auto *task = new Task(&owner);
        QObject::connect(task, &Task::ended, task, [&] { ends << u"signal"_s; });
        task->start([&](TaskContext &context) {
            context.progress(1, 2);
            untilCancelled(context);
            ended = true;
            return Number();
        }, note(ends));
    }
    EXPECT_TRUE(ended) << "waited for";
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, Ends()) << "nobody is called any more";

    // The outcome may end the task itself.
    auto task = std::make_unique<Task>();
    task->start([](TaskContext &) { return Number(1); }, [&](const TaskOutcome<int> &) { task.reset(); });
    while (task)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
