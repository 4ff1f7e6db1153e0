#include "reminders/recurrence.h"
#include "store/upgrade.h"
#include "testdata.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

// What the data costs at every start over 100,000 appointments: the upgrade pass and the two reminder passes. The whole
// start has 250 ms, most of which the screens need; a quarter of it is theirs.
using namespace vorel;
using namespace Qt::StringLiterals;

static void measure(const QString &name, const std::function<void()> &pass, double budget)
{
    constexpr int runs = 9;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        pass();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    bench::report(name, times, budget);
}

static void measurePasses(const QString &path, const QString &name, const bench::AppointmentData &data)
{
    bench::makeMainFile(path);
    bench::addAppointments(path, data);
    measure(u"upgrade pass, "_s + name, [] { UpgradeAllDatabases(); }, 5);
    measure(u"roll-forward, "_s + name, [] { RollForwardDates(); }, 35);
    measure(u"purge, "_s + name, [] { PurgeExpiredRows(); }, 25);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    measurePasses(folder.filePath(u"SOME.MDB"_s), u"2,000 rows of series"_s, {});
    measurePasses(folder.filePath(u"MANY.MDB"_s), u"60,000 rows of series"_s, {.rows = 100000, .seriesRows = 60000});
    return 0;
}
