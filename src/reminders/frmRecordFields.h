#pragma once

#include "reminders/frmRecord.h"

namespace vorel {

// The fields of a section's screen, and of the two that share it: those are created, but neither bound nor shown.
std::vector<controls::Field> recordFields(const reminders::ReminderDesign &design);
bool isOnPanel(const controls::Field &field);       // of the frequency or the full details

}
