list(APPEND VOREL_ROUTINES
  session/categories.cpp
  session/datafiles.cpp
  session/ini.cpp
  session/sections.cpp
  session/shared.cpp
  session/state.cpp)
