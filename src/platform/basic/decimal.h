#pragma once

#include "platform/basic/locale.h"
#include "platform/basic/value.h"
#include <array>
#include <optional>

// Decimal digits of a number, shared by the conversions and by Format. Internal to this folder.
namespace vorel::basic::detail {

// 0.d1d2d3... x 10^point, without leading or trailing zeros; no digits at all is zero.
struct Decimal {
    static constexpr int capacity = 40;         // twice the digits that any type keeps

    bool negative = false;
    int count = 0;
    int point = 0;
    std::array<char, capacity> digits{};

    bool isZero() const { return count == 0; }
    // The digit at 10^exponent, as a character.
    char at(int exponent) const
    {
        const int index = point - 1 - exponent;
        return index < 0 || index >= count ? '0' : digits[static_cast<std::size_t>(index)];
    }
    void trim();
    void roundHalfAway(int decimals);
};

// Digits that survive a round trip through text.
inline constexpr int doubleDigits = 15;
inline constexpr int singleDigits = 7;

std::optional<Decimal> decimalOf(double number);          // nothing for an infinity or no number
std::optional<Decimal> decimalOf(float number);
Decimal decimalOf(std::int64_t number);
Decimal decimalOf(Currency amount);
std::optional<Decimal> decimalOf(const Value &value);     // a text is parsed, a date is its serial

// Reads a text as a number: sign or brackets, currency symbol, thousands separators, exponent.
std::optional<Decimal> parseNumber(QStringView text, const Regional &settings);
double toDouble(const Decimal &number);                   // BasicError 6
Currency toCurrency(const Decimal &number);               // half to even; BasicError 6

QString doubleText(double number, QChar decimalPoint);
QString singleText(float number, QChar decimalPoint);
QString currencyText(Currency amount, QChar decimalPoint);

}
