# Compiler settings that every target of the house shares.

option(ALGO_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(ALGO_TESTS_IN_SHARDS "Run each test program a few times instead of once for every test" OFF)
option(ALGO_BUILD_BENCH "Build the benchmarks" OFF)
option(ALGO_BUILD_FUZZERS "Build the libFuzzer targets (clang only)" OFF)
option(ALGO_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
option(ALGO_COVERAGE "Instrument for line coverage" OFF)
set(ALGO_SANITIZE "" CACHE STRING "Sanitizers, such as address,undefined")
set(ALGO_BATCH_HOST "embedded_host" CACHE STRING
    "Target with the headers of the host; a client that adds this tree as a subdirectory names its own")

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)

find_program(ALGO_CCACHE ccache)
if(ALGO_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ALGO_CCACHE}")
endif()

option(ALGO_FAST_LINKER "Link with mold where it is installed" OFF)
find_program(ALGO_MOLD mold)
if(ALGO_FAST_LINKER AND ALGO_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  add_compile_options(-Wno-gnu-zero-variadic-macro-arguments) # qCDebug(category) << …
endif()
if(ALGO_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
add_compile_definitions(
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_ASCII
  QT_NO_FOREACH
  QT_DEPRECATED_WARNINGS
  QT_MESSAGELOGCONTEXT)

if(ALGO_SANITIZE)
  add_compile_options(-fsanitize=${ALGO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${ALGO_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    add_compile_options(-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/ubsan.ignore)
  endif()
endif()
if(ALGO_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()

include(${CMAKE_CURRENT_LIST_DIR}/Hardening.cmake)
