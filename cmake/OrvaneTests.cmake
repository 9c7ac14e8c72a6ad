# GoogleTest from the system's sources, so that one copy serves the native and the Windows build.
include(GoogleTest)
set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(ORVANE_SANITIZE)
  foreach(library gtest gmock gtest_main gmock_main)
    target_compile_options(${library} PRIVATE -fsanitize=address,undefined)
  endforeach()
endif()

# Every test program on Windows ends by EndAtOnce; a demonstration that draws links tests-end-at-once for it.
if(WIN32)
  add_library(tests-end-at-once STATIC ${CMAKE_SOURCE_DIR}/tests/support/windows/EndAtOnce.cpp)
  target_include_directories(tests-end-at-once PUBLIC ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(tests-end-at-once PRIVATE orvane-options)
  add_library(tests-main STATIC ${CMAKE_SOURCE_DIR}/tests/support/windows/TestMain.cpp)
  target_link_libraries(tests-main PRIVATE tests-end-at-once gtest orvane-options)
else()
  add_library(tests-main ALIAS gtest_main)
endif()

# What nearly every test source begins with is read once; natively alone, since the cross compiler's headers, once
# precompiled, count as ours with all their false warnings.
if(NOT WIN32)
  add_library(tests-precompiled STATIC ${CMAKE_SOURCE_DIR}/tests/support/Precompiled.cpp)
  target_precompile_headers(tests-precompiled PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/Precompiled.h)
  target_link_libraries(tests-precompiled PRIVATE gtest gmock orvane-options)
endif()

# orvane_test(<name> SOURCES ... [LINKS ...] [PROPERTIES ...])
#
# A test program. Every test in it is a test of ctest, named "native." or "windows." and its own name, so
# that one run of ctest can hold both builds. PROPERTIES are ctest's (RESOURCE_LOCK pipe, TIMEOUT 300, ...).
function(orvane_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PROPERTIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} tests-support gtest tests-main gmock orvane-options)
  if(TARGET tests-precompiled AND NOT ARG_SOURCES MATCHES "\\.c(;|$)") # in C there is nothing to reuse
    target_precompile_headers(${name} REUSE_FROM tests-precompiled)
  endif()
  if(WIN32)
    set(prefix windows.)
  else()
    set(prefix native.)
  endif()
  gtest_discover_tests(${name} TEST_PREFIX ${prefix} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 120 ${ARG_PROPERTIES})
endfunction()
