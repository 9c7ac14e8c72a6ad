# orvane_bench(<name> SOURCES ... [LINKS ...])
#
# A program of measurements on Google Benchmark; run it with --help for its options.
find_package(benchmark REQUIRED)

function(orvane_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} tests-support benchmark::benchmark_main orvane-options)
endfunction()
