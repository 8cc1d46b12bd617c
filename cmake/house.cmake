# What every folder of the house shares: the language, the warnings and two ways to declare a target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

include(CTest)
include(GoogleTest)
option(VMG_BENCH "Build the benchmarks and their peers" OFF)
option(VMG_FUZZ "Build the fuzz targets, by Clang" OFF)
option(VMG_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

find_program(CCACHE ccache)
if(CCACHE)
  # Another checkout of the same sources finds its objects there; the tests' too, which use precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
                                  CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(vmg_options INTERFACE)
target_include_directories(vmg_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(vmg_options INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                                             -Werror=switch -Werror=return-type
                                             # designated initializers leave defaults on purpose
                                             -Wno-missing-field-initializers)
if(VMG_SANITIZE)
  target_compile_options(vmg_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(vmg_options INTERFACE -fsanitize=address,undefined)
endif()

if(VMG_FUZZ)  # on top of the sanitizers
  target_compile_options(vmg_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(WIN32)  # one self-contained file each: no run-time library of the compiler beside it
  target_compile_definitions(vmg_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
  target_link_options(vmg_options INTERFACE -static -Wl,--gc-sections -s)
endif()

# vmg_library(NAME SOURCES ... [DEPENDS ...]): a small static library.
function(vmg_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC vmg_options ${arg_DEPENDS})
endfunction()

# Debian has GoogleTest for Windows as its sources alone.
if(BUILD_TESTING AND WIN32)
  add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
elseif(BUILD_TESTING)
  find_package(GTest REQUIRED)
endif()

# Of tests most time goes into compiling them, and on Windows into linking: there it grows with the square of the sections.
set(testFlags -O0)
if(WIN32)
  list(APPEND testFlags -fno-function-sections -fno-data-sections)
endif()

# What most tests include, compiled once for all of them.
if(BUILD_TESTING)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/test_headers.cpp CONTENT "int main() {}\n")
  add_executable(vmg_test_headers EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/test_headers.cpp)
  target_link_libraries(vmg_test_headers PRIVATE vmg_options GTest::gtest)
  target_compile_options(vmg_test_headers PRIVATE ${testFlags})
  target_precompile_headers(vmg_test_headers PRIVATE
    <gtest/gtest.h> <filesystem> <fstream> <functional> <iostream> <map> <memory> <optional> <string> <vector>)
endif()

# vmg_test(NAME SOURCES ... [DEPENDS ...] [ENVIRONMENT ...]): a GoogleTest program; each test is a CTest case.
# On Windows the whole program is one case: starting it for each test would cost more than the tests. Programs of one Wine
# prefix share its desktop and registry, so they take turns; a test that sets VMG_DPI has another prefix (see wine-run).
function(vmg_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;ENVIRONMENT")
  add_executable(${name} ${arg_SOURCES})
  target_compile_options(${name} PRIVATE ${testFlags})
  if(NOT "vmg_qt" IN_LIST arg_DEPENDS)  # Qt wants another kind of code
    target_precompile_headers(${name} REUSE_FROM vmg_test_headers)
  endif()
  target_link_libraries(${name} PRIVATE vmg_options ${arg_DEPENDS} GTest::gtest GTest::gtest_main)
  if(WIN32)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900 RESOURCE_LOCK wine ENVIRONMENT "${arg_ENVIRONMENT}")
    return()
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  if(arg_ENVIRONMENT)  # set once the tests are known: gtest_discover_tests keeps the first of several variables only
    set(script ${CMAKE_CURRENT_BINARY_DIR}/${name}_environment.cmake)
    file(CONFIGURE OUTPUT ${script} @ONLY CONTENT [[
if(@name@_TESTS)
  set_tests_properties(${@name@_TESTS} PROPERTIES ENVIRONMENT "@arg_ENVIRONMENT@")
endif()
]])
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${script})
  endif()
endfunction()
