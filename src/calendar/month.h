#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <array>

// A month by its days: the one layout that the calendar screen, the date picker, the small months, the pages for the browser
// and the paper share. Week days count from 1, Sunday; a week begins on the day that the user has set (gWeekStartDay).
namespace vorel {

inline constexpr int monthCellCount = 42, monthColumns = 7;
inline constexpr int firstYear = 100, lastYear = 9999;      // of the calendar

// The month as 42 day cells, seven to the row.
struct MonthCells {
    int year = 0, month = 0;
    int firstCell = 0;          // index of day 1
    int days = 0;

    int dayAt(int cell) const { return cell < firstCell || cell >= firstCell + days ? 0 : cell - firstCell + 1; }    // 0: blank
    int cellOf(int day) const { return firstCell + day - 1; }
    int rows() const { return (firstCell + days + monthColumns - 1) / monthColumns; }
    basic::DateTime first() const;
    basic::DateTime last() const;
    basic::DateTime date(int day) const;
};
MonthCells monthCells(int year, int month, int weekStartDay);
// The number of the week that fills a row of the month. Weeks from Monday are those of ISO 8601; any other week is the one
// that holds its last day, counted from the week of 1 January.
int weekNumber(const MonthCells &month, int row, int weekStartDay);

// The same day so many months away, or the last day of a shorter month; days likewise. The calendar's ends hold.
basic::DateTime monthsAway(basic::DateTime date, int months);
basic::DateTime daysAway(basic::DateTime date, int days);

// "January" to "December"; "November 2026".
const std::array<QString, 12> &monthNames();
QString monthTitle(int year, int month);
// The week day heads from the week's first day: "Sun" ...
std::array<QString, 7> weekDayHeads(int weekStartDay);
// Saturdays and Sundays.
bool isWeekend(int column, int weekStartDay);

// Names on paper, in the reader's language: "November 2026"; "Sun"; "S"; "Mon 23"; "Nov 23".
QString paperMonthTitle(int year, int month);
QString paperMonthName(int month);
std::array<QString, 7> paperDayHeads(int weekStartDay);
std::array<QString, 7> paperDayLetters(int weekStartDay);
QString paperWeekDay(basic::DateTime day);
QString paperMonthDay(basic::DateTime day);

// A day as its numbers joined by "-", in the order of a date format: "23-11-2026".
QString joinedDate(basic::DateTime day, const QString &format);

}
