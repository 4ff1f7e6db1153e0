#pragma once

#include "platform/dao/dao.h"

#include <QString>
#include <optional>

// A repeating appointment or bill is materialised: one plain row for each occurrence. The rows of a series are held
// together by their text alone.
namespace vorel {

enum class ReminderKind { Appointment, Bill, Event };       // record codes "A", "B", "E"
ReminderKind reminderKind(const QString &recordCode);

// The row that a series starts from.
struct SeriesFields {
    ReminderKind kind = ReminderKind::Appointment;
    QString text;               // of the appointment or the bill
    std::optional<basic::DateTime> date;
    QString time;               // ("A")
    basic::Value amount;        // ("B")
    QString website;            // ("B")
    bool fixedAmount = false;
    bool deleteAfter = false;
    int months = 0;             // between the rows, 0 = the rule is not used
    int days = 0;
    QString weekNum;            // "1st" to "4th"
    QString weekDay;            // "Sun" to "Sat"
    bool weekdayRule = false;   // the option of the weekday rule is chosen
};

// What a series added.
struct SeriesResult {
    int rows = 0;
    std::optional<basic::DateTime> last;
};

// A text with an apostrophe (typed before such texts were changed) cannot be used in the queries: a row that holds one has no
// series, and what the routines below do with it ends with the engine's error.
bool canHaveSeries(const SeriesFields &fields);
// How many rows the rules ask for, without looking at the file.
int seriesLength(const SeriesFields &fields);

// Each works on the open main file, in one transaction (or within the caller's).
void DeleteFutureDates(dao::Database &database, const SeriesFields &fields);
SeriesResult CreateFutureDates(dao::Database &database, const SeriesFields &fields);    // by days and by months, to the end of next year
SeriesResult CreateMonthDates(dao::Database &database, const SeriesFields &fields);     // the weekday rule, over the row's year and the next
// The two steps of a save for "A" and "B": CreateMonthDates and CreateFutureDates under their conditions.
SeriesResult createSeries(dao::Database &database, const SeriesFields &fields);

void RollForwardDates();
void PurgeExpiredRows();

}
