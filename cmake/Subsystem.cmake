# subsystem(<name> FILES <file>... [DEPENDS_ON <target>...] [PRIVATELY <target>...] [PCH <header>...])
# A subsystem's static library `<name>`, alias `gestionale::<name>`; its headers are included as
# "<name>/header.h". Only the targets named under DEPENDS_ON are reachable by those who link it.
function(subsystem name)
  cmake_parse_arguments(ARG "" "" "FILES;DEPENDS_ON;PRIVATELY;PCH" ${ARGN})
  add_library(${name} STATIC ${ARG_FILES})
  add_library(gestionale::${name} ALIAS ${name})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS_ON} PRIVATE gestionale_options ${ARG_PRIVATELY})
  if(ARG_PCH)
    target_precompile_headers(${name} PRIVATE ${ARG_PCH})
  endif()
endfunction()

# sees_headers(<target> <folder>...)
# Lets a target include the headers of folders that it does not link: constants and interfaces only. The folders
# are named for the check of inclusions.
function(sees_headers target)
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/devices)
endfunction()
