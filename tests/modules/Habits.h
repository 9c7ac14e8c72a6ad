// What a module can do to its host beyond answering: each is one habit of Modes.h.
#pragma once

#include "orvane_plugin.h"

#include <cstdint>

namespace orvane::tests {

// How to reach the host, as the entry record says it, and the name under which calls are logged.
struct Host {
    const char* module = nullptr;
    OrvaneHostProc proc = nullptr;
    void* cookie = nullptr;

    // Calls and logs the call.
    std::int32_t Call(std::uint32_t message, void* record) const;
};

// Every host message but the registration, and one that no host knows: here, and on another thread that has
// ended when this returns.
void CallEverything(const Host& host);

// The same on another thread, some 100 ms later; returns at once.
void CallEverythingLate(const Host& host);

// Rounding up, denormals flushed, 24 bits of x87 precision; another current folder; a locale with a decimal
// comma. All for the calling thread or the process, and never put back.
void ChangeState();

// Two child windows of different classes. CloseWindowsLate has them destroyed some 500 ms later, by a timer of
// the thread that made them.
void OpenWindows(void* parent);
void CloseWindowsLate();

void SleepAWhile(); // 150 ms

} // namespace orvane::tests
