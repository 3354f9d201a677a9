# cmake -D PROGRAM=<path> -D SUITES=<file> -D LABEL=<label> -D SECONDS=<time-out> -P DiscoverSuites.cmake
# What CTest is told of a GoogleTest program: one test a suite, run in one process. A process that starts for each test
# of a screen takes several times what the test itself does.
execute_process(
  COMMAND "${PROGRAM}" --gtest_list_tests
  OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" lines "${listed}")
set(tests "")
foreach(line IN LISTS lines)
  # "Suite." or "Instance/Suite.  # TypeParam = ..."; its tests are indented.
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.( .*)?$")
    set(suite "${CMAKE_MATCH_1}")
    string(APPEND tests "add_test([=[${suite}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${suite}.*]=] --gtest_brief=1)\n")
    string(APPEND tests "set_tests_properties([=[${suite}]=] PROPERTIES LABELS ${LABEL} TIMEOUT ${SECONDS} "
                        "ENVIRONMENT LC_ALL=C)\n")
  endif()
endforeach()
if(tests STREQUAL "")
  message(FATAL_ERROR "${PROGRAM} lists no tests")
endif()
file(WRITE "${SUITES}" "${tests}")
