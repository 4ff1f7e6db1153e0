#include "platform/basic/convert.h"

#include "platform/basic/decimal.h"
#include "platform/basic/error.h"
#include <QVarLengthArray>
#include <charconv>
#include <cmath>

namespace vorel::basic {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int digitOf(char c)
{
    if (isDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

// "&H" and "&O": a number that fits 16 bits is taken as a signed 16-bit one, a larger one as 32-bit.
double radixNumber(const char *p)
{
    const char kind = static_cast<char>(*p | 0x20);
    if (kind != 'h' && kind != 'o')
        return 0;
    const unsigned base = kind == 'h' ? 16 : 8;
    std::uint64_t value = 0;
    for (++p; digitOf(*p) < static_cast<int>(base); ++p) {
        value = value * base + static_cast<unsigned>(digitOf(*p));
        if (value > 0xFFFFFFFFU)
            throw BasicError(6);
    }
    if (value <= 0xFFFF)
        return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(value);
}

double decimalNumber(const char *p)
{
    QVarLengthArray<char, 64> number;
    if (*p == '-')
        number.append('-');
    if (*p == '-' || *p == '+')
        ++p;
    bool digits = false;
    bool point = false;
    for (; isDigit(*p) || (*p == '.' && !point); ++p) {
        point = point || *p == '.';
        digits = digits || isDigit(*p);
        number.append(*p);
    }
    if (!digits)
        return 0;
    // A type sign after a fraction does not belong to a whole number.
    if (point && *p == '%')
        throw BasicError(13);
    const char exponent = static_cast<char>(*p | 0x20);
    if (exponent == 'e' || exponent == 'd') {
        const bool hasSign = p[1] == '+' || p[1] == '-';
        const char *q = p + (hasSign ? 2 : 1);
        if (isDigit(*q)) {
            number.append('e');
            if (p[1] == '-')
                number.append('-');
            for (; isDigit(*q); ++q)
                number.append(*q);
        }
    }
    double value = 0;
    const auto result = std::from_chars(number.begin(), number.end(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny = number.indexOf('e') >= 0 && number.value(number.indexOf('e') + 1) == '-';
        if (tiny)
            return 0;
        throw BasicError(6);
    }
    return value;
}

}

double Val(QStringView text)
{
    // Blanks, tabs and line feeds are skipped wherever they occur. Nothing outside ASCII belongs to a number.
    QVarLengthArray<char, 64> kept;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n')
            continue;
        if (c.unicode() == 0 || c.unicode() > 126)
            break;
        kept.append(static_cast<char>(c.unicode()));
    }
    kept.append('\0');
    const char *p = kept.constData();
    return *p == '&' ? radixNumber(p + 1) : decimalNumber(p);
}

double valOr(QStringView text, double otherwise)
{
    try {
        return Val(text);
    } catch (const Error &) {
        return otherwise;
    }
}

double Round(double number, int digits)
{
    if (digits < 0 || digits > 22)
        throw BasicError(5);
    const std::optional<detail::Decimal> exact = detail::decimalOf(number);
    if (!exact)
        return number;
    // On the decimal form, so that 2.675 is the tie that it looks like.
    detail::Decimal d = *exact;
    const int kept = d.point + digits;
    if (kept >= 0 && kept < d.count) {
        const bool tie = kept + 1 == d.count && d.digits[static_cast<std::size_t>(kept)] == '5';
        const bool even = kept == 0 || (d.digits[static_cast<std::size_t>(kept) - 1] - '0') % 2 == 0;
        if (tie && even) {
            d.count = kept;
            d.trim();
            return detail::toDouble(d);
        }
    }
    d.roundHalfAway(digits);
    return detail::toDouble(d);
}

}
