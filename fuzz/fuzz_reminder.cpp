#include "fuzzing.h"

#include "calendar/picker.h"
#include "frame/periods.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "reminders/alerts.h"
#include "reminders/record.h"
#include "reminders/recurrence.h"
#include "session/datafiles.h"
#include "session/datetexts.h"
#include "session/shared.h"
#include "store/rebuild.h"

// Lines: display format, date, time, days, months, amount, week number, week day, text. Everything that a typing user reaches.
using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

void views(const QStringList &lines)
{
    const basic::DateTime now = basic::Now();
    state().settings.gDateDisplay = lines[0];
    displayDate(now), displayDate(lines[1]), typedDate(lines[1], lines[0]), typedTime(lines[2]), shortDate(lines[1]);
    for (const PeriodEntry &period : periodTable()) {
        fuzz::guarded([&] { period.set(); BuildPeriodQueries(); });
        fuzz::guarded([&] { period.caption(); periodCaption(); });
    }
    fuzz::guarded([&] { FormatDateForSql(lines[1], true); });
    MoneyValue(lines[5]), NormaliseKey(lines[8]);
    const std::vector<AppointmentRow> rows{{1, now.dayOnly(), lines[2], lines[8], false}, {2, basic::Value(lines[1]), lines[2], {}, false}};
    alertsFor(rows, {true, 30000, 30000}, now);
    const auto date = reminders::storedDay(lines[1]);
    if (date) {
        fuzz::guarded([&] { GetAge(*date); GetStarSign(*date); storedDateText(*date); });
        monthsAway(*date, reminders::wholeNumber(lines[4]));
    }
    reminders::weekDayOf(date), reminders::moneyText(lines[5]), reminders::webAddress(lines[8]);
    reminders::frequencyOf(lines[4], lines[3], lines[6], lines[7]);
    for (int option = 0; option <= reminders::noOption; ++option)
        reminders::nextDate(option, date, lines[3]), reminders::appliedPeriod(option, lines[3]);
}

// As many rows as were announced; the screen asks before it makes more than some thousands.
void series(const QStringList &lines, ReminderKind kind)
{
    constexpr int many = 5000, byWeekday = 24;      // one a month over two years
    SeriesFields fields;
    fields.kind = kind;
    fields.text = lines[8];
    fields.date = typedDate(lines[1], lines[0]);
    fields.time = lines[2];
    fields.amount = reminders::amount(lines[5]);
    fields.months = reminders::wholeNumber(lines[4]);
    fields.days = reminders::wholeNumber(lines[3]);
    fields.weekNum = lines[6];
    fields.weekDay = lines[7];
    fields.weekdayRule = true;
    fields.fixedAmount = lines[5].size() % 2;
    const int announced = seriesLength(fields);
    if (announced > many)
        return;
    dao::Database file = openDataFile(DataFile::Main);
    if (canHaveSeries(fields))
        fuzz::guarded([&] { createSeries(file, fields); });
    const qsizetype rows = file.OpenRecordset(kind == ReminderKind::Bill ? u"Bills"_s : u"Appointments"_s).rowTotal();
    fuzz::require(rows <= announced + byWeekday, u"%1 rows, %2 were announced"_s.arg(rows).arg(announced));
    fuzz::guarded([] { RollForwardDates(); });
    fuzz::guarded([] { PurgeExpiredRows(); });
    for (const char *table : {"Appointments", "Bills"})
        file.Execute(u"DELETE * FROM "_s + QString::fromLatin1(table));
    file.Close();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool ready = [] {
        basic::setClock([] { return QDateTime(QDate(2026, 11, 22), QTime(12, 0)); });
        state().path(DataFile::Main) = fuzz::path(u"VOREL.MDB"_s);
        return UpgradeDatabase(DataFile::Main, state().path(DataFile::Main), 290);
    }();
    Q_UNUSED(ready);
    const fuzz::Input input(data, size, 9);
    fuzz::setRegion(input.choice);
    DetectDateOrder();
    fuzz::guarded([&] { views(input.lines); });
    series(input.lines, input.choice & 4 ? ReminderKind::Bill : ReminderKind::Appointment);
    return 0;
}
