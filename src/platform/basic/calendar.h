#pragma once

#include "platform/basic/locale.h"
#include "platform/basic/value.h"
#include <cstdint>
#include <optional>

// Day numbers, and texts of dates. Internal to this folder.
namespace vorel::basic::detail {

inline constexpr int secondsPerDay = 86400;
inline constexpr int firstDay = -657434;      // 0100-01-01
inline constexpr int lastDay = 2958465;       // 9999-12-31

struct Civil {
    int year;
    int month;
    int day;
};

struct Moment {
    int days;        // since 1899-12-30
    int seconds;     // of that day
};

std::int64_t daysFromCivil(std::int64_t year, int month, int day);   // month 1 to 12, any day
Civil civilFromDays(int days);
int daysInMonth(int year, int month);
Moment momentOf(DateTime date);                                      // kept within the range
DateTime serialOf(std::int64_t days, int seconds);                   // BasicError 5 outside the range
bool inRange(double serial);

std::optional<DateTime> parseDate(QStringView text, const Regional &settings);
void appendDate(QString &out, DateTime date, QStringView pattern, const Regional &settings);
void appendGeneralDate(QString &out, DateTime date, const Regional &settings);

}
