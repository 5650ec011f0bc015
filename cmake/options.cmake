# One interface target carries the warnings and the sanitizers to every library and program.
add_library(vantrace_options INTERFACE)
target_compile_options(vantrace_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused -Wnull-dereference
  # The same sum gives the same bits on every machine: no fused multiply-add behind our back.
  -ffp-contract=off
  # No errno and no traps from mathematics, so that roots and roundings stay inline.
  -fno-math-errno -fno-trapping-math)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in std::string sums that aren't there (its bug 105651); with precompiled headers it
  # sees strings and vectors overflow in the same way.
  target_compile_options(vantrace_options INTERFACE -Wno-restrict)
  if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    target_compile_options(vantrace_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow)
  endif()
endif()
if(VANTRACE_WERROR)
  target_compile_options(vantrace_options INTERFACE -Werror)
endif()
if(VANTRACE_SANITIZE)
  target_compile_options(vantrace_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vantrace_options INTERFACE -fsanitize=address,undefined)
endif()
target_include_directories(vantrace_options INTERFACE ${PROJECT_SOURCE_DIR})
