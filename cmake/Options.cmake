# What every target of the project is built with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# The application folder, laid out whole as a user gets it.
set(GESTIONALE_APP "${CMAKE_BINARY_DIR}/app")

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

add_library(gestionale_options INTERFACE)
target_compile_options(
  gestionale_options INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
                               -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -fno-strict-aliasing)
target_compile_definitions(gestionale_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                        QT_NO_KEYWORDS)
if(GESTIONALE_SANITIZE)
  target_compile_options(gestionale_options INTERFACE -fsanitize=${GESTIONALE_SANITIZE} -fno-omit-frame-pointer
                                                      -fno-sanitize-recover=all)
  target_link_options(gestionale_options INTERFACE -fsanitize=${GESTIONALE_SANITIZE})
endif()
if(GESTIONALE_FUZZ)
  # The libraries tell the fuzzers which of their branches an input reached.
  target_compile_options(gestionale_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
