# Warnings and flags of all code of this project.

set(TS_SYSTEM_LIBRARIES advapi32 comctl32 gdi32 ole32 oleaut32 user32 uuid)

add_library(ts_warnings INTERFACE)
target_compile_options(ts_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor
  -Wdeprecated-copy-dtor -Werror)

# One file to deploy: each module carries its own runtime, and memory never changes hands between them.
add_link_options(-static -fstack-protector-strong -Wl,--no-insert-timestamp)
add_compile_options(-fstack-protector-strong)

# Options of a target that compiles the library's own sources.
function(ts_library_options target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PRIVATE TS_BUILDING_LIBRARY)
  target_link_libraries(${target} PRIVATE ts_warnings)
endfunction()

# Compiles each header alone, so that each one includes what it needs.
function(ts_check_headers target)
  set(sources)
  foreach(header IN LISTS ARGN)
    string(MAKE_C_IDENTIFIER "${header}" name)
    set(source ${CMAKE_BINARY_DIR}/header_check/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  add_library(${target} OBJECT ${sources})
  ts_library_options(${target})
endfunction()
