// Keys, pulses, sizes, tracks and refusals in any order through the classic visualizer's plug-in: nothing is read or
// written where nothing is.
#include "unit/zephor/visualizer/ZephorWalk.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A walk of many frames finds no more than many short ones.
    constexpr std::size_t kLongest = 256;
    (void)orvane::tests::ZephorWalk({ data, std::min(size, kLongest) }).Run();
    return 0;
}
