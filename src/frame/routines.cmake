list(APPEND VOREL_ROUTINES
  frame/startup.cpp
  frame/periods.cpp
  frame/menus.cpp
  frame/buttontips.cpp
  frame/gridlayout.cpp
  frame/rowrules.cpp
  frame/rowtips.cpp
  frame/shopping.cpp)
