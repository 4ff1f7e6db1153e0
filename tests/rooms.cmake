# Who may include whom: a folder of src/ includes itself and folders above it in this list, never one below.
# Run as: cmake -DSOURCE=<src folder> -P rooms.cmake
set(order
  platform/basic platform/dao platform/desktop platform/richtext platform/printer platform/mail platform/controls
  session accounts store media utilities calendar reminders print records contacts exchange frame app)

set(wrong)
file(GLOB_RECURSE files RELATIVE ${SOURCE} ${SOURCE}/*.h ${SOURCE}/*.cpp)
foreach(file IN LISTS files)
  string(REGEX MATCH "^(platform/)?[a-z]+" folder ${file})
  list(FIND order ${folder} own)
  if(own EQUAL -1)
    list(APPEND wrong "${file}: the folder ${folder} has no place in the order")
    continue()
  endif()
  file(STRINGS ${SOURCE}/${file} includes REGEX "^#include \"")
  foreach(line IN LISTS includes)
    string(REGEX MATCH "\"((platform/)?[a-z]+)/" ignored "${line}")
    list(FIND order "${CMAKE_MATCH_1}" other)
    if(other GREATER own)
      list(APPEND wrong "${file} includes ${CMAKE_MATCH_1}, which is above ${folder}")
    endif()
  endforeach()
endforeach()

list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "no files under ${SOURCE}")
endif()
if(wrong)
  list(JOIN wrong "\n  " text)
  message(FATAL_ERROR "includes against the order of the folders:\n  ${text}")
endif()
