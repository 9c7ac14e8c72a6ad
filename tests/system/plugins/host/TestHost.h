// What a test and the test host (TestHostMain.cpp) know of one another.
#pragma once

#include <windows.h>

namespace orvane::tests {

constexpr wchar_t kTestHostProgram[] = L"plugins-test-host.exe";

// The test host's window; visualizers draw in it.
constexpr wchar_t kTestHostWindowClass[] = L"ORVANE TEST HOST";

// Posted to the window: when all that was posted to the main thread before is done, the window's property of
// this name holds the wParam.
constexpr UINT kFenceMessage = WM_APP + 1;
constexpr wchar_t kFenceProperty[] = L"OrvaneFence";

// Arguments. With the first the host has two built-in visualizers, which do nothing but take the last localized
// string as their title; the second is followed by a folder that is scanned in front of all else.
constexpr wchar_t kBuiltInsArgument[] = L"--built-ins";
constexpr wchar_t kScanArgument[] = L"--scan";

} // namespace orvane::tests
