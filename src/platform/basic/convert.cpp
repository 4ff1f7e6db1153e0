#include "platform/basic/convert.h"

#include "platform/basic/calendar.h"
#include "platform/basic/decimal.h"
#include "platform/basic/error.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace vorel::basic {

using namespace Qt::StringLiterals;
using namespace detail;

namespace {

Decimal numberIn(QStringView text)
{
    const std::optional<Decimal> number = parseNumber(text, regional());
    if (!number)
        throw BasicError(13);
    return *number;
}

double numberOf(const Value &v)
{
    switch (v.type()) {
    case ValueType::Null:
        throw BasicError(94);
    case ValueType::Boolean:
        return v.get<bool>() ? -1 : 0;
    case ValueType::Byte:
        return v.get<std::uint8_t>();
    case ValueType::Integer:
        return v.get<std::int16_t>();
    case ValueType::Long:
        return v.get<std::int32_t>();
    case ValueType::Currency:
        return v.get<Currency>().toDouble();
    case ValueType::Single:
        return static_cast<double>(v.get<float>());
    case ValueType::Double:
        return v.get<double>();
    case ValueType::Date:
        return v.get<DateTime>().serial();
    case ValueType::Text:
        return toDouble(numberIn(v.get<QString>()));
    case ValueType::Binary:
        break;
    }
    throw BasicError(13);
}

template <class Integer>
Integer rounded(const Value &v)
{
    // The default rounding of the processor is half to even.
    const double number = std::nearbyint(numberOf(v));
    if (!(number >= std::numeric_limits<Integer>::min() && number <= std::numeric_limits<Integer>::max()))
        throw BasicError(6);
    return static_cast<Integer>(number);
}

// What a text without a date's form still is: a plain number, taken as the serial.
bool isPlainNumber(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u' ' || c == u'-' || c == u'+' || c == regional().decimalPoint;
    });
}

}

bool CBool(const Value &v)
{
    if (v.isText()) {
        const QString &text = v.get<QString>();
        if (text.compare("true"_L1, Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare("false"_L1, Qt::CaseInsensitive) == 0)
            return false;
    }
    return numberOf(v) != 0;
}

std::uint8_t CByte(const Value &v)
{
    return rounded<std::uint8_t>(v);
}

std::int16_t CInt(const Value &v)
{
    return rounded<std::int16_t>(v);
}

std::int32_t CLng(const Value &v)
{
    return rounded<std::int32_t>(v);
}

float CSng(const Value &v)
{
    const auto number = static_cast<float>(numberOf(v));
    if (!std::isfinite(number))
        throw BasicError(6);
    return number;
}

double CDbl(const Value &v)
{
    return numberOf(v);
}

Currency CCur(const Value &v)
{
    if (const Currency *amount = v.tryGet<Currency>())
        return *amount;
    if (const QString *text = v.tryGet<QString>())
        return toCurrency(numberIn(*text));
    return Currency::fromDouble(numberOf(v));
}

namespace {

template <class T>
std::optional<T> tried(T (*convert)(const Value &), const Value &v)
{
    try {
        return convert(v);
    } catch (const BasicError &) {
        return std::nullopt;
    }
}

}

std::optional<double> tryDouble(const Value &v) { return tried(CDbl, v); }
std::optional<Currency> tryCurrency(const Value &v) { return tried(CCur, v); }
std::optional<DateTime> tryDate(const Value &v) { return tried(CDate, v); }

DateTime CDate(const Value &v)
{
    if (const DateTime *date = v.tryGet<DateTime>())
        return *date;
    if (const QString *text = v.tryGet<QString>()) {
        if (const std::optional<DateTime> date = parseDate(*text, regional()))
            return *date;
        if (!isPlainNumber(*text))
            throw BasicError(13);
    }
    const double serial = numberOf(v);
    if (!inRange(serial))
        throw BasicError(6);
    return DateTime(serial);
}

QString CStr(const Value &v)
{
    if (v.isNull())
        throw BasicError(94);
    return v.text();
}

bool IsDate(const Value &v)
{
    if (const QString *text = v.tryGet<QString>())
        return parseDate(*text, regional()).has_value();
    return v.isDate();
}

std::optional<DateTime> readDate(QStringView text, const Regional &settings)
{
    return parseDate(text, settings);
}

bool IsNumeric(const Value &v)
{
    if (const QString *text = v.tryGet<QString>())
        return parseNumber(*text, regional()).has_value();
    return v.isNumber();
}

QString Str(double number)
{
    QString text = doubleText(number, u'.');
    if (text.startsWith("0."_L1))
        text.remove(0, 1);
    else if (text.startsWith("-0."_L1))
        text.remove(1, 1);
    return number < 0 ? text : u' ' + text;
}

double Int(double number)
{
    return std::floor(number);
}

double Fix(double number)
{
    return std::trunc(number);
}

}
