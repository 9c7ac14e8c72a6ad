// What this process holds of the system's memory and handles, to see that work leaves nothing behind.
#pragma once

#include <cstddef>

namespace orvane::tests {

// Bytes of memory that are resident.
[[nodiscard]] std::size_t ResidentBytes();

// Open handles; under Wine, which counts none, the descriptors of the process that Linux knows. -1 if that
// process can't be told from others.
[[nodiscard]] int OpenHandles();

} // namespace orvane::tests
