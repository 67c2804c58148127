# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# Which lines of the product the tests run, told by gcovr:
#   cmake --preset coverage && cmake --build --preset coverage && ctest --preset coverage
#   cmake --build --preset coverage --target coverage
include_guard()

option(QUANDREL_COVERAGE "Count which lines run, and add the target coverage (g++ only)" OFF)
if(NOT QUANDREL_COVERAGE)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  message(FATAL_ERROR "QUANDREL_COVERAGE needs g++: use the preset coverage.")
endif()
find_program(GCOVR gcovr)
if(NOT GCOVR)
  message(FATAL_ERROR "gcovr is missing, which tells the coverage: install the package gcovr.")
endif()

add_compile_options(--coverage -fprofile-abs-path)
add_link_options(--coverage)
# It is the product that counts.
list(APPEND QUANDREL_TEST_OPTIONS -fno-profile-arcs -fno-test-coverage)

# Of the tests that ran since the last report: what is reported begins anew.
set(coverage_folder "${PROJECT_BINARY_DIR}/coverage")
file(MAKE_DIRECTORY "${coverage_folder}")
add_custom_target(coverage
  COMMAND "${GCOVR}" --root "${PROJECT_SOURCE_DIR}" --filter "${PROJECT_SOURCE_DIR}/(host|robot|rosbridge|src)/"
    --exclude-throw-branches --delete --print-summary
    --txt "${coverage_folder}/summary.txt" --html-details "${coverage_folder}/index.html"
    "${PROJECT_BINARY_DIR}"
  COMMAND "${CMAKE_COMMAND}" -E echo "Each file and each line: ${coverage_folder}/index.html"
  VERBATIM)
