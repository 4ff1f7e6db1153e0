#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <optional>

// What the inventory knows of a thing's warranty, and how its screen shows dates.
namespace vorel::records {

// The purchase date plus that many months (31 January and one month is the end of February). Nothing when the first
// text is no date, the number at the head of the second is not above 0, or the day lies outside the calendar.
std::optional<basic::DateTime> warrantyExpiry(const QString &purchaseDate, const QString &period);

// Adds the event "Warranty Expired" with that text to the main file. false: the text has one already, whatever its
// date. An error, and nothing added, when the query or the row fails (a text longer than an event's).
bool transferWarranty(const basic::DateTime &expiry, const QString &eventText);

// A date's text as a record's box shows and keeps it (gDateShort); a text that is not a date is unchanged.
QString shownDate(const QString &text);

}
