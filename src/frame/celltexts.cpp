#include "frame/celltexts.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "session/state.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

// 'd', 'm' or 'y': what a date format begins with; 0 if it tells the month by name or nothing at all.
char16_t firstPart(const QString &format)
{
    if (format.contains(u"mmm"_s, Qt::CaseInsensitive))
        return 0;
    for (const QChar c : format.toLower())
        if (c == u'd' || c == u'm' || c == u'y')
            return c.unicode();
    return 0;
}

bool startsDayOrMonth(const QString &text)
{
    qsizetype digits = 0;
    while (digits < text.size() && text.at(digits).isDigit())
        ++digits;
    return digits == 1 || digits == 2;
}

bool isNumeric(const QString &text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

}

std::optional<DateTime> typedDate(const QString &text)
{
    if (!basic::IsDate(text))
        return std::nullopt;
    DateTime day = basic::CDate(text);
    if (!day.hasDate())
        return std::nullopt;
    day = day.dayOnly();
    const char16_t shown = firstPart(state().settings.gDateDisplay), region = firstPart(state().settings.gDateShort);
    const bool differs = (shown == u'd' && region == u'm') || (shown == u'm' && region == u'd');
    if (differs && day.day() <= 12 && isNumeric(text) && startsDayOrMonth(text.trimmed()))
        return basic::DateSerial(day.year(), day.day(), day.month());
    return day;
}

QString typedTime(const QString &text)
{
    if (!basic::IsDate(text) || basic::CDate(text).hasDate())
        return text;
    return basic::Format(basic::CDate(text), u"hh:mm am/pm");
}

}
