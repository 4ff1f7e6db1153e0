#include "platform/basic/format.h"

#include "platform/basic/calendar.h"
#include "platform/basic/error.h"
#include "platform/basic/formatting.h"

namespace vorel::basic {

using namespace Qt::StringLiterals;
using namespace detail;

namespace {

enum class Kind { Plain, Number, Date, Text, Currency, General, Words };

struct Named {
    QStringView name;
    Kind kind;
    QStringView pattern;       // for Words: what is shown for any value but 0, then for 0
};

constexpr Named namedFormats[] = {
    {u"General Number", Kind::General, {}},
    {u"Currency", Kind::Currency, {}},
    {u"Fixed", Kind::Number, u"0.00"},
    {u"Standard", Kind::Number, u"#,##0.00"},
    {u"Percent", Kind::Number, u"0.00%"},
    {u"Scientific", Kind::Number, u"0.00E+00"},
    {u"Yes/No", Kind::Words, u"Yes;No"},
    {u"True/False", Kind::Words, u"True;False"},
    {u"On/Off", Kind::Words, u"On;Off"},
    {u"General Date", Kind::Date, u"c"},
    {u"Long Date", Kind::Date, u"dddddd"},
    {u"Medium Date", Kind::Date, u"dd-mmm-yy"},
    {u"Short Date", Kind::Date, u"ddddd"},
    {u"Long Time", Kind::Date, u"ttttt"},
    {u"Medium Time", Kind::Date, u"hh:mm AM/PM"},
    {u"Short Time", Kind::Date, u"hh:mm"},
};

const Named *namedFormat(QStringView pattern)
{
    for (const Named &entry : namedFormats) {
        if (entry.name.size() == pattern.size() && entry.name.compare(pattern, Qt::CaseInsensitive) == 0)
            return &entry;
    }
    return nullptr;
}

// The first sign with a meaning decides what a pattern is for; the rest is literal to the other kinds.
Kind kindOf(QStringView pattern)
{
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        switch (pattern[i].toLower().unicode()) {
        case u'\\':
            ++i;
            break;
        case u'"':
            i = pattern.indexOf(u'"', i + 1);
            if (i < 0)
                return Kind::Plain;
            break;
        case u'0':
        case u'#':
        case u'%':
            return Kind::Number;
        case u'.':
            if (i + 1 < pattern.size() && (pattern[i + 1] == u'0' || pattern[i + 1] == u'#'))
                return Kind::Number;
            break;
        case u'd':
        case u'm':
        case u'y':
        case u'h':
        case u'n':
        case u's':
        case u'q':
        case u'w':
        case u'c':
            return Kind::Date;
        case u't':
            if (pattern.mid(i).startsWith("ttttt"_L1, Qt::CaseInsensitive))
                return Kind::Date;
            break;
        case u'a':
            if (pattern.mid(i).startsWith("am/pm"_L1, Qt::CaseInsensitive)
                || pattern.mid(i).startsWith("ampm"_L1, Qt::CaseInsensitive)
                || pattern.mid(i).startsWith("a/p"_L1, Qt::CaseInsensitive))
                return Kind::Date;
            break;
        case u'@':
        case u'&':
        case u'<':
        case u'>':
        case u'!':
            return Kind::Text;
        default:
            break;
        }
    }
    return Kind::Plain;
}

std::optional<DateTime> dateOf(const Value &value)
{
    if (const DateTime *date = value.tryGet<DateTime>())
        return *date;
    if (const QString *text = value.tryGet<QString>()) {
        if (const auto date = parseDate(*text, regional()))
            return date;
    }
    const std::optional<Decimal> number = decimalOf(value);
    if (!number || number->point > 8)
        return std::nullopt;
    const double serial = toDouble(*number);
    return inRange(serial) ? std::optional(DateTime(serial)) : std::nullopt;
}

QString formatDate(const Value &value, QStringView pattern)
{
    const std::optional<DateTime> date = dateOf(value);
    if (!date)
        return value.text();
    QString out;
    appendDate(out, *date, pattern, regional());
    return out;
}

QString formatAsNumber(const Value &value, Kind kind, QStringView pattern)
{
    const std::optional<Decimal> number = decimalOf(value);
    // Beyond the range of a Double a text of digits is not a number.
    if (!number || number->point > 308)
        return value.text();
    switch (kind) {
    case Kind::Currency:
        return formatCurrency(*number, regional());
    case Kind::General:
        return doubleText(toDouble(*number), regional().decimalPoint);
    case Kind::Words:
        return pattern.split(u';').at(number->isZero() ? 1 : 0).toString();
    default:
        return formatNumber(*number, pattern, regional());
    }
}

}

QString Format(const Value &value, QStringView pattern)
{
    if (value.isNull())
        return {};
    if (pattern.isEmpty())
        return value.text();
    const Named *named = namedFormat(pattern);
    const Kind kind = named ? named->kind : kindOf(pattern);
    if (named)
        pattern = named->pattern;
    if (kind == Kind::Text)
        return formatText(value.text(), pattern);
    if (kind == Kind::Date || (kind == Kind::Plain && value.isDate()))
        return formatDate(value, pattern);
    return formatAsNumber(value, kind, pattern);
}

QString formatOr(const Value &value, QStringView pattern)
{
    try {
        return Format(value, pattern);
    } catch (const BasicError &) {
        return value.text();
    }
}

}
