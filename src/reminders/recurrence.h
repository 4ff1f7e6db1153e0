#pragma once

#include "platform/dao/dao.h"

#include <QString>

// A repeating appointment or bill is materialised: one plain row for each occurrence. The rows of a series are held
// together by their text alone.
namespace vorel {

enum class ReminderKind { Appointment, Bill, Event };       // record codes "A", "B", "E"
ReminderKind reminderKind(const QString &recordCode);

// What the record screen holds when a series is made: the texts of its controls.
struct SeriesFields {
    ReminderKind kind = ReminderKind::Appointment;
    QString text;               // txtAppointment or txtBill
    QString date;               // txtDate
    QString time;               // cboTime ("A")
    QString amount;             // txtAmount ("B")
    QString website;            // txtWebsite ("B")
    bool fixedAmount = false;
    bool deleteAfter = false;   // chkDelete
    QString periodMonth;        // txtPeriodMonth
    QString periodDays;         // txtPeriodDays
    QString weekNum;            // cboDay: "1st" ... "4th"
    QString weekDay;            // cboWeekDay: "Sun" ...
    bool weekdayRule = false;   // optPeriod(3)
};

// Each opens the main file, works in one transaction, closes. Engine errors (an apostrophe in the text) pass to the caller.
void DeleteFutureDates(const SeriesFields &fields);
void CreateFutureDates(const SeriesFields &fields);     // by days and by months, to 31 December of next year
void CreateMonthDates(const SeriesFields &fields);      // the weekday rule, over the row's year and the next
// The two steps of a save for "A" and "B": CreateMonthDates and CreateFutureDates under their conditions.
void createSeries(const SeriesFields &fields);

void RollForwardDates();
void PurgeExpiredRows();

}
