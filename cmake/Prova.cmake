# prova(<name> FILES <file>... DIPENDE <target>... [ETICHETTA <label>] [SECONDI <time-out>] [MAIN <file>])
# One GoogleTest program, its tests known to CTest one by one, run offscreen in a folder of their own.
function(prova nome)
  cmake_parse_arguments(ARG "" "ETICHETTA;SECONDI" "FILES;DIPENDE" ${ARGN})
  if(NOT ARG_ETICHETTA)
    set(ARG_ETICHETTA ${nome})
  endif()
  if(NOT ARG_SECONDI)
    set(ARG_SECONDI 60)
  endif()
  add_executable(${nome} ${ARG_FILES})
  set_target_properties(${nome} PROPERTIES AUTOMOC ON)
  target_link_libraries(${nome} PRIVATE sostegno ${ARG_DIPENDE} gestionale_opzioni GTest::gtest GTest::gmock)
  target_precompile_headers(${nome} REUSE_FROM sostegno)
  gtest_discover_tests(
    ${nome}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${ARG_ETICHETTA} TIMEOUT ${ARG_SECONDI})
endfunction()
