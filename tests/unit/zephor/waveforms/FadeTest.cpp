// How the old waveform and the new one are mixed.
#include "WaveformFixture.h"

#include <algorithm>
#include <limits>

namespace orvane::zephor {
namespace {

using tests::kOneSample;
using tests::LayerCall;
using tests::Segment;
using tests::TestWaveform;

class WaveformFade : public WaveformFixture {
protected:
    WaveformFade() {
        mNow.mStep = mBefore.mStep = kOneSample;
        mNow.fullFrame = mBefore.fullFrame = true;
    }

    [[nodiscard]] bool Drew(LayerCall call) const {
        return std::ranges::find(mLayer.mCalls, call) != mLayer.mCalls.end();
    }

    // The index drawn at a quarter of a fade.
    int ColourBetween(int now, int before) {
        mNow.mMap = [=](const auto&, WaveFormPoint& point) { point.colorIndex = std::uint8_t(now); };
        mBefore.mMap = [=](const auto&, WaveFormPoint& point) { point.colorIndex = std::uint8_t(before); };
        mLayer.Forget();
        Draw(mNow, &mBefore, 32);
        return IndexOfColour(0);
    }

    TestWaveform mNow, mBefore;
};

TEST_F(WaveformFade, PointsTravelInStraightLines) {
    mNow.mMap = [](const auto&, WaveFormPoint& point) { point.x = 1, point.y = 1, point.size = 4; };
    mBefore.mMap = [](const auto&, WaveFormPoint& point) { point.x = -1, point.y = 0, point.size = 12; };
    Draw(mNow, &mBefore, 32);                                         // three quarters are the new one's
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 150, 88, 151, 88, 6 })); // 0.5, 0.75: 87.5 up
    mLayer.Forget();
    Draw(mNow, &mBefore, 96);
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 50, 63, 51, 63, 10 })); // -0.5, 0.25: 62.5 up
}

TEST_F(WaveformFade, TheFirstFrameIsTheOldWaveformButFor128thParts) {
    mWidth = mHeight = 256;
    mNow.mMap = [](const auto&, WaveFormPoint& point) { point.x = point.y = 1; };
    mBefore.mMap = [](const auto&, WaveFormPoint& point) { point.x = point.y = -1; };
    Draw(mNow, &mBefore, 127);
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 2, 2, 3, 2, 1 })); // 256 / 128
}

TEST_F(WaveformFade, ColoursAreMixedWithTheDifferenceTruncated) {
    EXPECT_EQ(ColourBetween(100, 201), 125); // 100 + 25.25
    EXPECT_EQ(ColourBetween(201, 100), 176); // 201 - 25.25, towards 0
    EXPECT_EQ(ColourBetween(0, 255), 63);    // 63.75
    EXPECT_EQ(ColourBetween(255, 0), 192);   // 255 - 63.75
}

TEST_F(WaveformFade, AtExactlyHalfTheNewStyleStillHolds) {
    mNow.drawDots = mNow.fillDots = true;
    Draw(mNow, &mBefore, 64);
    EXPECT_TRUE(Drew(LayerCall::FillEllipse));
    EXPECT_FALSE(Drew(LayerCall::Line));
}

TEST_F(WaveformFade, BeyondHalfTheOldStyleHolds) {
    mNow.drawDots = mNow.fillDots = true;
    Draw(mNow, &mBefore, 65);
    EXPECT_FALSE(Drew(LayerCall::FillEllipse));
    EXPECT_TRUE(Drew(LayerCall::Line));
    mLayer.Forget();
    mBefore.connectPoints = true;
    Draw(mNow, &mBefore, 65);
    EXPECT_FALSE(Drew(LayerCall::Line)) << "connected, with a single sample";
}

TEST_F(WaveformFade, AtRestTheOldWaveformIsStillMappedAndWeighsNothing) {
    constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    mNow.mMap = [](const auto&, WaveFormPoint& point) { point.x = 0.5f, point.y = 0.5f; };
    mBefore.mMap = [](const auto&, WaveFormPoint& point) { point.x = point.y = point.size = kNone; };
    Draw(mNow, &mBefore, 0);
    EXPECT_EQ(mBefore.mPoints.size(), 1u);
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 150, 75, 151, 75, 1 }));
}

TEST_F(WaveformFade, WithoutAnOldWaveformTheNewOneIsDrawnAlone) {
    mNow.mMap = [](const auto&, WaveFormPoint& point) { point.x = 0.5f, point.y = 0.5f; };
    Draw(mNow, nullptr, 127);
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 150, 75, 151, 75, 1 }));
}

TEST_F(WaveformFade, OneObjectMayBeBothWaveforms) {
    mNow.mMap = [](const auto&, WaveFormPoint& point) { point.x = 0.5f, point.y = 0.5f; };
    Draw(mNow, &mNow, 127);
    EXPECT_EQ(mNow.mStarts, 1);
    EXPECT_EQ(mNow.mPrepared, 2);
    EXPECT_EQ(mLayer.mSegments[0], (Segment{ 150, 75, 151, 75, 1 }));
}

} // namespace
} // namespace orvane::zephor
