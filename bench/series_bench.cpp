#include "reminders/recurrence.h"
#include "session/state.h"
#include "testdata.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

// A daily series to the end of next year, saved: over an empty file and over a full one.
using namespace vorel;
using namespace Qt::StringLiterals;

static void measure(const QString &name)
{
    constexpr int runs = 9;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        SeriesFields fields;
        fields.text = u"Daily walk %1"_s.arg(run);
        fields.date = basic::DateTime::fromParts(2026, 1, 1);
        fields.time = u"09:00 AM"_s;
        fields.days = 1;
        QElapsedTimer timer;
        timer.start();
        dao::Database file = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
        createSeries(file, fields);
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
    measure(u"730 rows, empty file"_s);
    bench::addAppointments(path, {});
    measure(u"730 rows, over 100,000 rows"_s);
    return 0;
}
