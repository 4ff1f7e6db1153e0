#include "platform/dao/jet/functions_sql.h"

#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/storedtime.h"
#include "platform/dao/jet/translator.h"

namespace vorel::dao::jet {

namespace {

basic::StoredTime timeOf(sqlite3_value *value)
{
    basic::StoredTime time;
    if (!basic::readStored(utf8Of(value), time))
        throw UnreadableDate();
    return time;
}

basic::DateTime dateTimeOf(sqlite3_value *value)
{
    return basic::dateTimeOf(timeOf(value));
}

void resultTime(sqlite3_context *context, const basic::StoredTime &time)
{
    const auto stored = basic::writeStored(time);
    sqlite3_result_text(context, stored.data(), static_cast<int>(stored.size()), SQLITE_TRANSIENT);
}

template <int basic::StoredTime::*part>
void partOf(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int(context, timeOf(values[0]).*part);
}

// Rolls over months and days; years of two digits are 1930 to 2029.
void dateSerial(sqlite3_context *context, sqlite3_value **values, int)
{
    qint64 year = sqlite3_value_int64(values[0]);
    const qint64 month = sqlite3_value_int64(values[1]);
    const qint64 day = sqlite3_value_int64(values[2]);
    if (year >= 0 && year < 100)
        year += year < 30 ? 2000 : 1900;
    constexpr qint64 limit = 4000000;
    if (std::abs(year) > 10000 || std::abs(month) > limit || std::abs(day) > limit) {
        fail(context, err::DateOutOfRange);
        return;
    }
    const qint64 months = year * 12 + month - 1;
    const qint64 wholeYear = months >= 0 ? months / 12 : (months - 11) / 12;
    const qint64 first = basic::detail::daysFromCivil(wholeYear, static_cast<int>(months - wholeYear * 12) + 1, 1);
    basic::StoredTime time;
    if (basic::fromDayNumber(first + day - 1, time))
        resultTime(context, time);
    else
        fail(context, err::DateOutOfRange);
}

void timeSerial(sqlite3_context *context, sqlite3_value **values, int)
{
    resultStored(context, basic::TimeSerial(sqlite3_value_int(values[0]), sqlite3_value_int(values[1]),
                                            sqlite3_value_int(values[2])).serial());
}

void datePlus(sqlite3_context *context, sqlite3_value **values, int)
{
    // Serials before the epoch run backwards within a day; whole days are added to the day, the rest to the time.
    basic::StoredTime time = timeOf(values[0]);
    const double days = std::floor(sqlite3_value_double(values[1]));
    const double fraction = sqlite3_value_double(values[1]) - days;
    if (!(std::fabs(days) < 4e6)) {
        fail(context, err::DateOutOfRange);
        return;
    }
    qint64 seconds = time.hour * 3600 + time.minute * 60 + time.second + std::llround(fraction * 86400);
    const qint64 day = basic::detail::daysFromCivil(time.year, time.month, time.day) + static_cast<qint64>(days) + seconds / 86400;
    seconds %= 86400;
    if (!basic::fromDayNumber(day, time)) {
        fail(context, err::DateOutOfRange);
        return;
    }
    time.hour = static_cast<int>(seconds / 3600);
    time.minute = static_cast<int>(seconds / 60 % 60);
    time.second = static_cast<int>(seconds % 60);
    resultTime(context, time);
}

void serial(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_double(context, dateTimeOf(values[0]).serial());
}

void toDate(sqlite3_context *context, sqlite3_value **values, int)
{
    resultStored(context, sqlite3_value_double(values[0]));
}

void dayOnly(sqlite3_context *context, sqlite3_value **values, int)
{
    basic::StoredTime time = timeOf(values[0]);
    time.hour = time.minute = time.second = 0;
    resultTime(context, time);
}

void timeOnly(sqlite3_context *context, sqlite3_value **values, int)
{
    const basic::StoredTime time = timeOf(values[0]);
    resultTime(context, {.hour = time.hour, .minute = time.minute, .second = time.second});
}

void dateAdd(sqlite3_context *context, sqlite3_value **values, int)
{
    resultStored(context, basic::DateAdd(textOf(values[0]), sqlite3_value_double(values[1]),
                                         dateTimeOf(values[2])).serial());
}

int argumentOr(sqlite3_value **values, int count, int index, int otherwise)
{
    return index < count ? sqlite3_value_int(values[index]) : otherwise;
}

void dateDiff(sqlite3_context *context, sqlite3_value **values, int count)
{
    sqlite3_result_int(context, basic::DateDiff(textOf(values[0]), dateTimeOf(values[1]), dateTimeOf(values[2]),
                                                argumentOr(values, count, 3, 1), argumentOr(values, count, 4, 1)));
}

void datePart(sqlite3_context *context, sqlite3_value **values, int count)
{
    sqlite3_result_int(context, basic::DatePart(textOf(values[0]), dateTimeOf(values[1]),
                                                argumentOr(values, count, 2, 1), argumentOr(values, count, 3, 1)));
}

void weekday(sqlite3_context *context, sqlite3_value **values, int count)
{
    sqlite3_result_int(context, basic::Weekday(dateTimeOf(values[0]), argumentOr(values, count, 1, 1)));
}

void today(sqlite3_context *context, sqlite3_value **, int)
{
    resultStored(context, basic::Date().serial());
}

void now(sqlite3_context *context, sqlite3_value **, int)
{
    resultStored(context, basic::Now().serial());
}

void timeNow(sqlite3_context *context, sqlite3_value **, int)
{
    resultStored(context, basic::Time().serial());
}

constexpr SqlFunction functions[] = {
    {"j_year", 1, partOf<&basic::StoredTime::year>}, {"j_month", 1, partOf<&basic::StoredTime::month>},
    {"j_day", 1, partOf<&basic::StoredTime::day>}, {"j_hour", 1, partOf<&basic::StoredTime::hour>},
    {"j_minute", 1, partOf<&basic::StoredTime::minute>}, {"j_second", 1, partOf<&basic::StoredTime::second>},
    {"j_dateserial", 3, dateSerial}, {"j_timeserial", 3, timeSerial}, {"j_dateplus", 2, datePlus},
    {"j_serial", 1, serial}, {"j_todate", 1, toDate}, {"j_datevalue", 1, dayOnly}, {"j_timevalue", 1, timeOnly},
    {"j_dateadd", 3, dateAdd}, {"j_datediff", -1, dateDiff}, {"j_datepart", -1, datePart}, {"j_weekday", -1, weekday},
    {"j_date", 0, today}, {"j_now", 0, now}, {"j_time", 0, timeNow},
};

}

void registerDateFunctions(sqlite3 *connection)
{
    registerTable(connection, functions, std::size(functions));
}

}
