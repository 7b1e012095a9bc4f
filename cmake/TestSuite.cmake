# A test suite is one program. ts_add_suite(NAME SOURCES... [OBJECTS LIBRARIES...]) builds three of it, each with the
# objects of the libraries, and registers each with CTest:
#   NAME        the sources and the library's objects as they are
#   NAME_guard  the same objects over a heap that ends each allocation at an inaccessible page
#   NAME_ubsan  the library's sources compiled with traps on undefined behaviour, and with containers that check
#               their indices

function(ts_add_library_with_traps)
  list(TRANSFORM TS_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE sources)
  add_library(ts_objects_ubsan OBJECT ${sources})
  ts_library_options(ts_objects_ubsan)
  target_compile_options(ts_objects_ubsan PRIVATE
    -fsanitize=undefined -fsanitize-undefined-trap-on-error -fno-sanitize=vptr)
  # The traps take an index one behind the last for a container's end, which may be named but not written to.
  target_compile_definitions(ts_objects_ubsan PRIVATE _GLIBCXX_ASSERTIONS)
  # Only here: ts_objects, the same sources without it, shows that each includes what it needs.
  target_precompile_headers(ts_objects_ubsan PRIVATE ${PROJECT_SOURCE_DIR}/platform/WindowsHeaders.h)
endfunction()

# Options of a target that compiles tests against GoogleTest. Most of the time for a test source goes into the
# headers of GoogleTest and Windows, so ts_test_main compiles them once for all; much of the rest would go into
# optimising, which tests do not repay. A build with CMAKE_DISABLE_PRECOMPILE_HEADERS shows whether they include what
# they need. All targets that share the compiled headers need the same compiler flags.
function(ts_test_options target)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
  target_link_libraries(${target} PRIVATE ts_warnings gtest)
  if(target STREQUAL ts_test_main)
    target_precompile_headers(${target} PRIVATE
      ${PROJECT_SOURCE_DIR}/platform/WindowsHeaders.h <gtest/gtest.h>)
  else()
    target_precompile_headers(${target} REUSE_FROM ts_test_main)
  endif()
endfunction()

function(ts_add_suite name)
  cmake_parse_arguments(PARSE_ARGV 1 suite "" "" OBJECTS)
  add_library(${name}_objects OBJECT ${suite_UNPARSED_ARGUMENTS})
  target_compile_definitions(${name}_objects PRIVATE TS_STATIC)
  ts_test_options(${name}_objects)

  ts_add_suite_program(${name} ts_objects ${name}_objects ts_test_main ts_plain_heap ${suite_OBJECTS})
  ts_add_suite_program(${name}_guard ts_objects ${name}_objects ts_test_main ts_guard_page_heap ${suite_OBJECTS})
  ts_add_suite_program(${name}_ubsan ts_objects_ubsan ${name}_objects ts_test_main ts_plain_heap
    ${suite_OBJECTS})
  # What thousands of rounds leave behind does not depend on traps, and takes most of a suite's time.
  set_property(TEST ${name}_ubsan APPEND PROPERTY ENVIRONMENT "GTEST_FILTER=-*Rounds_Leave*")
endfunction()

# ts_add_suite_program(NAME OBJECT_LIBRARIES...): one test program out of object libraries.
function(ts_add_suite_program name)
  set(objects)
  foreach(library IN LISTS ARGN)
    list(APPEND objects $<TARGET_OBJECTS:${library}>)
  endforeach()
  add_executable(${name} ${objects})
  target_link_libraries(${name} PRIVATE gtest ${TS_SYSTEM_LIBRARIES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/tests)
  add_dependencies(${name} ts_languages_beside_tests)
  add_test(NAME ${name} COMMAND ${name})
  # An endless loop must end as a failure; no suite needs a tenth of this.
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# ts_run_in_zones(SUITE ZONES...): registers the suite once more per time zone. Under Wine the zone comes from the
# environment; Windows itself has only the machine's zone.
function(ts_run_in_zones suite)
  if(NOT CMAKE_CROSSCOMPILING)
    return()
  endif()
  foreach(zone IN LISTS ARGN)
    add_test(NAME ${suite}.${zone} COMMAND ${suite})
    set_tests_properties(${suite}.${zone} PROPERTIES ENVIRONMENT "TZ=${zone}")
  endforeach()
endfunction()

# ts_own_prefix(TESTS...): runs each of the tests in a Wine prefix of its own, because windows, COM classes and
# running programs are seen by all programs of a prefix.
function(ts_own_prefix)
  foreach(test IN LISTS ARGN)
    set_property(TEST ${test} APPEND PROPERTY
      ENVIRONMENT "TS_WINEPREFIX=${CMAKE_BINARY_DIR}/testprefix.${test}")
  endforeach()
endfunction()
