# libFuzzer targets, with clang:
#   CXX=clang++ cmake -S . -B build/fuzz -G Ninja -D QUANDREL_FUZZ=ON -D CMAKE_BUILD_TYPE=RelWithDebInfo
#   cmake --build build/fuzz --target fuzz && ctest --test-dir build/fuzz -L fuzz
include_guard()

option(QUANDREL_FUZZ "Build the fuzz targets (clang only)" OFF)
if(NOT QUANDREL_FUZZ)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "QUANDREL_FUZZ needs clang: configure a new folder with CXX=clang++.")
endif()

# The code under test must be built so too, or the fuzzer does not see which way it goes.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
add_link_options(-fsanitize=address,undefined)
add_custom_target(fuzz)

# quandrel_fuzz(NAME <name> SOURCES <files>... LIBRARIES <targets>... CORPUS <folder>)
# A fuzz target, part of the target fuzz. As a test it runs the committed seeds and some seconds
# of what grows from them; started by hand it runs until it finds something.
function(quandrel_fuzz)
  cmake_parse_arguments(arg "" "NAME;CORPUS" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES})
  target_link_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz ${arg_NAME})
  # What libFuzzer finds of interest it adds to the first folder.
  set(found "${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}.corpus")
  file(MAKE_DIRECTORY "${found}")
  add_test(NAME ${arg_NAME} COMMAND ${arg_NAME} -seed=1 -runs=20000 -max_total_time=60 -timeout=10
    -rss_limit_mb=2048 "${found}" "${CMAKE_CURRENT_SOURCE_DIR}/${arg_CORPUS}")
  set_tests_properties(${arg_NAME} PROPERTIES LABELS fuzz TIMEOUT 300)
endfunction()
