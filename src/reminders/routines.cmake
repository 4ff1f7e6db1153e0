list(APPEND VOREL_ROUTINES
  reminders/recurrence.cpp
  reminders/recurrence_passes.cpp
  reminders/record.cpp
  reminders/alerts.cpp
  reminders/greetings.cpp
  reminders/messages.cpp)
