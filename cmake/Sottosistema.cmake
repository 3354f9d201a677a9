# sottosistema(<name> FILES <file>... [DIPENDE <target>...] [PRIVATO <target>...] [PCH <header>...])
# A subsystem's static library `<name>`, alias `gestionale::<name>`; its headers are included as
# "<name>/header.h". Only the targets named under DIPENDE are reachable by those who link it.
function(sottosistema nome)
  cmake_parse_arguments(ARG "" "" "FILES;DIPENDE;PRIVATO;PCH" ${ARGN})
  add_library(${nome} STATIC ${ARG_FILES})
  add_library(gestionale::${nome} ALIAS ${nome})
  set_target_properties(${nome} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  target_include_directories(${nome} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${nome} PUBLIC ${ARG_DIPENDE} PRIVATE gestionale_opzioni ${ARG_PRIVATO})
  if(ARG_PCH)
    target_precompile_headers(${nome} PRIVATE ${ARG_PCH})
  endif()
endfunction()

# vede_intestazioni(<target> <folder>...)
# Lets a target include the headers of folders that it does not link: constants and interfaces only. The folders
# are named for the check of inclusions.
function(vede_intestazioni bersaglio)
  target_include_directories(${bersaglio} PUBLIC ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/devices)
endfunction()
