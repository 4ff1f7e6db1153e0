#pragma once

#include "platform/basic/value.h"

#include <optional>

// Conversions between values. Text and dates follow the regional settings (locale.h) unless stated otherwise.
// Failures are BasicError: 13 Type mismatch, 6 Overflow, 94 Invalid use of Null.
namespace vorel::basic {

struct Regional;

bool CBool(const Value &v);
std::uint8_t CByte(const Value &v);
std::int16_t CInt(const Value &v);      // half to even
std::int32_t CLng(const Value &v);      // half to even
float CSng(const Value &v);
double CDbl(const Value &v);
Currency CCur(const Value &v);
DateTime CDate(const Value &v);
// Questions that do not throw: nullopt where the conversion above would.
std::optional<double> tryDouble(const Value &v);
std::optional<Currency> tryCurrency(const Value &v);
std::optional<DateTime> tryDate(const Value &v);
QString CStr(const Value &v);           // Null: 94. Doubles with up to 15 significant digits, singles with 7
bool IsDate(const Value &v);
// A text as a date under other settings than the machine's; nullopt if it is not a date.
std::optional<DateTime> readDate(QStringView text, const Regional &settings);
bool IsNumeric(const Value &v);

double Val(QStringView text);           // the number at the head of a text, 0 if none; BasicError 13 on "50.5%"
double valOr(QStringView text, double otherwise);   // Val, and `otherwise` where that throws
QString Str(double number);             // a leading blank when not negative, no zero before the point
double Int(double number);              // floor
double Fix(double number);              // toward zero
double Round(double number, int digits = 0);   // half to even

}
