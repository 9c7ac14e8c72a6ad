#include "support/windows/EndAtOnce.h"

#include "support/windows/UnderWine.h"

#include <cstdio>

namespace orvane::tests {
namespace {

// Wine ends a process by libc's exit, which runs the exit handlers of the drivers on Linux' side while their
// threads are gone: TerminateProcess goes the same way. Linux' own call leaves nothing behind to run.
[[noreturn]] void EndForLinux(int exitCode) {
    constexpr long kExitGroup = 231; // Linux, x86-64
    for (;;) asm volatile("syscall" : : "a"(kExitGroup), "D"(long(exitCode)) : "rcx", "r11", "memory");
}

} // namespace

void EndAtOnce(int exitCode) {
    std::fflush(nullptr);
    if (IsUnderWine()) EndForLinux(exitCode);
    TerminateProcess(GetCurrentProcess(), UINT(exitCode));
    for (;;) Sleep(INFINITE);
}

} // namespace orvane::tests
