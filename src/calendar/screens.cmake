list(APPEND VOREL_SCREENS
  calendar/frmCalendar.cpp
  calendar/frmCalendarDay.cpp
  calendar/frmCalendarDrop.cpp
  calendar/frmCalendarDropCell.cpp
  calendar/frmCalendarLayout.cpp
  calendar/frmCalendarSmallMonth.cpp)
