#include "platform/dao/jet/functions_sql.h"

#include "platform/basic/convert.h"
#include "platform/dao/jet/translator.h"

#include <cmath>

namespace vorel::dao::jet {

namespace {

constexpr int overflow = 6;
constexpr int divisionByZero = 11;
constexpr qint64 perUnit = 10000;

void failBasic(sqlite3_context *context, int number)
{
    fail(context, number, basic::BasicError::standardText(number));
}

double number(sqlite3_value *value)
{
    return sqlite3_value_double(value);
}

double halfToEven(double value)
{
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest != 0.5)
        return rest < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

// The quotient of whole numbers, half to even.
__extension__ using Wide = __int128;
Wide quotient(Wide dividend, Wide divisor)
{
    if (divisor < 0) {
        dividend = -dividend;
        divisor = -divisor;
    }
    Wide result = dividend / divisor;
    Wide rest = dividend % divisor;
    if (rest < 0) {
        rest += divisor;
        --result;
    }
    if (rest * 2 > divisor || (rest * 2 == divisor && result % 2 != 0))
        ++result;
    return result;
}

void resultWide(sqlite3_context *context, Wide value)
{
    if (value > INT64_MAX || value < INT64_MIN)
        failBasic(context, overflow);
    else
        sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
}

// A product or quotient with a binary fraction: what is a tie in decimals is taken as one.
void resultMoney(sqlite3_context *context, long double scaled)
{
    if (!(std::fabs(scaled) < 9.2e18L)) {
        failBasic(context, overflow);
        return;
    }
    const long double below = std::floor(scaled);
    const long double tolerance = std::max(1.0L, std::fabs(scaled)) * 1e-15L;
    const auto whole = static_cast<qint64>(below);
    const long double rest = scaled - below - 0.5L;
    const bool up = std::fabs(rest) <= tolerance ? whole % 2 != 0 : rest > 0;
    sqlite3_result_int64(context, up ? whole + 1 : whole);
}

void moneyProduct(sqlite3_context *context, sqlite3_value **values, int)
{
    resultWide(context, quotient(Wide(sqlite3_value_int64(values[0])) * sqlite3_value_int64(values[1]), perUnit));
}

void moneyQuotient(sqlite3_context *context, sqlite3_value **values, int)
{
    const qint64 divisor = sqlite3_value_int64(values[1]);
    if (divisor == 0)
        failBasic(context, divisionByZero);
    else
        resultWide(context, quotient(Wide(sqlite3_value_int64(values[0])) * perUnit, divisor));
}

void moneyTimesFraction(sqlite3_context *context, sqlite3_value **values, int)
{
    resultMoney(context, static_cast<long double>(sqlite3_value_int64(values[0])) * number(values[1]));
}

void moneyByFraction(sqlite3_context *context, sqlite3_value **values, int)
{
    const double divisor = number(values[1]);
    if (divisor == 0)
        failBasic(context, divisionByZero);
    else
        resultMoney(context, static_cast<long double>(sqlite3_value_int64(values[0])) / divisor);
}

void divide(sqlite3_context *context, sqlite3_value **values, int)
{
    if (number(values[1]) == 0)
        failBasic(context, divisionByZero);
    else
        sqlite3_result_double(context, number(values[0]) / number(values[1]));
}

bool wholeOperands(sqlite3_context *context, sqlite3_value **values, qint64 &a, qint64 &b)
{
    const double first = halfToEven(number(values[0]));
    const double second = halfToEven(number(values[1]));
    if (!(std::fabs(first) <= INT32_MAX + 1.0) || !(std::fabs(second) <= INT32_MAX + 1.0)) {
        failBasic(context, overflow);
        return false;
    }
    a = static_cast<qint64>(first);
    b = static_cast<qint64>(second);
    if (b == 0)
        failBasic(context, divisionByZero);
    return b != 0;
}

void divideWhole(sqlite3_context *context, sqlite3_value **values, int)
{
    qint64 a = 0;
    qint64 b = 0;
    if (wholeOperands(context, values, a, b))
        sqlite3_result_int64(context, a / b);
}

void modulo(sqlite3_context *context, sqlite3_value **values, int)
{
    qint64 a = 0;
    qint64 b = 0;
    if (wholeOperands(context, values, a, b))
        sqlite3_result_int64(context, a % b);
}

void power(sqlite3_context *context, sqlite3_value **values, int)
{
    const double result = std::pow(number(values[0]), number(values[1]));
    if (std::isnan(result))
        failBasic(context, 5);
    else if (std::isinf(result))
        failBasic(context, overflow);
    else
        sqlite3_result_double(context, result);
}

// Int and Fix keep the type; the second argument is what makes up one (1, or 10000 of money).
template <bool truncating>
void wholePart(sqlite3_context *context, sqlite3_value **values, int)
{
    const qint64 unit = sqlite3_value_int64(values[1]);
    if (sqlite3_value_type(values[0]) != SQLITE_INTEGER) {
        sqlite3_result_double(context, truncating ? std::trunc(number(values[0])) : std::floor(number(values[0])));
        return;
    }
    const qint64 value = sqlite3_value_int64(values[0]);
    qint64 rest = value % unit;
    if (!truncating && rest < 0)
        rest += unit;
    sqlite3_result_int64(context, value - rest);
}

void roundTo(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_double(context, basic::Round(number(values[0]), sqlite3_value_int(values[1])));
}

void signOf(sqlite3_context *context, sqlite3_value **values, int)
{
    const double value = number(values[0]);
    sqlite3_result_int(context, value > 0 ? 1 : value < 0 ? -1 : 0);
}

void toLong(sqlite3_context *context, sqlite3_value **values, int)
{
    const double value = halfToEven(number(values[0]));
    if (std::fabs(value) < 9e18)
        sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
    else
        failBasic(context, overflow);
}

// A whole number within the type's range.
void toWhole(sqlite3_context *context, sqlite3_value **values, int)
{
    const double value = halfToEven(number(values[0]));
    double low = INT32_MIN;
    double high = INT32_MAX;
    if (sqlite3_value_int(values[1]) == dbByte) {
        low = 0;
        high = 255;
    } else if (sqlite3_value_int(values[1]) == dbInteger) {
        low = INT16_MIN;
        high = INT16_MAX;
    }
    if (value >= low && value <= high)
        sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
    else
        failBasic(context, overflow);
}

void toSingle(sqlite3_context *context, sqlite3_value **values, int)
{
    const double value = number(values[0]);
    if (std::fabs(value) > 3.402823466e38)
        failBasic(context, overflow);
    else
        sqlite3_result_double(context, static_cast<double>(static_cast<float>(value)));
}

void toBoolean(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int(context, number(values[0]) != 0 ? -1 : 0);
}

void exclusiveOr(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int64(context, sqlite3_value_int64(values[0]) ^ sqlite3_value_int64(values[1]));
}

constexpr SqlFunction functions[] = {
    {"j_curmul", 2, moneyProduct}, {"j_curdiv", 2, moneyQuotient}, {"j_curmulr", 2, moneyTimesFraction},
    {"j_curdivr", 2, moneyByFraction}, {"j_div", 2, divide}, {"j_idiv", 2, divideWhole}, {"j_mod", 2, modulo},
    {"j_pow", 2, power}, {"j_int", 2, wholePart<false>}, {"j_fix", 2, wholePart<true>}, {"j_round", 2, roundTo},
    {"j_sgn", 1, signOf}, {"j_long", 1, toLong}, {"j_whole", 2, toWhole}, {"j_single", 1, toSingle},
    {"j_xor", 2, exclusiveOr}, {"j_bool", 1, toBoolean}, {"j_bool0", 1, toBoolean, true},
};

}

void registerNumberFunctions(sqlite3 *connection)
{
    registerTable(connection, functions, std::size(functions));
}

}
