# One place for the policy of every target: language level, warnings, Qt's strict string and signal rules,
# hidden visibility, precompiled headers, the compiler cache.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

option(VOREL_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(VOREL_WERROR "Treat warnings as errors" OFF)

find_program(VOREL_CCACHE ccache)
if(VOREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # A precompiled header hides its macros and times from the cache; these settings let both work together.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VOREL_CCACHE})
endif()

function(vorel_policy target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
  if(VOREL_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400
    VOREL_VERSION="${PROJECT_VERSION}" VOREL_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    VOREL_REVISION=${PROJECT_VERSION_PATCH})
  if(VOREL_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# vorel_precompile(TARGET KIND): the precompiled header of that kind. A header of Qt's takes ten seconds and 300 MB, so each kind
# is made once, by a target of its own that has the bare definitions, and shared by all that want it.
function(vorel_precompile target kind)
  set(owner vorel_pch_${kind})
  if(NOT TARGET ${owner})
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/pch/${kind}.cpp CONTENT "// Carries the precompiled header of its kind.\n")
    add_library(${owner} OBJECT ${PROJECT_BINARY_DIR}/pch/${kind}.cpp)
    vorel_policy(${owner})
    if(kind MATCHES "widgets")
      target_link_libraries(${owner} PRIVATE Qt6::Widgets)
      set(headers <QtWidgets>)
    else()
      target_link_libraries(${owner} PRIVATE Qt6::Core)
      set(headers <QtCore>)
    endif()
    if(kind MATCHES "test")
      target_link_libraries(${owner} PRIVATE GTest::gtest)
      list(PREPEND headers <gtest/gtest.h>)
    else()
      list(APPEND headers <algorithm> <functional> <memory> <optional> <vector>)
    endif()
    target_precompile_headers(${owner} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

# vorel_library(NAME [WIDGETS] SOURCES a.cpp ... DEPENDS lib ...)
# WIDGETS marks the libraries that may know screens; they get the moc and a precompiled header with the widgets.
function(vorel_library name)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  vorel_policy(${name})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Core ${ARG_DEPENDS})
  if(ARG_WIDGETS)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    vorel_precompile(${name} widgets)
  else()
    vorel_precompile(${name} core)
  endif()
endfunction()

# vorel_test(NAME [WIDGETS] [DATA] SOURCES a.cpp ... DEPENDS lib ...): one test program a folder, run as one ctest entry.
# DATA: its files read test data from the folder, whose place they know as VOREL_TEST_DATA.
function(vorel_test name)
  cmake_parse_arguments(ARG "WIDGETS;DATA" "TIMEOUT" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  vorel_policy(${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  if(ARG_DATA)
    target_compile_definitions(${name} PRIVATE VOREL_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}")
  endif()
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} vorel_test_support GTest::gtest)
  if(ARG_WIDGETS)
    target_link_libraries(${name} PRIVATE Qt6::Widgets Qt6::Test)
    vorel_precompile(${name} test_widgets)
  else()
    vorel_precompile(${name} test)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
