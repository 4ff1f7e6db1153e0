list(APPEND VOREL_ROUTINES calendar/picker.cpp)
