# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# Sanitizers, and the libFuzzer targets that run under them:
#   cmake --preset qt5-asan && cmake --build --preset qt5-asan --target fuzz && ctest --preset qt5-asan -L fuzz
include_guard()

option(QUANDREL_SANITIZERS "Build with sanitizers, and the fuzz targets (clang only)" OFF)
if(NOT QUANDREL_SANITIZERS)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "QUANDREL_SANITIZERS needs clang: use the preset qt5-asan.")
endif()

# The code under test must be built for it, or the fuzzer does not see which way it goes.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
add_link_options(-fsanitize=address,undefined)
add_compile_definitions(QUANDREL_SANITIZERS) # for tests that measure memory
# No fuzzer looks into the tests.
list(APPEND QUANDREL_TEST_OPTIONS -fno-sanitize=fuzzer-no-link)
add_custom_target(fuzz)

# quandrel_fuzz(NAME <name> SOURCES <files>... LIBRARIES <targets>... CORPUS <folder>
#               [DICTIONARY <file>] RUNS <count>)
# A fuzz target, part of the target fuzz. As a test it runs the committed seeds and what grows from
# them, RUNS inputs in all, however fast the machine; started by hand it runs until it finds something.
function(quandrel_fuzz)
  cmake_parse_arguments(arg "" "NAME;CORPUS;DICTIONARY;RUNS" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES})
  target_link_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz ${arg_NAME})
  # What libFuzzer finds of interest it adds to the first folder, without a word: what fails is to be seen.
  set(found "${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}.corpus")
  file(MAKE_DIRECTORY "${found}")
  # Reading that folder again every second would make the inputs depend on the machine's speed.
  set(options -seed=1 -reload=0 -runs=${arg_RUNS} -verbosity=0 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1)
  if(arg_DICTIONARY)
    list(APPEND options "-dict=${CMAKE_CURRENT_SOURCE_DIR}/${arg_DICTIONARY}")
  endif()
  add_test(NAME ${arg_NAME}
    COMMAND ${arg_NAME} ${options} "${found}" "${CMAKE_CURRENT_SOURCE_DIR}/${arg_CORPUS}")
  # The sanitizer's options are for speed and memory.
  set_tests_properties(${arg_NAME} PROPERTIES LABELS fuzz TIMEOUT 300
    ENVIRONMENT "QT_HASH_SEED=0;ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=16")
endfunction()
