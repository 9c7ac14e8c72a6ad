#include "MovingPicture.h"

#include "LayerPixels.h"
#include "support/AcrossBuilds.h"

#include <algorithm>

namespace orvane::tests {

namespace {

// Shrinks to 0.97 and turns by 0.021: 0.97 * cos(0.021) and 0.97 * sin(0.021), rounded.
constexpr double kCosine = 0.969786123, kSine = 0.020368503;

constexpr int kSquare = 9, kDots = 40;

float Held(double value, int size) {
    return float(std::min(std::max(value, 0.0), size - 1.0));
}

} // namespace

MovingPicture::MovingPicture(int threads, zephor::FeedbackForm form)
    : mLayers(threads) {
    mLayers.engine.UseForm(form);
    mLayers.Resize(kPictureWidth, kPictureHeight);
    mLayers.nextDeltaField->WillWrite();
    for (int row = 0; row < kPictureHeight; ++row) {
        const double y = row * 2.0 / kPictureHeight - 1.0;
        for (int column = 0; column < kPictureWidth; ++column) {
            const double x = column * 2.0 / kPictureWidth - 1.0;
            const double fromX = x * kCosine + y * kSine, fromY = y * kCosine - x * kSine;
            mLayers.nextDeltaField->RowToWrite(
                row)[column] = { Held((fromX + 1.0) * kPictureWidth * 0.5, kPictureWidth),
                                 Held((fromY + 1.0) * kPictureHeight * 0.5, kPictureHeight) };
        }
    }
}

void MovingPicture::Frame() {
    mLayers.StepFeedback();
    OnPixels draw([this](std::uint8_t* pixels, int, int, int rowBytes) { Draw(pixels, rowBytes); });
    mLayers.targetLayer->Surface()->ReadPixels(draw);
    ++mFrame;
}

void MovingPicture::Draw(std::uint8_t* pixels, int rowBytes) {
    const int left = mFrame * 7 % (kPictureWidth - kSquare), top = mFrame * 5 % (kPictureHeight - kSquare);
    for (int y = top; y < top + kSquare; ++y)
        std::fill_n(pixels + y * rowBytes + left, kSquare, std::uint8_t(255));
    for (int i = 0; i < kDots; ++i) {
        const unsigned x = Random() % unsigned(kPictureWidth), y = Random() % unsigned(kPictureHeight);
        pixels[y * unsigned(rowBytes) + x] = std::uint8_t(Random());
    }
}

unsigned MovingPicture::Random() {
    mSeed = mSeed * 214013u + 2531011u;
    return mSeed >> 16 & 0x7FFF;
}

std::uint64_t MovingPicture::Checksum() const {
    tests::Checksum sum;
    sum.Add(LayerPixels(*mLayers.targetLayer).bytes);
    return sum.Get();
}

} // namespace orvane::tests
