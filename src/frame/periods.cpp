#include "frame/periods.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "session/ini.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::DateTime;
using basic::Value;

namespace {

struct Span {
    DateTime start;
    DateTime end;
};

DateTime plusDays(DateTime date, int days)
{
    return basic::DateAdd(u"d", days, date);
}

void setPeriod(const Span &span)
{
    state().period.gPeriodStart = shortDate(span.start);
    state().period.gPeriodEnd = shortDate(span.end);
}

Span week(int weeksFromNow)
{
    State &s = state();
    if (s.settings.gWeekStartDay == 0)
        s.settings.gWeekStartDay = 1;
    const DateTime today = basic::Date();
    // Not corrected when the difference is negative: with a week from Monday, on a Sunday the week starts tomorrow.
    const DateTime start = plusDays(today, -(basic::Weekday(today) - s.settings.gWeekStartDay) + 7 * weeksFromNow);
    return {start, plusDays(start, 6)};
}

Span month(int monthsFromNow)
{
    const DateTime target = basic::DateAdd(u"m", monthsFromNow, basic::Date());
    const int y = target.year();
    const int m = target.month();
    const DateTime first = basic::DateSerial(y, m, 1);
    const auto days = static_cast<std::int16_t>(basic::DateSerial(y, m + 1, 1).serial() - first.serial());
    return {first, basic::DateSerial(y, m, days)};
}

int yearFromNow(int years)
{
    return basic::Date().year() + years;
}

void setWeek(int weeksFromNow)
{
    setPeriod(week(weeksFromNow));
    BuildPeriodQueries();
}

void setMonth(int monthsFromNow)
{
    setPeriod(month(monthsFromNow));
    BuildPeriodQueries();
}

// Always day first, not in gDateShort order: 31 cannot be a month, so every machine reads the end as 31 December.
void setYear(int years)
{
    const QString year = QString::number(yearFromNow(years));
    state().period.gPeriodStart = u"01/01/"_s + year;
    state().period.gPeriodEnd = u"31/12/"_s + year;
    BuildPeriodQueries();
}

QString dayCaption(const QString &head, int daysFromToday)
{
    return head + displayDate(plusDays(basic::Date(), daysFromToday));
}

// Also leaves its dates in the period; the caller chooses a period afterwards.
QString weekCaption(const QString &head, int weeksFromNow)
{
    const Span span = week(weeksFromNow);
    setPeriod(span);
    return head + displayDate(span.start) + u" - "_s + displayDate(span.end);
}

QString monthCaption(const QString &head, int monthsFromNow)
{
    return head + basic::Format(month(monthsFromNow).start, u"mmmm yyyy");
}

QString yearCaption(const QString &head, int years)
{
    return head + basic::Format(basic::DateSerial(yearFromNow(years), 1, 1), u"yyyy");
}

// The dates as shown in the caption of a single day.
QString singleDayCaption(DateTime date)
{
    const int daysAway = basic::DateDiff(u"d", basic::Date(), date);
    const QString withDay = basic::Format(date, u"ddd ") + displayDate(date);
    switch (daysAway) {
    case 0:
        return u" (Today - %1)"_s.arg(withDay);
    case -1:
        return u" (Yesterday - %1)"_s.arg(withDay);
    case 1:
        return u" (Tomorrow - %1)"_s.arg(withDay);
    default:
        return u" (%1)"_s.arg(displayDate(date));
    }
}

QString inShortForm(const QString &text)
{
    return text.isEmpty() ? text : shortDate(basic::CDate(text));
}

}

void SetDayPeriod(const QString &name)
{
    State &s = state();
    static const std::pair<QString, int> days[] = {{u"Today"_s, 0}, {u"Yesterday"_s, -1}, {u"Tomorrow"_s, 1}};
    for (const auto &[day, away] : days) {
        if (name != day)
            continue;
        const DateTime date = plusDays(basic::Date(), away);
        setPeriod({date, date});
        s.period.gTodayYear = static_cast<std::int16_t>(date.year());
    }

    const DateTime date = basic::CDate(s.period.gPeriodStart);
    const QString onDay = u"[DATE]=#%1#"_s.arg(sqlDate(date));
    const QString sameDay = u" AND month([DATE]) = %1 AND day([DATE]) = %2"_s.arg(date.month()).arg(date.day());
    // Unlike a period's query this one takes holidays, and rows of later years too.
    QString events = onDay;
    for (const QString &subject : {u"ANNIVERSARY"_s, u"BIRTHDAY"_s, u"ON THIS DAY"_s, u"HOLIDAY"_s})
        events += u" OR [SUBJECT]="_s + dao::literal(subject) + sameDay;
    events += u" OR [RECURRING]=True"_s + sameDay;
    s.period.setQueries({u"select * from APPOINTMENTS"_s, onDay, u"[APPTIME],[APPOINTMENT] DESC"_s},
                        {u"select * from BILLS"_s, onDay, u"[DATE],[BILL],[AMOUNT] DESC"_s},
                        {u"select * from EVENTS"_s, events, u"[DATE],[SUBJECT],[EVENT]"_s});
}

void SetThisWeek() { setWeek(0); }
void SetNextWeek() { setWeek(1); }
void SetLastWeek() { setWeek(-1); }
void SetThisMonth() { setMonth(0); }
void SetNextMonth() { setMonth(1); }
void SetLastMonth() { setMonth(-1); }
void SetThisYear() { setYear(0); }
void SetNextYear() { setYear(1); }
void SetLastYear() { setYear(-1); }

void SetAllRecords()
{
    State &s = state();
    s.period.gPeriodStart.clear();
    s.period.gPeriodEnd = s.period.gPeriodStart;
    s.period.gTodayYear = static_cast<std::int16_t>(basic::Date().year());     // week days of birthdays are those of this year
    s.period.setQueries({u"select * from [APPOINTMENTS]"_s, {}, u"[DATE],[APPTIME],[APPOINTMENT]"_s},
                        {u"select * from [BILLS]"_s, {}, u"[DATE],[BILL],[AMOUNT]"_s},
                        {u"select * from [EVENTS]"_s, {}, u"[DATE],[SUBJECT],[EVENT]"_s});
}

void BuildPeriodQueries()
{
    State &s = state();
    const DateTime start = basic::CDate(s.period.gPeriodStart);
    const DateTime end = basic::CDate(s.period.gPeriodEnd);
    s.period.gTodayMonth = static_cast<std::int16_t>(start.month());
    s.period.gTodayYear = static_cast<std::int16_t>(start.year());

    const QString first = sqlDate(start);
    const QString between = u" between #%1# and #%2#"_s.arg(first, sqlDate(end)), inPeriod = u"[DATE]"_s + between;
    // Rows of earlier years come by their day and month in the year of the period's start, that one year only.
    const QString before = u" OR [DATE]<#%1# AND "_s.arg(first);
    const QString inYear = u" AND DATESERIAL( %1,MONTH([DATE]),DAY([DATE]))"_s.arg(start.year()) + between;
    QString events = inPeriod;
    for (const QString &subject : {u"ANNIVERSARY"_s, u"BIRTHDAY"_s, u"ON THIS DAY"_s})
        events += before + u"[SUBJECT]="_s + dao::literal(subject) + inYear;
    events += before + u"[RECURRING]=True"_s + inYear;
    s.period.setQueries({u"select * from APPOINTMENTS"_s, inPeriod, u"[DATE],[APPTIME],[APPOINTMENT] DESC"_s},
                        {u"select * from BILLS"_s, inPeriod, u"[DATE],[BILL] DESC"_s},
                        {u"select * from EVENTS"_s, events, u"[Date],[Subject],[Event]"_s});
}

QString periodCaption()
{
    State &s = state();
    s.period.gPeriodStart = inShortForm(s.period.gPeriodStart);
    s.period.gPeriodEnd = inShortForm(s.period.gPeriodEnd);
    if (s.period.gPeriodEnd.isEmpty())
        return u" (All Records)"_s;
    const DateTime start = basic::CDate(s.period.gPeriodStart);
    if (s.period.gPeriodStart == s.period.gPeriodEnd)
        return singleDayCaption(start);
    return u" (%1 - %2)"_s.arg(displayDate(start), displayDate(basic::CDate(s.period.gPeriodEnd)));
}

const std::vector<PeriodEntry> &periodTable()
{
    static const std::vector<PeriodEntry> table{
        {u"mnuToday", u"TODAY", u"Today", [] { SetDayPeriod(u"Today"_s); },
         [] { return dayCaption(u"Today ......... "_s, 0); }},
        {u"mnuTomorrow", u"TOMORROW", u"", [] { SetDayPeriod(u"Tomorrow"_s); },
         [] { return dayCaption(u"Tomorrow ... "_s, 1); }},
        {u"mnuYesterday", u"YESTERDAY", u"", [] { SetDayPeriod(u"Yesterday"_s); },
         [] { return dayCaption(u"Yesterday ... "_s, -1); }},
        {u"mnuThisWeek", u"THIS WEEK", u"This Week", SetThisWeek, [] { return weekCaption(u"This Week ... "_s, 0); }},
        {u"mnuNextweek", u"NEXT WEEK", u"", SetNextWeek, [] { return weekCaption(u"Next Week ... "_s, 1); }},
        {u"mnuLastWeek", u"LAST WEEK", u"", SetLastWeek, [] { return weekCaption(u"Last Week ... "_s, -1); }},
        {u"mnuThisMonth", u"THIS MONTH", u"This Month", SetThisMonth,
         [] { return monthCaption(u"This Month ... "_s, 0); }},
        {u"mnuNextMonth", u"NEXT MONTH", u"", SetNextMonth, [] { return monthCaption(u"Next Month ... "_s, 1); }},
        {u"mnuLastMonth", u"LAST MONTH", u"", SetLastMonth, [] { return monthCaption(u"Last Month ... "_s, -1); }},
        {u"mnuThisYear", u"THIS YEAR", u"This Year", SetThisYear, [] { return yearCaption(u"This Year ... "_s, 0); }},
        {u"mnuNextYear", u"NEXT YEAR", u"", SetNextYear, [] { return yearCaption(u"Next Year ... "_s, 1); }},
        {u"mnuLastYear", u"LAST YEAR", u"", SetLastYear, [] { return yearCaption(u"Last Year ... "_s, -1); }},
        {u"mnuAll", u"ALL RECORDS", u"", SetAllRecords, [] { return u"All Records"_s; }},
    };
    return table;
}

const PeriodEntry &startPeriod()
{
    const auto &table = periodTable();
    const auto named = [&](const QString &name) {
        return std::find_if(table.begin(), table.end(),
                            [&](const PeriodEntry &entry) { return name == QStringView(entry.displayPeriod); });
    };
    const QString wanted = GetIniValue(iniSettings, u"DisplayPeriod"_s, {});
    const auto found = wanted.isEmpty() ? table.end() : named(wanted);
    return found == table.end() ? *named(u"This Week"_s) : *found;
}

}
