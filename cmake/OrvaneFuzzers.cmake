# orvane_fuzzer(<name> SOURCES ... [LINKS ...])
#
# A libFuzzer program. Started with a folder it goes on from the inputs there and adds what it finds; the
# seeds below fuzz/corpus/ are to be given as a second folder, so that nothing is added to them:
#   mkdir -p build/corpus && build/fuzz/bin/<name> -max_len=4096 build/corpus fuzz/corpus/request
function(orvane_fuzzer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} tests-support orvane-options)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
