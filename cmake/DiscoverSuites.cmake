# cmake -D PROGRAM=<path> -D SUITES=<file> -D LABEL=<label> -D LOCALE=<locale> -D SECONDS=<time-out> -P
# DiscoverSuites.cmake
# What CTest is told of a GoogleTest program: tests that bear the names of their suites. Small suites go together into
# one process, since one that starts takes more than most tests do; from a_process_takes tests on it is full.
set(a_process_takes 30)
execute_process(
  COMMAND "${PROGRAM}" --gtest_list_tests
  OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
# A list takes brackets and semicolons for its own, and parameters are printed with both.
string(REGEX REPLACE "[][;]" "_" listed "${listed}")
string(REGEX MATCHALL "\n[^ \n]" suites "\n${listed}")
list(LENGTH suites all)
string(REPLACE "\n" ";" lines "${listed}")
set(tests "")
set(filed 0)
set(suites "")

# What was gathered becomes a test.
macro(end_process)
  if(suites)
    list(JOIN suites "+" name)
    list(TRANSFORM suites APPEND ".*")
    list(JOIN suites ":" filter)
    string(APPEND tests "add_test([=[${name}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${filter}]=] --gtest_brief=1)\n"
                        "set_tests_properties([=[${name}]=] PROPERTIES LABELS ${LABEL} TIMEOUT ${SECONDS} "
                        "ENVIRONMENT LC_ALL=${LOCALE})\n")
  endif()
  set(suites "")
  set(gathered 0)
endmacro()

end_process()
foreach(line IN LISTS lines)
  # "Suite." or "Instance/Suite.  # TypeParam = ..."; its tests are indented.
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.( .*)?$")
    set(suite "${CMAKE_MATCH_1}")
    if(gathered GREATER_EQUAL a_process_takes)
      end_process()
    endif()
    list(APPEND suites "${suite}")
    math(EXPR filed "${filed} + 1")
  elseif(line MATCHES "^ ")
    math(EXPR gathered "${gathered} + 1")
  endif()
endforeach()
end_process()
if(filed EQUAL 0 OR NOT filed EQUAL all)
  message(FATAL_ERROR "${PROGRAM} lists ${all} suites, ${filed} of them understood")
endif()
file(WRITE "${SUITES}" "${tests}")
