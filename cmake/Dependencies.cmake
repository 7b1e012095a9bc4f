# Third-party code, all from the system's packages: header-only CLI11 and nlohmann-json, and the
# sources of GoogleTest. When building across, the headers are reached through links of their own, because
# the build machine's include folder as a whole must stay out of the search path.

function(ts_header_only name folder probe)
  find_path(${name}_ROOT ${probe} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(include ${${name}_ROOT})
  if(CMAKE_CROSSCOMPILING)
    set(include ${CMAKE_BINARY_DIR}/include/${folder})
    file(MAKE_DIRECTORY ${include})
    file(CREATE_LINK ${${name}_ROOT}/${folder} ${include}/${folder} SYMBOLIC)
  endif()
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${include})
endfunction()

ts_header_only(ts_cli11 CLI CLI/CLI.hpp)
ts_header_only(ts_json nlohmann nlohmann/json.hpp)

if(TS_BUILD_TESTS)
  find_path(TS_GOOGLETEST_SOURCE googletest/src/gtest-all.cc
    PATHS /usr/src/googletest $ENV{GOOGLETEST_SOURCE} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${TS_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
