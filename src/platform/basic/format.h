#pragma once

#include "platform/basic/value.h"

namespace vorel::basic {

// The runtime's Format: number, date and text patterns, named formats. An empty pattern gives CStr without a leading
// blank; a text value is read as a number or a date where the pattern asks for one, otherwise returned unchanged;
// Null gives "". Month and day names are English whatever the regional settings.
QString Format(const Value &value, QStringView pattern = {});
// The same, and the plain text where the value does not suit the pattern.
QString formatOr(const Value &value, QStringView pattern);

}
