list(APPEND VOREL_ROUTINES
  session/categories.cpp
  session/changes.cpp
  session/datafiles.cpp
  session/datetexts.cpp
  session/ini.cpp
  session/sections.cpp
  session/recordtree.cpp
  session/sections/books.cpp
  session/sections/collections.cpp
  session/sections/inventory.cpp
  session/sections/movies.cpp
  session/sections/music.cpp
  session/shared.cpp
  session/state.cpp)
