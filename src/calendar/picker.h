#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <array>
#include <optional>

class QRect;
class QWidget;

namespace vorel {

// Shows frmCalendarDrop beside the box, modally, on the box's date (today if its text is none), and writes the chosen
// date into the box in the display date format. The code is the picker's return code, three characters at most ("R1").
// Cancelling leaves the box as it was. true: a date was applied.
bool OpenDatePicker(QWidget *box, const QString &code);

// The same for a place that is no box of its own (a grid's cell): drops down below the widget. The description is told to
// assistive tools. The chosen date in the display date format; nullopt: cancelled.
std::optional<QString> pickDate(QWidget *beside, const QString &text, const QString &description = {});

// The same for a cell of a grid: drops down below the cell, given in the grid's own coordinates. The code is the grid's
// letter. The chosen day; nullopt: cancelled.
std::optional<basic::DateTime> openDatePickerOnCell(QWidget *grid, const QRect &cell, const QString &text, const QString &code);

// What a return code stands for: a box of a screen. A code without a box belongs to whoever opens the picker with it.
struct PickerTarget {
    QStringView code;
    QStringView screen;         // objectName of the screen
    QStringView box;            // objectName of the date box, "" = the box that the picker was opened on
};
const PickerTarget *pickerTarget(const QString &code);      // nullptr: no such code

inline constexpr int monthCellCount = 42;

// The month as 42 day cells from the week's first day; what the picker draws.
struct MonthCells {
    int year = 0, month = 0;
    int firstCell = 0;          // index of day 1
    int days = 0;
};
MonthCells monthCells(int year, int month, int weekStartDay);
// The date that a month away stands under the same day, or under the last day of a shorter month.
basic::DateTime monthsAway(basic::DateTime date, int months);
// "November 2026"
QString monthTitle(int year, int month);
// The week day heads from the week's first day: "Sun" ...
std::array<QString, 7> weekDayHeads(int weekStartDay);
// The date that a text stands for in the picker: today if it is none.
basic::DateTime pickerDate(const QString &text);

}
