#pragma once

#include "reminders/recurrence.h"

// Names and texts that the series and the start-up passes share.
namespace vorel::recurrence {

struct ReminderTable {
    QString name;           // as the queries spell it
    QString textField;
};
const ReminderTable &appointmentsTable();
const ReminderTable &billsTable();

basic::DateTime lastDayOfNextYear();

}
