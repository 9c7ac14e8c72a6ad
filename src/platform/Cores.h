// How many processor cores the machine has, to size units of work.
#pragma once

namespace orvane::platform {

// Cores of the processors; natively the threads that they run at once. 0 if the system would not tell. One
// file for each platform.
[[nodiscard]] unsigned ProcessorCores();

} // namespace orvane::platform
