# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# The format check and clang-tidy as tests, so that they count like every other.
option(QUANDREL_LINT "Add the tests that check format and lint, and others of ./test --all" OFF)

if(NOT QUANDREL_LINT)
  return()
endif()

find_program(CLANG_FORMAT clang-format REQUIRED)
find_program(CLANG_TIDY clang-tidy REQUIRED)

set(code_folders examples src host robot rosbridge tests benchmarks)
list(TRANSFORM code_folders PREPEND "${PROJECT_SOURCE_DIR}/")
set(code_globs)
foreach(folder IN LISTS code_folders)
  list(APPEND code_globs "${folder}/*.h" "${folder}/*.cpp")
endforeach()
file(GLOB_RECURSE code CONFIGURE_DEPENDS ${code_globs})

add_test(NAME format COMMAND "${CLANG_FORMAT}" --dry-run -Werror ${code})
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME tidy
  COMMAND Python3::Interpreter -B "${CMAKE_CURRENT_LIST_DIR}/lint.py" "${CLANG_TIDY}"
    "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}")
set_tests_properties(tidy PROPERTIES RUN_SERIAL ON TIMEOUT 1500)
