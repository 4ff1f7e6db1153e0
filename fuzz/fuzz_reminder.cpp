#include "fuzzing.h"

#include "calendar/picker.h"
#include "frame/celltexts.h"
#include "frame/periods.h"
#include "session/shared.h"
#include "frame/startup.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "reminders/alerts.h"
#include "reminders/record.h"
#include "store/rebuild.h"

// Lines: display format, date, time, days, months, amount, week number, week day, text. Everything that a typing user reaches.
using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

void views(const QStringList &lines)
{
    const basic::DateTime now = basic::Now();
    state().settings.gDateDisplay = lines[0];
    displayDate(now), displayDate(lines[1]), typedDate(lines[1]), typedTime(lines[2]), shortDate(lines[1]);
    for (const PeriodEntry &period : periodTable()) {
        fuzz::guarded([&] { period.set(); BuildPeriodQueries(); });
        fuzz::guarded([&] { period.caption(); periodCaption(); });
    }
    fuzz::guarded([&] { FormatDateForSql(lines[1], true); });
    MoneyValue(lines[5]), NormaliseKey(lines[8]), pickerDate(lines[1]);
    const std::vector<AppointmentRow> rows{{1, now.dayOnly(), lines[2], lines[8], false}, {2, basic::Value(lines[1]), lines[2], {}, false}};
    alertsFor(rows, {true, 30000, 30000}, now);
    const auto date = record::dateOf(lines[1]);
    if (date) {
        fuzz::guarded([&] { GetAge(*date); GetStarSign(*date); record::dayMonthYear(*date); });
        fuzz::guarded([&] { monthsAway(*date, static_cast<int>(record::number(lines[4]))); });
    }
    record::weekDayOf(date), record::moneyText(lines[5]), record::webAddress(lines[8]);
    record::FormatDates({lines[1], lines[0], lines[2], lines[3]}, date);
    record::frequencyOf(lines[4], lines[3], lines[6], lines[7]);
    for (int option = 0; option <= record::noOption; ++option)
        fuzz::guarded([&] { record::nextDate(option, date, lines[3]); record::appliedPeriod(option, lines[3]); });
}

void series(const QStringList &lines, ReminderKind kind)
{
    SeriesFields fields{.kind = kind, .text = lines[8], .date = lines[1], .time = lines[2], .amount = lines[5], .website = {},
                        .periodMonth = lines[4], .periodDays = lines[3], .weekNum = lines[6], .weekDay = lines[7]};
    fields.weekdayRule = true;
    fields.fixedAmount = lines[5].size() % 2;
    fuzz::guarded([&] { createSeries(fields); });
    dao::Database file = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    const qsizetype rows = file.OpenRecordset(kind == ReminderKind::Bill ? u"Bills"_s : u"Appointments"_s).rowTotal();
    fuzz::require(rows < 100'000, u"one save made %1 rows"_s.arg(rows));
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
