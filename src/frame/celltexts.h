#pragma once

#include "platform/basic/value.h"

#include <optional>

// What a text typed into a reminder's cell stands for.
namespace vorel {

// The day that a typed text names; nullopt: it is no date. Numbers alone are read in the order of the display format, so
// that what the screen shows means the same when it is typed.
std::optional<basic::DateTime> typedDate(const QString &text);
// A typed time of day as the reminders keep it ("hh:mm am/pm"); any other text as it is.
QString typedTime(const QString &text);

}
