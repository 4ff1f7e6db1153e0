#include "session/datetexts.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/basic/locale.h"
#include "session/state.h"

#include <QRegularExpression>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateOrder;
using basic::DateTime;

namespace {

constexpr qsizetype dateFieldSize = 11;

bool isDatePart(QChar c)
{
    return c == u'd' || c == u'm' || c == u'y';
}

// The order that a format's first part gives numbers; nullopt: a named format, or a month in words, which reads alike everywhere.
std::optional<DateOrder> orderOf(const QString &format)
{
    static const QRegularExpression literals(u"\"[^\"]*\"|\\\\."_s);
    const QString parts = QString(format).remove(literals).toLower();
    if (parts.contains(u"date"_s) || parts.contains(u"mmm"_s))
        return std::nullopt;
    for (qsizetype i = 0; i < parts.size();) {
        const QChar part = parts.at(i);
        qsizetype end = i;
        while (end < parts.size() && parts.at(end) == part)
            ++end;
        const qsizetype length = end - i;
        i = end;
        if (!isDatePart(part) || (part == u'd' && (length == 3 || length == 4)))     // a week day
            continue;
        if (part == u'y')
            return DateOrder::YearFirst;
        if (part == u'd' && length > 4)                                             // the region's own form
            return std::nullopt;
        return part == u'd' ? DateOrder::DayFirst : DateOrder::MonthFirst;
    }
    return std::nullopt;
}

QString withoutWeekDay(const QString &text)
{
    static const QRegularExpression weekDay(
        u"\\b(sun|mon|tue|wed|thu|fri|sat|sunday|monday|tuesday|wednesday|thursday|friday|saturday)\\b[.,]?"_s,
        QRegularExpression::CaseInsensitiveOption);
    return QString(text).remove(weekDay).trimmed();
}

// 30/2/26 is not a day of February, and not the 26th of February 1930 either.
bool yearIsInPlace(const QString &text, DateTime day, DateOrder order)
{
    static const QRegularExpression three(u"^(\\d+)\\D+(\\d+)\\D+(\\d+)\\D*$"_s);
    const QRegularExpressionMatch parts = three.match(text);
    if (order == DateOrder::YearFirst || !parts.hasMatch() || parts.captured(1).size() > 2)
        return true;
    const QString year = parts.captured(3);
    return year.size() > 2 ? year.toInt() == day.year() : year.toInt() == day.year() % 100;
}

std::optional<DateTime> read(const QString &text, const basic::Regional &settings)
{
    const std::optional<DateTime> day = basic::readDate(text, settings);
    if (!day || !day->hasDate() || !yearIsInPlace(text, *day, settings.order))
        return std::nullopt;
    return day->dayOnly();
}

}

std::optional<DateTime> typedDate(const QString &typed, const QString &format)
{
    const QString text = withoutWeekDay(typed);
    if (const std::optional<DateOrder> order = orderOf(format)) {
        basic::Regional shown = basic::regional();
        shown.order = *order;
        shown.shortDate = format;           // shows whether a point separates the numbers
        if (const auto day = read(text, shown))
            return day;
    }
    return read(text, basic::regional());
}

std::optional<DateTime> typedDate(const QString &text)
{
    return typedDate(text, state().settings.gDateDisplay);
}

QString storedDateText(DateTime date)
{
    const QString shown = displayDate(date);
    const auto readBack = read(shown, basic::regional());
    return shown.size() <= dateFieldSize && readBack == date ? shown : shortDate(date);
}

QString typedTime(const QString &text)
{
    if (!basic::IsDate(text) || basic::CDate(text).hasDate())
        return text;
    return basic::Format(basic::CDate(text), u"hh:mm am/pm");
}

bool isNoDate(const basic::Value &date)
{
    const DateTime *moment = date.tryGet<DateTime>();
    std::optional<DateTime> day = moment ? std::optional(*moment) : std::nullopt;
    if (!moment && !date.text().trimmed().isEmpty())
        day = typedDate(date.text().trimmed());
    return day && (day->date() == QDate(1900, 1, 1) || day->date() == QDate(4501, 1, 1));
}

}
