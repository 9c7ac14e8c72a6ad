// Where points come to lie on the image, and how they are drawn there.
#include "WaveformFixture.h"

#include <limits>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::kOneSample;
using tests::LayerCall;
using tests::Rect;
using tests::Segment;
using tests::TestWaveform;

class WaveformPixels : public WaveformFixture {
protected:
    // The first stroke of a waveform with a point in one place.
    Segment StrokeAt(const WaveformForm& form, float x, float y) {
        TestWaveform waveform(form, x, y);
        waveform.mStep = kOneSample;
        mLayer.Forget();
        Draw(waveform);
        return mLayer.mSegments.at(0);
    }

    // A line through points of the upper side, 20 pixels apart.
    static void WalkRight(TestWaveform& waveform) {
        waveform.mStep = 100; // three samples
        waveform.fullFrame = true;
        waveform.mMap = [n = 0](const auto&, WaveFormPoint& point) mutable {
            point.x = -1 + 0.2f * float(n++);
            point.y = -1;
        };
    }
};

// ---- Aspect.

TEST_F(WaveformPixels, AWideImageNarrowsX) {
    EXPECT_EQ(StrokeAt(Strokes(1), 1, 1), (Segment{ 150, 100, 151, 100, 1 }));
    EXPECT_EQ(StrokeAt(Strokes(1), -1, -1), (Segment{ 50, 0, 51, 0, 1 }));
}

TEST_F(WaveformPixels, AHighImageFlattensY) {
    mWidth = 100, mHeight = 200;
    EXPECT_EQ(StrokeAt(Strokes(1), 1, 1), (Segment{ 100, 150, 101, 150, 1 }));
}

TEST_F(WaveformPixels, ASquareImageScalesNeither) {
    mWidth = mHeight = 100;
    EXPECT_EQ(StrokeAt(Strokes(1), 1, 1), (Segment{ 100, 100, 101, 100, 1 }));
}

TEST_F(WaveformPixels, AFullFrameEffectIsNotScaled) {
    EXPECT_EQ(StrokeAt(Strokes(1).FullFrame(), 1, 1), (Segment{ 200, 100, 201, 100, 1 }));
    mWidth = 100, mHeight = 200;
    EXPECT_EQ(StrokeAt(Strokes(1).FullFrame(), 1, 1), (Segment{ 100, 200, 101, 200, 1 }));
}

TEST_F(WaveformPixels, EachSideOfAFadeHasItsOwnFullFrame) {
    TestWaveform now(Strokes(1), 1, 0), before(Strokes(1).FullFrame(), 1, 0);
    now.mStep = before.mStep = kOneSample;
    Draw(now, &before, 64);
    EXPECT_EQ(mLayer.mSegments[0].x0, 175); // half way from 150 to 200
}

// ---- Strokes and lines.

TEST_F(WaveformPixels, AnUnconnectedPointIsAStrokeOfOnePixelFromTheNearestPixel) {
    const Segment stroke = StrokeAt(Strokes(1).FullFrame(), 0.0074f, -0.0118f); // 100.74, 49.41
    EXPECT_EQ(stroke, (Segment{ 101, 49, 102, 49, 1 }));
}

TEST_F(WaveformPixels, TheStrokeIsAsWideAsThePointsSize) {
    TestWaveform waveform;
    waveform.mStep = kOneSample;
    waveform.mMap = [](const auto&, WaveFormPoint& point) { point.size = 6.5f; };
    Draw(waveform);
    EXPECT_EQ(mLayer.mSegments[0].width, 6.5f);
    EXPECT_EQ(mLayer.mCalls,
              (std::vector{ LayerCall::Begin, LayerCall::StrokeColour, LayerCall::Line, LayerCall::End }));
}

TEST_F(WaveformPixels, TheFirstSampleOfAConnectedLineDrawsNothing) {
    TestWaveform waveform(Connected(1));
    waveform.mStep = kOneSample;
    Draw(waveform);
    EXPECT_EQ(mLayer.mCalls, (std::vector{ LayerCall::Begin, LayerCall::End }));
}

TEST_F(WaveformPixels, AConnectedLineGoesFromEachPointToTheNext) {
    TestWaveform waveform(Connected(1));
    WalkRight(waveform);
    Draw(waveform);
    EXPECT_EQ(mLayer.mSegments, (std::vector<Segment>{ { 0, 0, 20, 0, 1 }, { 20, 0, 40, 0, 1 } }));
}

TEST_F(WaveformPixels, LinesAreNotConnectedWithOneAnother) {
    TestWaveform waveform(Connected(2));
    WalkRight(waveform);
    Draw(waveform);
    ASSERT_EQ(mLayer.mSegments.size(), 4u);
    EXPECT_EQ(mLayer.mSegments[2], (Segment{ 60, 0, 80, 0, 1 }));
}

// ---- Dots.

TEST_F(WaveformPixels, AFilledDotIsAnEllipseAroundThePoint) {
    TestWaveform waveform(FilledDots(1));
    waveform.mStep = kOneSample;
    waveform.mMap = [](const auto&, WaveFormPoint& point) { point.size = 7; };
    Draw(waveform); // 100 - 3.5 and 50 - 3.5, halves away from 0
    EXPECT_EQ(mLayer.mRects, (std::vector<Rect>{ { 97, 47, 7, 7 } }));
    EXPECT_EQ(mLayer.mCalls, (std::vector{ LayerCall::Begin, LayerCall::FillColour, LayerCall::FillEllipse,
                                           LayerCall::End }));
}

TEST_F(WaveformPixels, ADotKeepsTheFractionOfItsSize) {
    TestWaveform waveform(FilledDots(1));
    waveform.mStep = kOneSample;
    waveform.mMap = [](const auto&, WaveFormPoint& point) { point.size = 4.5f; };
    Draw(waveform); // 97.75, 47.75
    EXPECT_EQ(mLayer.mRects, (std::vector<Rect>{ { 98, 48, 4.5, 4.5 } }));
}

TEST_F(WaveformPixels, ADotThatIsNotFilledIsFramed) {
    TestWaveform waveform(FilledDots(1));
    waveform.fillDots = false;
    waveform.mStep = kOneSample;
    waveform.mMap = [](const auto&, WaveFormPoint& point) { point.size = 4; };
    Draw(waveform);
    EXPECT_EQ(mLayer.mRects, (std::vector<Rect>{ { 98, 48, 4, 4 } }));
    EXPECT_EQ(mLayer.mCalls, (std::vector{ LayerCall::Begin, LayerCall::StrokeColour,
                                           LayerCall::StrokeEllipse, LayerCall::End }));
}

TEST_F(WaveformPixels, ASizeBelowOneIsDrawnAsOne) {
    for (const float size : { 0.99f, 0.0f, -20.0f, std::numeric_limits<float>::quiet_NaN() }) {
        TestWaveform waveform;
        waveform.mStep = kOneSample;
        waveform.mMap = [=](const auto&, WaveFormPoint& point) { point.size = size; };
        mLayer.Forget();
        Draw(waveform);
        EXPECT_EQ(mLayer.mSegments[0].width, 1) << size;
    }
}

// ---- Colours.

TEST_F(WaveformPixels, TheColourIsTheTablesEntryInThreeFloats) {
    mTable[200] = 0x00FF8040;
    TestWaveform waveform;
    waveform.mStep = kOneSample;
    waveform.mPrepare = [](WaveFormContext& context) { context.colorIndex = 200; };
    Draw(waveform);
    EXPECT_NEAR(mLayer.mColours[0][0], 1.0f, 1e-6f);
    EXPECT_NEAR(mLayer.mColours[0][1], 0.5019608f, 1e-6f);
    EXPECT_NEAR(mLayer.mColours[0][2], 0.2509804f, 1e-6f);
}

TEST_F(WaveformPixels, TheColourIsLookedUpOnlyWhenTheIndexChanges) {
    TestWaveform waveform;
    waveform.mStep = 64; // four samples
    waveform.mMap = [this, n = 0](const auto&, WaveFormPoint& point) mutable {
        point.colorIndex = n < 2 ? 10 : 20;
        if (n++ == 1) mTable[10] = mTable[20] = 99;
    };
    Draw(waveform);
    EXPECT_EQ(IndexOfColour(0), 10);
    EXPECT_EQ(IndexOfColour(1), 10) << "as it was at first";
    EXPECT_EQ(IndexOfColour(2), 99);
    EXPECT_EQ(IndexOfColour(3), 99);
}

} // namespace
} // namespace orvane::zephor
