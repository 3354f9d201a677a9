# prova(<name> FILES <file>... DIPENDE <target>... [ETICHETTA <label>] [SECONDI <time-out>] [MAIN <file>])
# One GoogleTest program, its tests known to CTest one by one, run offscreen in a folder of their own.
function(prova nome)
  cmake_parse_arguments(ARG "" "ETICHETTA;SECONDI" "FILES;DIPENDE" ${ARGN})
  if(NOT ARG_FILES OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "prova(${nome}): no files, or words that mean nothing: ${ARG_UNPARSED_ARGUMENTS}")
  endif()
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

# prova_locali(<name> [FILTRO <filter>])
# The whole program once more under each locale in which a shop's PC may be set up: a decimal comma that creeps
# into a statement or a file shows here. Alone, since its tests use the addresses of the runs one by one.
function(prova_locali nome)
  cmake_parse_arguments(ARG "" "FILTRO" "" ${ARGN})
  if(NOT ARG_FILTRO)
    set(ARG_FILTRO "*")
  endif()
  foreach(locale C it_IT.UTF-8 de_DE.UTF-8)
    add_test(NAME Locale.${nome}.${locale} COMMAND ${nome} --gtest_filter=${ARG_FILTRO} --gtest_brief=1)
    set_tests_properties(
      Locale.${nome}.${locale}
      PROPERTIES ENVIRONMENT LC_ALL=${locale}
                 LABELS locale
                 TIMEOUT 180
                 RUN_SERIAL TRUE)
  endforeach()
endfunction()
