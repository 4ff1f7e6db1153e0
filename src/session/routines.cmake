list(APPEND VOREL_ROUTINES
  session/categories.cpp
  session/changes.cpp
  session/datafiles.cpp
  session/ini.cpp
  session/sections.cpp
  session/sections/books.cpp
  session/sections/inventory.cpp
  session/sections/movies.cpp
  session/sections/music.cpp
  session/shared.cpp
  session/state.cpp)
