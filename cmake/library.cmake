# vantrace_library(NAME [WIDGETS | OWN_HEADERS] SOURCES ... USES ...): one folder, one library. Plain libraries
# have no Qt on their path; WIDGETS are windows, which take in Qt's headers precompiled; OWN_HEADERS takes none
# of ours precompiled.
function(vantrace_library name)
  cmake_parse_arguments(ARG "WIDGETS;OWN_HEADERS" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vantrace_options ${ARG_USES})
  if(ARG_WIDGETS)
    target_precompile_headers(${name} REUSE_FROM vantrace_widget_headers)
  elseif(NOT ARG_OWN_HEADERS)
    target_precompile_headers(${name} REUSE_FROM vantrace_headers)
  endif()
endfunction()
