list(APPEND VOREL_ROUTINES
  reminders/recurrence.cpp
  reminders/recurrence_passes.cpp
  reminders/record.cpp)
