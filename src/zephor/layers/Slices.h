// The rows of an image as slices, the unit in which work on it is done.
#pragma once

#include <algorithm>

namespace orvane::zephor {

struct RowRange {
    int first, end;
};

[[nodiscard]] constexpr int RowsPerSlice(int height, int sliceCount) {
    return (height - 1 + sliceCount) / sliceCount;
}

// Slice `slice` of `sliceCount`. The last slices of a low image may be empty.
[[nodiscard]] constexpr RowRange RowsOfSlice(int height, int sliceCount, int slice) {
    const int rows = RowsPerSlice(height, sliceCount);
    return { std::min(slice * rows, height), std::min((slice + 1) * rows, height) };
}

// The number of slices for a machine of so many cores (0: unknown): at least 2, a power of two.
[[nodiscard]] constexpr int SliceCountForCores(unsigned cores) {
    constexpr int kLeast = 2;
    constexpr int kMost = 1 << 16; // far beyond any machine, and well within an int
    int count = kLeast;
    while (count < kMost && unsigned(count) < cores) count *= 2;
    return count;
}

} // namespace orvane::zephor
