// The messages that the proxy window does nothing about, and what is said of them.
#pragma once

#include <windows.h>

namespace orvane::shell {

// Says what there is to say of a message that the proxy procedure doesn't act upon: nothing, its name, or
// its number.
void LogProxyMessage(UINT number);

} // namespace orvane::shell
