list(APPEND VOREL_SCREENS calendar/frmCalendarDrop.cpp calendar/frmCalendarDropCell.cpp)
