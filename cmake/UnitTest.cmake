# unit_test(<name> FILES <file>... DEPENDS_ON <target>... [LABEL <label>] [LOCALE <locale>] [SECONDS <time-out>] [WHOLE])
# One GoogleTest program, known to CTest by its suites, run offscreen under a locale, C where none is named. WHOLE: known
# to CTest as one test, for a program whose suites take less time than a process takes to start.
function(unit_test name)
  cmake_parse_arguments(ARG "WHOLE" "LABEL;LOCALE;SECONDS" "FILES;DEPENDS_ON" ${ARGN})
  if(NOT ARG_FILES OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "unit_test(${name}): no files, or words that mean nothing: ${ARG_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT ARG_LABEL)
    set(ARG_LABEL ${name})
  endif()
  if(NOT ARG_LOCALE)
    set(ARG_LOCALE C)
  endif()
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 120)
  endif()
  add_executable(${name} ${ARG_FILES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE sostegno ${ARG_DEPENDS_ON} gestionale_options GTest::gtest GTest::gmock)
  target_precompile_headers(${name} REUSE_FROM sostegno)
  if(ARG_WHOLE)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_SECONDS} ENVIRONMENT LC_ALL=${ARG_LOCALE})
    return()
  endif()
  set(suites ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
  add_custom_command(
    TARGET ${name}
    POST_BUILD
    COMMAND
      ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:${name}> -D
      SUITES=${suites} -D LABEL=${ARG_LABEL} -D LOCALE=${ARG_LOCALE} -D SECONDS=${ARG_SECONDS} -P
      ${PROJECT_SOURCE_DIR}/cmake/DiscoverSuites.cmake
    BYPRODUCTS ${suites}
    VERBATIM)
  set_property(
    TARGET ${name}
    APPEND
    PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/DiscoverSuites.cmake)
  # A program that was never built is a failing test, not a missing one.
  file(
    WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake
    "if(EXISTS \"${suites}\")\n  include(\"${suites}\")\nelse()\n  add_test(${name}_NOT_BUILT ${name}_NOT_BUILT)\n"
    "endif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
endfunction()

# locale_runs(<name> [FILTER <filter>])
# The whole program once more under the locales in which shops' PCs are set up, Italian and German: a decimal comma that
# creeps into a statement or a file shows here.
function(locale_runs name)
  cmake_parse_arguments(ARG "" "FILTER" "" ${ARGN})
  if(NOT ARG_FILTER)
    set(ARG_FILTER "*")
  endif()
  foreach(locale it_IT.UTF-8 de_DE.UTF-8)
    add_test(NAME Locale.${name}.${locale} COMMAND ${name} --gtest_filter=${ARG_FILTER} --gtest_brief=1)
    set_tests_properties(Locale.${name}.${locale} PROPERTIES ENVIRONMENT LC_ALL=${locale} LABELS locale TIMEOUT 180)
  endforeach()
endfunction()
