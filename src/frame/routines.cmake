list(APPEND VOREL_ROUTINES
  frame/state.cpp
  frame/ini.cpp
  frame/startup.cpp
  frame/periods.cpp
  frame/sections.cpp
  frame/categories.cpp
  frame/menus.cpp
  frame/buttontips.cpp
  frame/gridlayout.cpp
  frame/rowrules.cpp
  frame/rowtips.cpp
  frame/shared.cpp
  frame/celltexts.cpp
  frame/shopping.cpp)
