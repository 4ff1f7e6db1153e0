#include "platform/basic/decimal.h"
#include "platform/basic/error.h"
#include "platform/basic/value.h"
#include <cmath>
#include <limits>

namespace vorel::basic {

namespace {

// The lowest 64-bit number is left out, so that every amount has its negative.
constexpr std::int64_t lowest = -std::numeric_limits<std::int64_t>::max();

Currency checked(std::int64_t scaled, bool overflow)
{
    if (overflow || scaled < lowest)
        throw BasicError(6);
    return Currency::fromScaled(scaled);
}

}

Currency Currency::fromDouble(double amount)
{
    const double scaled = std::nearbyint(amount * 10000.0);
    if (!(std::abs(scaled) < 9223372036854775808.0))
        throw BasicError(6);
    return fromScaled(static_cast<std::int64_t>(scaled));
}

Currency Currency::operator+(Currency other) const
{
    std::int64_t sum = 0;
    const bool overflow = __builtin_add_overflow(m_scaled, other.m_scaled, &sum);
    return checked(sum, overflow);
}

Currency Currency::operator-(Currency other) const
{
    std::int64_t difference = 0;
    const bool overflow = __builtin_sub_overflow(m_scaled, other.m_scaled, &difference);
    return checked(difference, overflow);
}

namespace detail {

Decimal decimalOf(Currency amount)
{
    Decimal d = decimalOf(amount.scaled());
    if (!d.isZero())
        d.point -= 4;
    return d;
}

Currency toCurrency(const Decimal &number)
{
    const int kept = number.point + 4;     // the digits that stay before the rounding
    if (number.isZero() || kept < 0)
        return {};
    std::int64_t scaled = 0;
    bool overflow = kept > 19;
    for (int i = 0; i < kept && !overflow; ++i) {
        const int digit = i < number.count ? number.digits[static_cast<std::size_t>(i)] - '0' : 0;
        overflow = __builtin_mul_overflow(scaled, std::int64_t{10}, &scaled)
            || __builtin_add_overflow(scaled, std::int64_t{digit}, &scaled);
    }
    if (!overflow && kept < number.count) {
        const char next = number.digits[static_cast<std::size_t>(kept)];
        const bool tie = next == '5' && kept + 1 == number.count;
        if (tie ? scaled % 2 != 0 : next >= '5')
            overflow = __builtin_add_overflow(scaled, std::int64_t{1}, &scaled);
    }
    if (overflow)
        throw BasicError(6);
    return Currency::fromScaled(number.negative ? -scaled : scaled);
}

QString currencyText(Currency amount, QChar decimalPoint)
{
    char16_t buffer[24];
    char16_t *const end = buffer + 24;
    char16_t *start = end;
    const bool negative = amount.scaled() < 0;
    auto rest = static_cast<std::uint64_t>(amount.scaled());
    if (negative)
        rest = 0 - rest;
    auto fraction = static_cast<int>(rest % 10000);
    rest /= 10000;
    if (fraction != 0) {
        int places = 4;
        for (; fraction % 10 == 0; fraction /= 10)
            --places;
        for (; places > 0; --places, fraction /= 10)
            *--start = static_cast<char16_t>(u'0' + fraction % 10);
        *--start = decimalPoint.unicode();
    }
    do {
        *--start = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (negative)
        *--start = u'-';
    return QString(reinterpret_cast<const QChar *>(start), end - start);
}

}

}
