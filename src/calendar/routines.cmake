list(APPEND VOREL_ROUTINES
  calendar/month.cpp
  calendar/monthlist.cpp
  calendar/monthpage.cpp
  calendar/monthpicture.cpp
  calendar/monthrows.cpp)
