#pragma once

#include "platform/basic/value.h"

#include <optional>

// What a text in a date or time box means: one reading for screens, cells and the date picker.
namespace vorel {

// The day that a typed or shown text names; nullopt if it is not a date, or a time of day alone. Numbers are read in the order of
// `format` (as in Format), the one in which the box shows its date, then in the region's. A text whose year is not where
// that order has it is refused rather than taken for another day.
std::optional<basic::DateTime> typedDate(const QString &text, const QString &format);
std::optional<basic::DateTime> typedDate(const QString &text);     // of a box in the display date format
// A day for a text field of eleven characters: in the display date format where that fits and the region reads the same
// day from it, else in the short one.
QString storedDateText(basic::DateTime date);

// No date at all: 1 January 1900, and the 1 January 4501 that mail programs give, as a date or as a text.
bool isNoDate(const basic::Value &date);

// A time of day as the reminders keep and show it ("hh:mm am/pm"); any other text as it is.
QString typedTime(const QString &text);

}
