// A delta field made ready for the frames that read it.
//
// A field changes once in many seconds and is read every frame. So its cells are turned, once, into addresses in
// the averaged image (see AverageRows.h), and sixteen addresses at a time into a block that fetches them at
// the least cost. Neighbours in a smooth field come from neighbouring places: their addresses lie within a few
// windows of sixteen bytes, and a byte shuffle of each window brings the pixels into order.
#pragma once

#include "zephor/layers/FeedbackForm.h"
#include "zephor/layers/FeedbackStep.h"
#include "zephor/layers/WindowCover.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvane::zephor {

constexpr int kSecondWindowBit = 7; // of a TwoWindowBlock's control

// What a block is made of. A block of the first three kinds holds the places of its windows, then a byte for
// each pixel: the place within its window, and which window it is.
enum class BlockKind : std::uint32_t {
    TwoWindows,   // window 0 or 1 in bit kSecondWindowBit
    FourWindows,  // window 0 to 3 from bit kWindowShift up
    EightWindows, // window 0 to 7 from bit kWindowShift up
    Addresses     // the sixteen addresses
};

struct TwoWindowBlock {
    std::uint32_t places[2];
    std::uint8_t control[kBlockPixels];
};

struct FourWindowBlock {
    std::uint32_t places[4];
    std::uint8_t control[kBlockPixels];
};

struct EightWindowBlock {
    std::uint32_t places[8];
    std::uint8_t control[kBlockPixels];
};

struct AddressBlock {
    std::uint32_t addresses[kBlockPixels];
};

// Goes before a number of blocks of one kind.
struct BlockRun {
    BlockKind kind;
    std::uint32_t count;
};

// Runs and blocks in the order of the pixels, row after row. A row of width w has w / 16 blocks, rounded up; the
// last one ends with the row and so may cover pixels of the one before it. Rows of fewer pixels than a block
// have their addresses alone, without a run.
class FetchPlan {
public:
    // Prepares rows of an image of `width` x `height`, for an averaged image of such a row size.
    void Build(const FeedbackField& field, int width, int height, std::ptrdiff_t averagedRowBytes,
               RowRange rows, FeedbackForm form);

    [[nodiscard]] const std::byte* Data() const { return mBytes.data(); }

    [[nodiscard]] std::size_t Size() const { return mBytes.size(); }

private:
    std::vector<std::byte> mBytes;
};

} // namespace orvane::zephor
