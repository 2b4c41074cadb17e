# SPDX-License-Identifier: GPL-3.0-or-later
# One static library for each folder of src, with the same flags everywhere.

include(CheckCXXCompilerFlag)
include(CheckIPOSupported)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this ccache takes no file that uses precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
endif()

# The parts of the tests' one game have names that every procedure may give to what it is handed.
define_property(TARGET PROPERTY VELORIN_TESTED_GAME INITIALIZE_FROM_VARIABLE VELORIN_TESTED_GAME)

add_library(velorin_flags INTERFACE)
target_compile_options(velorin_flags INTERFACE
  -Wall -Wextra -Wpedantic $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VELORIN_TESTED_GAME>>>:-Wshadow> -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # Sums and products are rounded one by one, on every machine.
  -ffp-contract=off)
target_include_directories(velorin_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
# Whether a target is compiled without the sanitizers' checks; the variable of that name tells for all of a folder.
define_property(TARGET PROPERTY VELORIN_UNCHECKED INITIALIZE_FROM_VARIABLE VELORIN_UNCHECKED)
if(VELORIN_SANITIZE)
  target_compile_options(velorin_flags INTERFACE
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VELORIN_UNCHECKED>>>:-fsanitize=${VELORIN_SANITIZE} -fno-sanitize-recover=all>
    -fno-omit-frame-pointer)
  target_link_options(velorin_flags INTERFACE -fsanitize=${VELORIN_SANITIZE})
  target_compile_definitions(velorin_flags INTERFACE VELORIN_SANITIZED)
  # The checks woven in make the compiler see paths that are none.
  target_compile_options(velorin_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

# The programs as they are played: optimised as a whole, and hardened against what a file from elsewhere might make of a
# fault of ours. tests/hardening looks at the programs.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT VELORIN_SANITIZE)
  set(VELORIN_HARDENED ON)
  check_ipo_supported(RESULT ipo LANGUAGES CXX)
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ${ipo})
  target_compile_options(velorin_flags INTERFACE
    -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    # The windows' library has its own kind of code that lies anywhere.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>:-fPIE>)
  target_link_options(velorin_flags INTERFACE
    -Wl,-z,relro,-z,now,-z,noexecstack $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
  check_cxx_compiler_flag(-fcf-protection VELORIN_KNOWS_CF_PROTECTION)
  if(VELORIN_KNOWS_CF_PROTECTION)
    target_compile_options(velorin_flags INTERFACE -fcf-protection)
  endif()
endif()

# One file may see the names of the others of its lot.
set(CMAKE_UNITY_BUILD ${VELORIN_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 10)

# The library targets of rooms and libraries: a name without "::" is a room.
function(velorin_targets result)
  set(targets "")
  foreach(use IN LISTS ARGN)
    if(use MATCHES "::")
      list(APPEND targets ${use})
    else()
      list(APPEND targets velorin_${use})
    endif()
  endforeach()
  set(${result} ${targets} PARENT_SCOPE)
endfunction()

# velorin_room(NAME SOURCES file... USES room-or-library...)
function(velorin_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(velorin_${name} STATIC ${ROOM_SOURCES})
  velorin_targets(uses ${ROOM_USES})
  target_link_libraries(velorin_${name} PUBLIC velorin_flags ${uses})
  if(name MATCHES "^(desktop|shell)$|_forms$")
    set_target_properties(velorin_${name} PROPERTIES AUTOMOC ON)
  # The rooms above the core do little work, but their libraries' templates take long to optimise.
  elseif(NOT name STREQUAL "cli")
    target_compile_options(velorin_${name} PRIVATE ${VELORIN_CORE_OPTIONS})
  endif()
endfunction()

# The headers that most tests include take as long as the tests themselves: they are compiled once, by a program of one
# empty file, whose name is `name`. All further arguments are headers.
function(velorin_test_headers name)
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp "int main() {}\n")
  add_executable(${name} ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE velorin_flags GTest::gmock)
  target_precompile_headers(${name} PRIVATE ${ARGN})
  target_compile_options(${name} PRIVATE -fpch-preprocess)
endfunction()

# velorin_test(NAME SOURCES file... USES room-or-library... LABELS label...): a GoogleTest program, each test case known
# to ctest. Labels: "house" for the rules that the sources keep, "long" for cases that the sanitizers' run leaves out.
# The target short_tests builds all others, and short_tests.txt in the build folder names their programs.
add_custom_target(short_tests)
function(velorin_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES;LABELS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  velorin_targets(uses ${TEST_USES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE velorin_flags ${uses} GTest::gmock GTest::gtest_main)
  target_precompile_headers(${name} REUSE_FROM velorin_core_test_headers)
  target_compile_options(${name} PRIVATE -fpch-preprocess)
  target_compile_definitions(${name} PRIVATE VELORIN_TEST_DATA="${CMAKE_SOURCE_DIR}/tests")
  if(NOT "long" IN_LIST TEST_LABELS)
    add_dependencies(short_tests ${name})
    if(NOT "house" IN_LIST TEST_LABELS)
      set_property(GLOBAL APPEND PROPERTY VELORIN_SHORT_TESTS $<TARGET_FILE:${name}>)
    endif()
  endif()
  set(properties TIMEOUT 600)
  if(TEST_LABELS)
    list(APPEND properties LABELS "${TEST_LABELS}")
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()

# velorin_window_test(NAME SOURCES file... USES room-or-library... LABELS label... [SCALED]): likewise for windows,
# without a screen. The program's main() is the one of tests/windows. SCALED: once more at 200 %.
function(velorin_window_test name)
  cmake_parse_arguments(TEST "SCALED" "" "SOURCES;USES;LABELS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  velorin_targets(uses ${TEST_USES})
  target_link_libraries(${name} PRIVATE velorin_window_support ${uses})
  target_precompile_headers(${name} REUSE_FROM velorin_window_test_headers)
  target_compile_options(${name} PRIVATE -fpch-preprocess)
  target_compile_definitions(${name} PRIVATE VELORIN_TEST_DATA="${CMAKE_SOURCE_DIR}/tests")
  set(properties TIMEOUT 600 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
  if(TEST_LABELS)
    list(APPEND properties LABELS "${TEST_LABELS}")
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
  if(TEST_SCALED)
    gtest_discover_tests(${name} TEST_PREFIX At200Percent. TEST_LIST ${name}_scaled DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 600 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=2")
  endif()
endfunction()
