list(APPEND VOREL_ROUTINES
  store/designs.cpp
  store/upgrade.cpp
  store/version.cpp)
