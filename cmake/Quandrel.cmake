# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# What every target of the project shares: the Qt generation, warnings, and how a test is added.
include_guard()

set(QUANDREL_QT 6 CACHE STRING "Qt generation to build with: 6 or 5 (the plugin alone also: 4)")
set_property(CACHE QUANDREL_QT PROPERTY STRINGS 6 5 4)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON) # a folder without signals and slots switches it off: it takes its time
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-Wall -Wextra -Wpedantic)
add_compile_definitions(QT_NO_KEYWORDS)

# Everything that runs lands in one folder, so that a program finds the plugin beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

# A test's own code runs once and is not what is tested: no time for making it fast.
set(QUANDREL_TEST_OPTIONS -O0)

# quandrel_shared_headers(<target> MODULES <Qt's>... [OPTIONS <of the compiler>...])
# Most of a source's compile time is Qt's headers: those that reuse <target>'s, with the same options and
# at least its modules, parse them once.
function(quandrel_shared_headers target)
  cmake_parse_arguments(arg "" "" "MODULES;OPTIONS" ${ARGN})
  list(TRANSFORM arg_MODULES PREPEND Qt OUTPUT_VARIABLE headers)
  list(TRANSFORM headers REPLACE "(.+)" "<\\1>")
  list(TRANSFORM arg_MODULES PREPEND Qt::)
  add_library(${target} STATIC "${PROJECT_SOURCE_DIR}/cmake/Headers.cpp")
  target_link_libraries(${target} PRIVATE ${arg_MODULES})
  target_compile_options(${target} PRIVATE ${arg_OPTIONS})
  target_precompile_headers(${target} PRIVATE ${headers})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()

# What moc makes of a test's slots. Without the folders of headers, which it would read for every test
# and needs for none.
function(quandrel_tests_moc program)
  foreach(source IN LISTS ARGN)
    file(STRINGS "${source}" found REGEX "Q_OBJECT" LIMIT_COUNT 1)
    if(NOT found)
      continue()
    endif()
    cmake_path(GET source STEM class)
    set(moc "${CMAKE_CURRENT_BINARY_DIR}/moc/${class}.moc")
    if(source MATCHES "\\.h$")
      set(moc "${CMAKE_CURRENT_BINARY_DIR}/moc/moc_${class}.cpp")
    endif()
    qt_generate_moc("${source}" "${moc}")
    target_sources(${program} PRIVATE "${moc}")
  endforeach()
  target_include_directories(${program} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/moc")
  set_target_properties(${program} PROPERTIES AUTOMOC OFF)
endfunction()

# quandrel_tests(<program> SOURCES <files>... LIBRARIES <targets>...)
# One program for the test classes of a folder and those below it, since linking a program for each
# takes longer than running it. CTest runs each class, named as its source <Class>Test.cpp, in a
# process of its own, on Qt's offscreen platform.
function(quandrel_tests program)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${program} ${arg_SOURCES})
  target_link_libraries(${program} PRIVATE test-support ${arg_LIBRARIES})
  target_precompile_headers(${program} REUSE_FROM test-headers)
  target_compile_options(${program} PRIVATE ${QUANDREL_TEST_OPTIONS})
  set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
  quandrel_tests_moc(${program} ${arg_SOURCES})
  list(FILTER arg_SOURCES INCLUDE REGEX "Test\\.cpp$")
  foreach(source IN LISTS arg_SOURCES)
    cmake_path(GET source STEM class)
    add_test(NAME ${class} COMMAND ${program} ${class})
    quandrel_test_environment(${class})
  endforeach()
endfunction()

# No display, no user settings, and plain C sorting and numbers unless a test sets its own.
function(quandrel_test_environment)
  set_tests_properties(${ARGN} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;XDG_DATA_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/data;XDG_STATE_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/state;XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/config;ASAN_OPTIONS=detect_leaks=1:quarantine_size_mb=64;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
