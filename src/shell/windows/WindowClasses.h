// The two window classes of the process.
#pragma once

#include <windows.h>

namespace orvane::shell {

// Registers both, the proxy's first. A class that can't be registered shows later, when its window can't be
// made. The atoms are kept for the life of the process.
void RegisterWindowClasses(HINSTANCE instance);

[[nodiscard]] ATOM ProxyClassAtom();
[[nodiscard]] ATOM TopLevelClassAtom();

} // namespace orvane::shell
