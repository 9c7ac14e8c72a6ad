// How an overlay is drawn.
#include "OverlayFixture.h"

#include <vector>

namespace orvane::zephor {
namespace {

using tests::kOneSample;
using tests::Segment;
using tests::TestWaveform;

class OverlayDrawing : public OverlayFixture {
protected:
    void DrawOne(TestWaveform& waveform) { DrawOverlay(mSlot, waveform, Frame()); }

    // The first stroke of a waveform with a point in one place.
    Segment StrokeAt(const WaveformForm& form, float x, float y) {
        TestWaveform waveform(form, x, y);
        waveform.mStep = kOneSample;
        mLayer.Forget();
        DrawOne(waveform);
        return mLayer.mSegments.at(0);
    }

    ZephorOverlaySlot mSlot;
};

// ---- Places.

TEST_F(OverlayDrawing, PixelsAreCountedFromTheUpperLeftCorner) {
    EXPECT_EQ(StrokeAt(Strokes(1), 0, 0), (Segment{ 0, 0, 1, 0, 1 }));
    EXPECT_EQ(StrokeAt(Strokes(1), 0.5f, 0.56f),
              (Segment{ 75, 14, 76, 14, 1 })); // 0.5 * 100 * 1.5, 0.56 * 50 * 0.5
    EXPECT_EQ(StrokeAt(Strokes(1), -1, -1), (Segment{ -150, -25, -149, -25, 1 }));
}

TEST_F(OverlayDrawing, TheAspectAppliesToFullFrameEffectsOnly) {
    EXPECT_EQ(StrokeAt(Strokes(1), 1, 1), (Segment{ 150, 25, 151, 25, 1 }));
    EXPECT_EQ(StrokeAt(Strokes(1).FullFrame(), 1, 1), (Segment{ 75, 25, 76, 25, 1 }));
    mWidth = 100, mHeight = 200;
    EXPECT_EQ(StrokeAt(Strokes(1), 1, 1), (Segment{ 75, 50, 76, 50, 1 }));
    EXPECT_EQ(StrokeAt(Strokes(1).FullFrame(), 1, 1), (Segment{ 75, 25, 76, 25, 1 }));
}

TEST_F(OverlayDrawing, StrengthEnlargesUpToFiveTimes) {
    mSlot.strength = 1;
    EXPECT_EQ(StrokeAt(Strokes(1), 0.1f, 0.2f), (Segment{ 75, 25, 76, 25, 1 })); // 0.5, 1
    mSlot.strength = 0.25f;
    EXPECT_EQ(StrokeAt(Strokes(1), 0.1f, 0.4f), (Segment{ 30, 20, 31, 20, 1 })); // 0.2, 0.8
}

TEST_F(OverlayDrawing, ADriftingOverlayComesFromItsTarget) {
    mSlot.drift = true;
    mSlot.targetX = 1, mSlot.targetY = -2;
    mSlot.strength = 0.25f;
    EXPECT_EQ(StrokeAt(Strokes(1), 0, 0.4f), (Segment{ 38, -5, 39, -5, 1 })); // 0.25, -0.2: 37.5
    mSlot.strength = 1;
    EXPECT_EQ(StrokeAt(Strokes(1), 0, 0), (Segment{ 150, -50, 151, -50, 1 }));
    mSlot.strength = 0;
    EXPECT_EQ(StrokeAt(Strokes(1), 0.2f, 0.4f), (Segment{ 30, 10, 31, 10, 1 }));
}

TEST_F(OverlayDrawing, TheAspectComesBeforeTheTarget) {
    mSlot.drift = true;
    mSlot.targetX = 1;
    mSlot.strength = 0.5f;
    EXPECT_EQ(StrokeAt(Strokes(1).FullFrame(), 0.4f, 0), (Segment{ 90, 0, 91, 0, 1 })); // 0.2, then 0.6
}

// ---- Colours.

TEST_F(OverlayDrawing, TheCapHoldsTheColourWithinZeroTo255) {
    TestWaveform waveform;
    waveform.mStep = kOneSample;
    waveform.mPrepare = [](WaveFormContext& context) { context.colorIndex = 200; };
    const std::pair<int, int> rows[] = { { 256, 200 }, { 201, 200 }, { 200, 200 }, { 199, 199 },
                                         { 1, 1 },     { 0, 0 },     { -1, 0 },    { -864000, 0 } };
    for (const auto& [cap, index] : rows) {
        mSlot.colorCap = cap;
        mLayer.Forget();
        DrawOne(waveform);
        EXPECT_EQ(IndexOfColour(0), index) << cap;
    }
}

// ---- The context.

TEST_F(OverlayDrawing, AWaveformStartsWithTheTimeOfTheSlotsLastFrame) {
    TestWaveform waveform;
    std::vector<double> times, preparedTimes;
    waveform.mStart = [&](WaveFormContext& context) { times.push_back(context.time); };
    waveform.mPrepare = [&](WaveFormContext& context) { preparedTimes.push_back(context.time); };
    mTime = 1000;
    DrawOne(waveform);
    mTime = 1001;
    DrawOne(waveform);
    mSlot.started = false;
    mTime = 1002;
    DrawOne(waveform);
    EXPECT_EQ(times, (std::vector<double>{ 0, 1001 }));
    EXPECT_EQ(preparedTimes, (std::vector<double>{ 1000, 1001, 1002 }));
}

TEST_F(OverlayDrawing, TheContextsEndIsASixtiethOfTheSecondsLeftAtTheStart) {
    TestWaveform waveform;
    mTime = 1000;
    mSlot.endTime = 1012;
    DrawOne(waveform);
    EXPECT_NEAR(mSlot.context.endTime, 0.2f, 1e-6f);
    mTime = 1006;
    DrawOne(waveform);
    EXPECT_NEAR(mSlot.context.endTime, 0.2f, 1e-6f) << "as at the start";
}

TEST_F(OverlayDrawing, TheContextIsRenewedButForThePointSize) {
    TestWaveform waveform;
    std::vector<float> sizes;
    waveform.mPrepare = [&](WaveFormContext& context) {
        EXPECT_EQ(context.sampleStep, 1);
        EXPECT_EQ(context.colorIndex, 255);
        EXPECT_EQ(context.pass, 0);
        EXPECT_EQ(context.waveform, mAudio.waveform[0]);
        EXPECT_EQ(context.spectrum, mAudio.spectrum[0]);
        sizes.push_back(context.pointSize);
        context.sampleStep = 200, context.colorIndex = 9, context.pointSize += 2;
    };
    DrawOne(waveform);
    DrawOne(waveform);
    mSlot.started = false;
    DrawOne(waveform);
    EXPECT_EQ(sizes, (std::vector<float>{ 1, 3, 1 }));
}

TEST_F(OverlayDrawing, OnlyChannel0IsRead) {
    TestWaveform waveform(Strokes(2));
    waveform.mStep = kOneSample;
    mAudio.waveform[0][0] = 0.25f, mAudio.spectrum[0][0] = 0.5f;
    mAudio.waveform[1][0] = -0.75f, mAudio.spectrum[1][0] = 1.5f;
    int points = 0;
    waveform.mMap = [&](const WaveFormContext& context, WaveFormPoint&) {
        EXPECT_EQ(context.sampleWave, 0.25f);
        EXPECT_EQ(context.sampleSpectrum, 0.5f);
        ++points;
    };
    DrawOne(waveform);
    EXPECT_EQ(points, 2);
}

// ---- Passes.

TEST_F(OverlayDrawing, EachPassIsPreparedAndWalksAllLines) {
    TestWaveform waveform(Strokes(2));
    waveform.mStep = kOneSample;
    std::vector<int> preparedPasses, passes;
    waveform.mStart = [&](auto&) { waveform.passCount = 3; };
    waveform.mPrepare = [&](WaveFormContext& context) { preparedPasses.push_back(context.pass); };
    waveform.mMap = [&](const WaveFormContext& context, auto&) { passes.push_back(context.pass); };
    DrawOne(waveform);
    EXPECT_EQ(preparedPasses, (std::vector<int>{ 0, 1, 2 }));
    EXPECT_EQ(passes, (std::vector<int>{ 0, 0, 1, 1, 2, 2 }));
    EXPECT_EQ(waveform.Lines(), (std::vector<int>{ 0, 1, 0, 1, 0, 1 }));
}

TEST_F(OverlayDrawing, TheMainWaveformHasOnePass) {
    TestWaveform waveform(Strokes(1));
    waveform.passCount = 3;
    waveform.mStep = kOneSample;
    Draw(waveform);
    EXPECT_EQ(waveform.mPoints.size(), 1u);
}

TEST_F(OverlayDrawing, AConnectedLineOfAPassBeginsAnew) {
    TestWaveform waveform(Connected(1));
    waveform.mStep = 128; // two samples, one segment
    waveform.passCount = 2;
    DrawOne(waveform);
    EXPECT_EQ(mLayer.mSegments.size(), 2u);
}

TEST_F(OverlayDrawing, AStepOfZeroOrBelowBecomesOne) {
    TestWaveform waveform;
    waveform.mPrepare = [](WaveFormContext& context) { context.sampleStep = -3; };
    DrawOne(waveform);
    EXPECT_EQ(waveform.mPoints.size(), 256u);
}

TEST_F(OverlayDrawing, LeavesRandSeededWithTheClocksWholeSeconds) {
    TestWaveform waveform;
    mClock.SetTo(1234.9);
    DrawOne(waveform);
    EXPECT_EQ(platform::Rand(), 4068); // the first number of seed 1234
}

} // namespace
} // namespace orvane::zephor
