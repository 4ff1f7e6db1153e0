#pragma once

#include "calendar/month.h"

#include <QString>
#include <optional>

class QRect;
class QWidget;

namespace vorel {

// The day that a date box shows: the one that showDate put there, else what its text means (typedDate). A format that cannot
// be read back ("yyyy") thus keeps its day.
void showDate(QWidget *box, basic::DateTime date);
std::optional<basic::DateTime> shownDate(const QWidget *box);
// The same for a box that shows its date in another format.
void showDate(QWidget *box, basic::DateTime date, const QString &format);
std::optional<basic::DateTime> shownDate(const QWidget *box, const QString &format);

// Shows frmCalendarDrop, a drop-down beside the box, modally, on the box's date (today if it shows none), and writes the chosen
// date into the box in the display date format. Cancelling leaves the box as it was. true: a date was applied.
bool OpenDatePicker(QWidget *box);
bool OpenDatePicker(QWidget *box, const QString &format);       // of a box that shows another format

// The same for a cell of a grid: drops down below the cell, given in the grid's own coordinates, on the cell's day. The chosen
// day; nullopt: cancelled.
std::optional<basic::DateTime> openDatePickerOnCell(QWidget *grid, const QRect &cell, const std::optional<basic::DateTime> &day);

}
