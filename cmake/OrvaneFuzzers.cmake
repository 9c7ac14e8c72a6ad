# orvane_fuzzer(<name> SOURCES ... [LINKS ...] [COST n])
#
# A libFuzzer program fuzz_<name>. Its seeds lie in fuzz/corpus/<name>, its dictionary is fuzz/<name>.dict, each
# if it exists. ctest runs it as fuzz.<name>: a moment with a fixed seed, or millions of inputs in a soak
# (fuzz/run-target, which says what COST is).
function(orvane_fuzzer name)
  cmake_parse_arguments(ARG "" "COST" "SOURCES;LINKS" ${ARGN})
  add_executable(fuzz_${name} ${ARG_SOURCES})
  target_link_libraries(fuzz_${name} PRIVATE ${ARG_LINKS} tests-support orvane-options)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  add_test(NAME fuzz.${name} COMMAND ${CMAKE_SOURCE_DIR}/fuzz/run-target $<TARGET_FILE:fuzz_${name}> ${name}
           ${ARG_COST})
  set_tests_properties(fuzz.${name} PROPERTIES TIMEOUT 7200)
endfunction()
