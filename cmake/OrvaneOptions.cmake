# What every target of this project is compiled and linked with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS OFF)

add_library(orvane-options INTERFACE)
target_compile_options(orvane-options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual>
  # The same bits on every machine: no fused or reassociated float arithmetic behind our back.
  -ffp-contract=off)

if(ORVANE_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
  if(ORVANE_FUZZERS)
    list(APPEND sanitizers -fsanitize=fuzzer-no-link)
  endif()
  target_compile_options(orvane-options INTERFACE ${sanitizers})
  target_link_options(orvane-options INTERFACE ${sanitizers})
endif()

if(WIN32)
  target_compile_definitions(orvane-options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00
    __USE_MINGW_ANSI_STDIO=1 $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
  target_compile_options(orvane-options INTERFACE
    -fstack-protector-strong -fcf-protection=full
    # GCC for Windows does not keep 32-byte alignment on the stack: aligned 256-bit moves would crash.
    $<$<COMPILE_LANGUAGE:C,CXX>:-Wa,-muse-unaligned-vector-move>)
  # One file for each product, no runtime DLLs, and equal bytes from equal sources.
  target_link_options(orvane-options INTERFACE
    -static -Wl,--no-insert-timestamp -fstack-protector-strong)
endif()
