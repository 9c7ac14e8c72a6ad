// Sixteen addresses as windows of sixteen bytes.
#pragma once

#include <cstdint>

namespace orvane::zephor {

constexpr int kBlockPixels = 16; // of a block, and bytes of a window
constexpr int kMostWindows = 8;
constexpr int kWindowShift = 4;

struct WindowCover {
    int count; // of windows that are needed; kMostWindows + 1: those don't suffice, and nothing else is set

    // Where each window begins. One that isn't needed lies on the first.
    std::uint32_t places[kMostWindows];

    // Of each address: the place in its window, and from bit kWindowShift up the window's number.
    std::uint8_t control[kBlockPixels];
};

// Sorted along the image, each window begins at the first address that the ones before it don't reach, which makes
// them as few as can be. Needs SSE4.1; on a processor of another family nothing is covered.
void CoverWithWindows(const std::uint32_t addresses[kBlockPixels], WindowCover& cover);

} // namespace orvane::zephor
