// A run of frames that is the same on every machine: a fixed field, a moving square and seeded dots, all in whole
// numbers but the field, which is made of multiplications and additions in double precision alone.
#pragma once

#include "zephor/layers/ZephorLayerSet.h"

#include <cstdint>

namespace orvane::tests {

constexpr int kPictureWidth = 203, kPictureHeight = 121;

class MovingPicture {
public:
    MovingPicture(int threads, zephor::FeedbackForm form);

    // One step, and then the square and the dots.
    void Frame();

    // 64-bit FNV-1a of the target's pixels, row after row.
    [[nodiscard]] std::uint64_t Checksum() const;

private:
    void Draw(std::uint8_t* pixels, int rowBytes);
    unsigned Random();

    zephor::ZephorLayerSet mLayers;
    int mFrame = 0;
    std::uint32_t mSeed = 1234;
};

} // namespace orvane::tests
