# What every target of the project shares: the Qt generation, warnings, and how a test is added.
include_guard()

set(QUANDREL_QT 6 CACHE STRING "Qt generation to build with: 6 or 5 (the plugin alone also: 4)")
set_property(CACHE QUANDREL_QT PROPERTY STRINGS 6 5 4)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-Wall -Wextra -Wpedantic)
add_compile_definitions(QT_NO_KEYWORDS)

# Everything that runs lands in one folder, so that a program finds the plugin beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

# A test's own code runs once and is not what is tested: no time for making it fast.
set(QUANDREL_TEST_OPTIONS -O0)

# A test's slots are in its own source, as a rule. Then one run of moc does what AUTOMOC needs a scan,
# a run and an empty source for, in each of a hundred tests.
function(quandrel_test_moc name)
  set(with_slots)
  foreach(source IN LISTS ARGN)
    file(STRINGS "${source}" found REGEX "Q_OBJECT" LIMIT_COUNT 1)
    if(found)
      list(APPEND with_slots "${source}")
    endif()
  endforeach()
  if(NOT with_slots STREQUAL "${name}.cpp")
    return()
  endif()
  set(moc "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
  qt_generate_moc(${name}.cpp "${moc}" TARGET ${name})
  target_sources(${name} PRIVATE "${moc}")
  target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()

# quandrel_test(NAME <name> SOURCES <files>... LIBRARIES <targets>...)
# A QtTest executable, run by CTest on Qt's offscreen platform. <name> mirrors the tested class.
function(quandrel_test)
  cmake_parse_arguments(arg "" "NAME" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE test-support ${arg_LIBRARIES})
  target_precompile_headers(${arg_NAME} REUSE_FROM test-headers)
  target_compile_options(${arg_NAME} PRIVATE ${QUANDREL_TEST_OPTIONS})
  set_target_properties(${arg_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
  quandrel_test_moc(${arg_NAME} ${arg_SOURCES})
  add_test(NAME ${arg_NAME} COMMAND ${arg_NAME})
  quandrel_test_environment(${arg_NAME})
endfunction()

# No display, no user settings, and plain C sorting and numbers unless a test sets its own.
function(quandrel_test_environment)
  set_tests_properties(${ARGN} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;XDG_DATA_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/data;XDG_STATE_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/state;XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/xdg/config;ASAN_OPTIONS=detect_leaks=1;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
