#include "testdata.h"

#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/locale.h"
#include "session/state.h"
#include "store/designs.h"
#include "store/rebuild.h"
#include "store/upgrade.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

namespace vorel::bench {

using namespace Qt::StringLiterals;

basic::DateTime benchDay()
{
    return basic::DateTime::fromParts(2026, 11, 22);
}

void makeMainFile(const QString &path)
{
    basic::setClock([] { return QDateTime(QDate(2026, 11, 22), QTime(9, 0)); });
    basic::setRegional(basic::regionalFor(u"en_US"_s));
    state().path(DataFile::Main) = path;
    UpgradeDatabase(DataFile::Main, path, store::currentVersion);
    UpgradeAllDatabases();
}

static void addRow(dao::Recordset &rows, const QString &text, basic::DateTime date, bool repeats)
{
    rows.AddNew();
    rows.Set(u"DATE", date);
    rows.Set(u"DAY", u"Sun"_s);
    rows.Set(u"APPTIME", u"09:00 AM"_s);
    rows.Set(u"APPOINTMENT", text);
    rows.Set(u"TimeUpdate", true);
    if (repeats)
        rows.Set(u"PeriodDays", std::int16_t{7});
    rows.Update();
}

void addAppointments(const QString &path, const AppointmentData &data)
{
    constexpr int rowsOfASeries = 50;
    dao::Database database = dao::DBEngine::OpenDatabase(path);
    dao::Transaction all(database);
    dao::Recordset rows = database.OpenRecordset(u"select * from [Appointments];"_s, dao::dbOpenDynaset);
    for (int row = 0; row < data.rows; ++row) {
        const bool repeats = row < data.seriesRows;
        const int days = repeats ? (row % rowsOfASeries - rowsOfASeries / 2) * 7 : row % 3650 - 1825;
        addRow(rows, repeats ? u"Course number %1"_s.arg(row / rowsOfASeries) : u"Visit of customer %1"_s.arg(row),
               basic::DateAdd(u"d", days, benchDay()), repeats);
    }
    rows.Close();
    all.Commit();
    database.Close();
}

std::vector<double> timesOf(const std::function<void()> &step)
{
    std::vector<double> times;
    for (int run = 0; run < 9; ++run) {
        QElapsedTimer timer;
        timer.start();
        step();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return times;
}

void report(const QString &name, std::vector<double> milliseconds, double budget)
{
    std::sort(milliseconds.begin(), milliseconds.end());
    const double median = milliseconds[milliseconds.size() / 2];
    std::printf("%s: %.1f ms, %.2f of the budget of %.0f ms\n", qPrintable(name), median, median / budget, budget);
    std::fflush(stdout);
}

}
