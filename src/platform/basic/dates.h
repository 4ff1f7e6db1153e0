#pragma once

#include "platform/basic/value.h"

#include <optional>

// Calendar arithmetic. Intervals: "yyyy" "q" "m" "y" "d" "w" "ww" "h" "n" "s"; any other text is BasicError 5.
namespace vorel::basic {

DateTime DateAdd(QStringView interval, double number, DateTime date);   // months clamp to the month's last day
std::optional<DateTime> tryDateAdd(QStringView interval, double number, DateTime date);    // nullopt: beyond the calendar
// Boundaries crossed from date1 to date2, signed.
int DateDiff(QStringView interval, DateTime date1, DateTime date2, int firstDayOfWeek = 1, int firstWeekOfYear = 1);
int DatePart(QStringView interval, DateTime date, int firstDayOfWeek = 1, int firstWeekOfYear = 1);
DateTime DateSerial(int year, int month, int day);                      // rolls over; 0-29 -> 20xx, 30-99 -> 19xx
DateTime TimeSerial(int hour, int minute, int second);
int Weekday(DateTime date, int firstDayOfWeek = 1);                     // 1 = Sunday by default

}
