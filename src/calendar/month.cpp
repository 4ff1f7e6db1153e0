#include "calendar/month.h"

#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/locale.h"

#include <QDate>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

constexpr int weekStartOf(int weekStartDay) { return std::clamp(weekStartDay, 1, monthColumns); }

// Sunday is 1; Qt counts from Monday, and Sunday is 7 there.
Qt::DayOfWeek qtDay(int weekDay) { return static_cast<Qt::DayOfWeek>(weekDay == 1 ? 7 : weekDay - 1); }

template <class Name> std::array<QString, 7> headsBy(int weekStartDay, Name nameOf)
{
    std::array<QString, 7> heads;
    for (int i = 0; i < monthColumns; ++i)
        heads[static_cast<std::size_t>(i)] = nameOf((weekStartOf(weekStartDay) - 1 + i) % monthColumns + 1);
    return heads;
}

QLocale paperLocale() { return QLocale(basic::regional().language); }

// Some languages end a short name with a point, which has no place above a column.
QString withoutPoint(QString name)
{
    if (name.endsWith(u'.'))
        name.chop(1);
    return name;
}

}

DateTime MonthCells::date(int day) const { return basic::DateSerial(year, month, day); }
DateTime MonthCells::first() const { return date(1); }
DateTime MonthCells::last() const { return date(days); }

MonthCells monthCells(int year, int month, int weekStartDay)
{
    const DateTime first = basic::DateSerial(year, month, 1);
    return {first.year(), first.month(), basic::Weekday(first, weekStartOf(weekStartDay)) - 1, first.date().daysInMonth()};
}

int weekNumber(const MonthCells &month, int row, int weekStartDay)
{
    const QDate first = month.first().date().addDays(row * monthColumns - month.firstCell);
    if (weekStartOf(weekStartDay) == 2)
        return first.weekNumber();
    const QDate last = first.addDays(monthColumns - 1);
    const QDate newYear(last.year(), 1, 1);
    // The last week of 9999 ends beyond the dates that a DateTime holds.
    const int before = (newYear.dayOfWeek() % monthColumns + 1 - weekStartOf(weekStartDay) + monthColumns) % monthColumns;
    return static_cast<int>((newYear.daysTo(last) + before) / monthColumns) + 1;
}

DateTime monthsAway(DateTime date, int months)
{
    return basic::tryDateAdd(u"m", months, date).value_or(date);
}

DateTime daysAway(DateTime date, int days)
{
    return basic::tryDateAdd(u"d", days, date).value_or(date);
}

const std::array<QString, 12> &monthNames()
{
    static const std::array<QString, 12> names{u"January"_s, u"February"_s, u"March"_s, u"April"_s, u"May"_s, u"June"_s,
                                               u"July"_s, u"August"_s, u"September"_s, u"October"_s, u"November"_s, u"December"_s};
    return names;
}

QString monthTitle(int year, int month)
{
    return monthNames()[static_cast<std::size_t>(month - 1)] + u' ' + QString::number(year);
}

std::array<QString, 7> weekDayHeads(int weekStartDay)
{
    return headsBy(weekStartDay, [](int weekDay) {       // 4 January 1970 was a Sunday
        return basic::Format(basic::DateSerial(1970, 1, 3 + weekDay), u"ddd");
    });
}

bool isWeekend(int column, int weekStartDay)
{
    const int weekDay = (weekStartOf(weekStartDay) - 1 + column) % monthColumns + 1;
    return weekDay == 1 || weekDay == monthColumns;
}

QString paperMonthName(int month) { return paperLocale().standaloneMonthName(month); }

QString paperMonthTitle(int year, int month) { return paperMonthName(month) + u' ' + QString::number(year); }

std::array<QString, 7> paperDayHeads(int weekStartDay)
{
    return headsBy(weekStartDay, [](int weekDay) {
        return withoutPoint(paperLocale().standaloneDayName(qtDay(weekDay), QLocale::ShortFormat));
    });
}

std::array<QString, 7> paperDayLetters(int weekStartDay)
{
    return headsBy(weekStartDay, [](int weekDay) {
        return paperLocale().standaloneDayName(qtDay(weekDay), QLocale::ShortFormat).left(1).toUpper();
    });
}

QString paperWeekDay(DateTime day)
{
    return withoutPoint(paperLocale().standaloneDayName(qtDay(basic::Weekday(day)), QLocale::ShortFormat)) + u' ' + QString::number(day.day());
}

// The month stands first or behind, as the language has it.
QString paperMonthDay(DateTime day)
{
    const QString month = withoutPoint(paperLocale().monthName(day.month(), QLocale::ShortFormat)), number = QString::number(day.day());
    return basic::regional().order == basic::DateOrder::DayFirst && !basic::regional().language.startsWith(u"en")
        ? number + u' ' + month : month + u' ' + number;
}

QString joinedDate(DateTime day, const QString &format)
{
    QStringList numbers;
    const QString order = format.toLower();
    for (qsizetype i = 0; i < order.size(); ++i) {
        const QChar part = order[i];
        if (order.indexOf(part) != i)
            continue;
        if (part == u'd' || part == u'm')
            numbers << basic::Format(day, part == u'd' ? u"dd" : u"mm");
        else if (part == u'y')
            numbers << basic::Format(day, u"yyyy");
    }
    return numbers.size() == 3 ? numbers.join(u'-') : basic::Format(day, u"yyyy-mm-dd");
}

}
