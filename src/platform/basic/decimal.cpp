#include "platform/basic/decimal.h"

#include "platform/basic/error.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace vorel::basic::detail {

void Decimal::trim()
{
    while (count > 0 && digits[static_cast<std::size_t>(count) - 1] == '0')
        --count;
    if (count == 0)
        point = 0;
}

void Decimal::roundHalfAway(int decimals)
{
    const int kept = point + decimals;
    if (kept >= count)
        return;
    if (kept < 0) {
        count = 0;
        point = 0;
        return;
    }
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    count = kept;
    if (up) {
        int i = kept - 1;
        for (; i >= 0 && digits[static_cast<std::size_t>(i)] == '9'; --i)
            digits[static_cast<std::size_t>(i)] = '0';
        if (i >= 0) {
            ++digits[static_cast<std::size_t>(i)];
        } else {
            digits[0] = '1';      // every kept digit was a nine, or none was kept
            count = 1;
            ++point;
        }
    }
    trim();
}

namespace {

template <class Real>
std::optional<Decimal> fromReal(Real number, int significant)
{
    if (!std::isfinite(number))
        return std::nullopt;
    Decimal d;
    if (number == 0)
        return d;
    char buffer[48];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific, significant - 1);
    const char *p = buffer;
    if (*p == '-') {
        d.negative = true;
        ++p;
    }
    for (; p != result.ptr && *p != 'e'; ++p) {
        if (*p != '.')
            d.digits[static_cast<std::size_t>(d.count++)] = *p;
    }
    p += p[1] == '+' ? 2 : 1;
    std::from_chars(p, result.ptr, d.point);
    ++d.point;
    d.trim();
    return d;
}

QString plainText(const std::optional<Decimal> &number, int significant, QChar decimalPoint)
{
    if (!number)
        return QStringLiteral("1.#INF");
    const Decimal &d = *number;
    if (d.isZero())
        return QStringLiteral("0");
    QString out;
    out.reserve(significant + 8);
    if (d.negative)
        out += u'-';
    const int decimals = std::max(0, d.count - d.point);
    if (d.point > significant || decimals > significant) {
        out += QLatin1Char(d.digits[0]);
        if (d.count > 1)
            out += decimalPoint;
        for (int i = 1; i < d.count; ++i)
            out += QLatin1Char(d.digits[static_cast<std::size_t>(i)]);
        const int exponent = d.point - 1;
        out += u'E';
        out += exponent < 0 ? u'-' : u'+';
        if (std::abs(exponent) < 10)
            out += u'0';
        out += QString::number(std::abs(exponent));
        return out;
    }
    for (int e = std::max(d.point - 1, 0); e >= 0; --e)
        out += QLatin1Char(d.at(e));
    if (decimals > 0)
        out += decimalPoint;
    for (int e = -1; e >= -decimals; --e)
        out += QLatin1Char(d.at(e));
    return out;
}

}

std::optional<Decimal> decimalOf(double number)
{
    return fromReal(number, doubleDigits);
}

std::optional<Decimal> decimalOf(float number)
{
    return fromReal(number, singleDigits);
}

Decimal decimalOf(std::int64_t number)
{
    Decimal d;
    if (number == 0)
        return d;
    const auto result = std::to_chars(d.digits.data(), d.digits.data() + Decimal::capacity, number);
    d.count = static_cast<int>(result.ptr - d.digits.data());
    if (number < 0) {
        d.negative = true;
        --d.count;
        std::copy(d.digits.begin() + 1, d.digits.begin() + 1 + d.count, d.digits.begin());
    }
    d.point = d.count;
    d.trim();
    return d;
}

std::optional<Decimal> decimalOf(const Value &value)
{
    switch (value.type()) {
    case ValueType::Boolean:
        return decimalOf(std::int64_t{value.get<bool>() ? -1 : 0});
    case ValueType::Byte:
        return decimalOf(std::int64_t{value.get<std::uint8_t>()});
    case ValueType::Integer:
        return decimalOf(std::int64_t{value.get<std::int16_t>()});
    case ValueType::Long:
        return decimalOf(std::int64_t{value.get<std::int32_t>()});
    case ValueType::Currency:
        return decimalOf(value.get<Currency>());
    case ValueType::Single:
        return decimalOf(value.get<float>());
    case ValueType::Double:
        return decimalOf(value.get<double>());
    case ValueType::Date:
        return decimalOf(value.get<DateTime>().serial());
    case ValueType::Text:
        return parseNumber(value.get<QString>(), regional());
    case ValueType::Null:
    case ValueType::Binary:
        break;
    }
    return std::nullopt;
}

double toDouble(const Decimal &number)
{
    if (number.isZero())
        return 0;
    char buffer[Decimal::capacity + 24];
    char *p = buffer;
    if (number.negative)
        *p++ = '-';
    p = std::copy_n(number.digits.begin(), number.count, p);
    *p++ = 'e';
    p = std::to_chars(p, buffer + sizeof buffer, number.point - number.count).ptr;
    double result = 0;
    if (std::from_chars(buffer, p, result).ec == std::errc::result_out_of_range) {
        if (number.point > 0)
            throw BasicError(6);
        return 0;
    }
    return result;
}

QString doubleText(double number, QChar decimalPoint)
{
    if (std::abs(number) < 1e9 && number == std::trunc(number))
        return QString::number(static_cast<int>(number));
    return plainText(decimalOf(number), doubleDigits, decimalPoint);
}

QString singleText(float number, QChar decimalPoint)
{
    return plainText(decimalOf(number), singleDigits, decimalPoint);
}

}
