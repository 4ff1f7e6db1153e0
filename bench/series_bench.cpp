#include "reminders/recurrence.h"
#include "testdata.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

// A daily series to the end of next year, saved: over an empty file and over a full one.
using namespace vorel;
using namespace Qt::StringLiterals;

static void measure(const QString &name, const QString &start)
{
    constexpr int runs = 9;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        SeriesFields fields;
        fields.text = u"Daily walk %1"_s.arg(run);
        fields.date = start;
        fields.time = u"09:00 AM"_s;
        fields.periodDays = u"1"_s;
        fields.periodMonth = u"0"_s;
        QElapsedTimer timer;
        timer.start();
        createSeries(fields);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    bench::report(name, times, 100);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(u"VOREL.MDB"_s);
    bench::makeMainFile(path);
    measure(u"730 rows, empty file"_s, u"01/01/2026"_s);
    bench::addAppointments(path, {});
    measure(u"730 rows, over 100,000 rows"_s, u"01/01/2026"_s);
    return 0;
}
