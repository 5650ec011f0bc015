# vantrace_library(NAME SOURCES ... USES ...): one folder, one library, without any Qt on its path.
function(vantrace_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vantrace_options ${ARG_USES})
endfunction()
