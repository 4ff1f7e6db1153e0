#include "platform/basic/dates.h"

#include "platform/basic/calendar.h"
#include "platform/basic/error.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace vorel::basic {

using namespace detail;

namespace {

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

struct IntervalName {
    const char16_t *name;
    Interval interval;
};

constexpr IntervalName intervalNames[] = {
    {u"yyyy", Interval::Year}, {u"q", Interval::Quarter}, {u"m", Interval::Month}, {u"y", Interval::DayOfYear},
    {u"d", Interval::Day}, {u"w", Interval::Weekday}, {u"ww", Interval::Week}, {u"h", Interval::Hour},
    {u"n", Interval::Minute}, {u"s", Interval::Second},
};

Interval intervalOf(QStringView name)
{
    for (const IntervalName &entry : intervalNames) {
        if (name.compare(QStringView(entry.name), Qt::CaseInsensitive) == 0)
            return entry.interval;
    }
    throw BasicError(5);
}

std::int64_t floorDiv(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

int floorMod(std::int64_t a, int b)
{
    return static_cast<int>(a - floorDiv(a, b) * b);
}

// 0 (the machine's own) counts as Sunday.
int checkedFirstDay(int firstDayOfWeek)
{
    if (firstDayOfWeek < 0 || firstDayOfWeek > 7)
        throw BasicError(5);
    return firstDayOfWeek == 0 ? 1 : firstDayOfWeek;
}

int weekdayOf(std::int64_t days, int firstDayOfWeek)
{
    return floorMod(days - 1 - (firstDayOfWeek - 1), 7) + 1;      // day 1 is a Sunday
}

DateTime addMonths(DateTime date, std::int64_t months)
{
    const Moment moment = momentOf(date);
    const Civil civil = civilFromDays(moment.days);
    const std::int64_t total = std::int64_t{civil.year} * 12 + civil.month - 1 + months;
    const std::int64_t year = floorDiv(total, 12);
    if (year < 100 || year > 9999)
        throw BasicError(5);
    const int month = floorMod(total, 12) + 1;
    const int day = std::min(civil.day, daysInMonth(static_cast<int>(year), month));
    return serialOf(daysFromCivil(year, month, day), moment.seconds);
}

DateTime addSeconds(Moment moment, std::int64_t seconds)
{
    const std::int64_t total = std::int64_t{moment.days} * secondsPerDay + moment.seconds + seconds;
    return serialOf(floorDiv(total, secondsPerDay), floorMod(total, secondsPerDay));
}

// The day on which week 1 of a year begins.
std::int64_t firstWeekStart(int year, int firstDayOfWeek, int firstWeekOfYear)
{
    const std::int64_t newYear = daysFromCivil(year, 1, 1);
    const int offset = weekdayOf(newYear, firstDayOfWeek) - 1;     // days of that week in the old year
    const bool counts = firstWeekOfYear <= 1 || (firstWeekOfYear == 2 ? offset <= 3 : offset == 0);
    return newYear - offset + (counts ? 0 : 7);
}

int weekOf(int days, int year, int firstDayOfWeek, int firstWeekOfYear)
{
    if (firstWeekOfYear < 0 || firstWeekOfYear > 3)
        throw BasicError(5);
    std::int64_t start = firstWeekStart(year, firstDayOfWeek, firstWeekOfYear);
    if (days < start)
        start = firstWeekStart(year - 1, firstDayOfWeek, firstWeekOfYear);
    else if (firstWeekOfYear == 2 && days >= firstWeekStart(year + 1, firstDayOfWeek, firstWeekOfYear))
        return 1;
    return static_cast<int>((days - start) / 7) + 1;
}

std::int64_t difference(Interval interval, Moment from, Moment to, int firstDayOfWeek)
{
    const std::int64_t days = std::int64_t{to.days} - from.days;
    const Civil a = civilFromDays(from.days);
    const Civil b = civilFromDays(to.days);
    switch (interval) {
    case Interval::Year:
        return b.year - a.year;
    case Interval::Quarter:
        return (b.year - a.year) * 4 + (b.month - 1) / 3 - (a.month - 1) / 3;
    case Interval::Month:
        return (b.year - a.year) * 12 + b.month - a.month;
    case Interval::DayOfYear:
    case Interval::Day:
        return days;
    case Interval::Weekday:
        return days / 7;
    case Interval::Week:
        return floorDiv(to.days - firstDayOfWeek, 7) - floorDiv(from.days - firstDayOfWeek, 7);
    case Interval::Hour:
        return days * 24 + to.seconds / 3600 - from.seconds / 3600;
    case Interval::Minute:
        return days * 1440 + to.seconds / 60 - from.seconds / 60;
    case Interval::Second:
        break;
    }
    return days * secondsPerDay + to.seconds - from.seconds;
}

}

DateTime DateAdd(QStringView interval, double number, DateTime date)
{
    const Interval unit = intervalOf(interval);
    const double rounded = std::nearbyint(number);
    if (!(std::abs(rounded) <= std::numeric_limits<std::int32_t>::max()))
        throw BasicError(5);
    const auto count = static_cast<std::int64_t>(rounded);
    const Moment moment = momentOf(date);
    switch (unit) {
    case Interval::Year:
        return addMonths(date, count * 12);
    case Interval::Quarter:
        return addMonths(date, count * 3);
    case Interval::Month:
        return addMonths(date, count);
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday:
        return serialOf(moment.days + count, moment.seconds);
    case Interval::Week:
        return serialOf(moment.days + count * 7, moment.seconds);
    case Interval::Hour:
        return addSeconds(moment, count * 3600);
    case Interval::Minute:
        return addSeconds(moment, count * 60);
    case Interval::Second:
        break;
    }
    return addSeconds(moment, count);
}

std::optional<DateTime> tryDateAdd(QStringView interval, double number, DateTime date)
{
    try {
        return DateAdd(interval, number, date);
    } catch (const BasicError &) {
        return std::nullopt;
    }
}

int DateDiff(QStringView interval, DateTime date1, DateTime date2, int firstDayOfWeek, int)
{
    const int first = checkedFirstDay(firstDayOfWeek);
    const std::int64_t count = difference(intervalOf(interval), momentOf(date1), momentOf(date2), first);
    if (count < std::numeric_limits<int>::min() || count > std::numeric_limits<int>::max())
        throw BasicError(6);
    return static_cast<int>(count);
}

int DatePart(QStringView interval, DateTime date, int firstDayOfWeek, int firstWeekOfYear)
{
    const Interval unit = intervalOf(interval);
    const int first = checkedFirstDay(firstDayOfWeek);
    const Moment moment = momentOf(date);
    const Civil civil = civilFromDays(moment.days);
    switch (unit) {
    case Interval::Year:
        return civil.year;
    case Interval::Quarter:
        return (civil.month - 1) / 3 + 1;
    case Interval::Month:
        return civil.month;
    case Interval::DayOfYear:
        return static_cast<int>(moment.days - daysFromCivil(civil.year, 1, 1)) + 1;
    case Interval::Day:
        return civil.day;
    case Interval::Weekday:
        return weekdayOf(moment.days, first);
    case Interval::Week:
        return weekOf(moment.days, civil.year, first, firstWeekOfYear);
    case Interval::Hour:
        return moment.seconds / 3600;
    case Interval::Minute:
        return moment.seconds / 60 % 60;
    case Interval::Second:
        break;
    }
    return moment.seconds % 60;
}

DateTime DateSerial(int year, int month, int day)
{
    if (year >= 0 && year < 100)
        year += year < 30 ? 2000 : 1900;
    const std::int64_t months = std::int64_t{year} * 12 + month - 1;
    return serialOf(daysFromCivil(floorDiv(months, 12), floorMod(months, 12) + 1, 1) + day - 1, 0);
}

DateTime TimeSerial(int hour, int minute, int second)
{
    return addSeconds({0, 0}, std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second);
}

int Weekday(DateTime date, int firstDayOfWeek)
{
    return weekdayOf(momentOf(date).days, checkedFirstDay(firstDayOfWeek));
}

}
