// Whether the tests run under Wine, which a few of the system's answers depend on.
#pragma once

#include <windows.h>

namespace orvane::tests {

[[nodiscard]] inline bool IsUnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace orvane::tests
