# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# libFuzzer targets, with clang:
#   cmake --preset fuzz && cmake --build --preset fuzz && ctest --preset fuzz
include_guard()

option(QUANDREL_FUZZ "Build the fuzz targets (clang only)" OFF)
if(NOT QUANDREL_FUZZ)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "QUANDREL_FUZZ needs clang: use the preset fuzz.")
endif()

# The code under test must be built so too, or the fuzzer does not see which way it goes.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
add_link_options(-fsanitize=address,undefined)
add_custom_target(fuzz)

# quandrel_fuzz(NAME <name> SOURCES <files>... LIBRARIES <targets>... CORPUS <folder>
#               [DICTIONARY <file>])
# A fuzz target, part of the target fuzz. As a test it runs the committed seeds and some seconds
# of what grows from them; started by hand it runs until it finds something.
function(quandrel_fuzz)
  cmake_parse_arguments(arg "" "NAME;CORPUS;DICTIONARY" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES})
  target_link_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz ${arg_NAME})
  # What libFuzzer finds of interest it adds to the first folder, without a word: what fails is to be seen.
  set(found "${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}.corpus")
  file(MAKE_DIRECTORY "${found}")
  set(options -seed=1 -verbosity=0 -max_total_time=20 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1)
  if(arg_DICTIONARY)
    list(APPEND options "-dict=${CMAKE_CURRENT_SOURCE_DIR}/${arg_DICTIONARY}")
  endif()
  add_test(NAME ${arg_NAME}
    COMMAND ${arg_NAME} ${options} "${found}" "${CMAKE_CURRENT_SOURCE_DIR}/${arg_CORPUS}")
  set_tests_properties(${arg_NAME} PROPERTIES LABELS fuzz TIMEOUT 300
    ENVIRONMENT "ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=16") # for speed and memory
endfunction()
