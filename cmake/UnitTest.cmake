# unit_test(<name> FILES <file>... DEPENDS_ON <target>... [LABEL <label>] [SECONDS <time-out>] [MAIN <file>])
# One GoogleTest program, its tests known to CTest one by one, run offscreen in a folder of their own.
function(unit_test name)
  cmake_parse_arguments(ARG "" "LABEL;SECONDS" "FILES;DEPENDS_ON" ${ARGN})
  if(NOT ARG_FILES OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "unit_test(${name}): no files, or words that mean nothing: ${ARG_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT ARG_LABEL)
    set(ARG_LABEL ${name})
  endif()
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 60)
  endif()
  add_executable(${name} ${ARG_FILES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE sostegno ${ARG_DEPENDS_ON} gestionale_options GTest::gtest GTest::gmock)
  target_precompile_headers(${name} REUSE_FROM sostegno)
  gtest_discover_tests(
    ${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_SECONDS})
endfunction()

# locale_runs(<name> [FILTER <filter>])
# The whole program once more under each locale in which a shop's PC may be set up: a decimal comma that creeps
# into a statement or a file shows here. Alone, since its tests use the addresses of the runs one by one.
function(locale_runs name)
  cmake_parse_arguments(ARG "" "FILTER" "" ${ARGN})
  if(NOT ARG_FILTER)
    set(ARG_FILTER "*")
  endif()
  foreach(locale C it_IT.UTF-8 de_DE.UTF-8)
    add_test(NAME Locale.${name}.${locale} COMMAND ${name} --gtest_filter=${ARG_FILTER} --gtest_brief=1)
    set_tests_properties(
      Locale.${name}.${locale}
      PROPERTIES ENVIRONMENT LC_ALL=${locale}
                 LABELS locale
                 TIMEOUT 180
                 RUN_SERIAL TRUE)
  endforeach()
endfunction()
