#include "zephor/effects/waveforms/Curves.h"

#include "EffectFixture.h"

#include <cmath>

namespace orvane::zephor {
namespace {

// ---- Double Helix: 4068, 213, 12761, 8758 of 32768 make
// turns 0.2 + 0.3 * 0.124146 = 0.237244, phase 0.2 + 4 * 0.006500 = 0.226001,
// frequency 12 + 12 * 0.389435 = 16.673218, amplitude 0.1 + 0.3 * 0.267273 = 0.180182.

using DoubleHelix = EffectOnItsOwn<DoubleHelixFunctor>;

TEST_F(DoubleHelix, IsTwoMirroredSinesFromSideToSide) {
    StartAt(0);
    PrepareAt(0);
    ExpectPlace(Map(0, 0), -2, 0);
    ExpectPlace(Map(0, 0.25f), -1, -0.154164f); // sin(4.168304) = -0.855601
    ExpectPlace(Map(1, 0.25f), -1, 0.154164f);
    // |s| * 2 * 0.5 + s = 0 below the axis
    ExpectPlace(Map(0, 0.25f, 0.5f), -1, 0);
}

TEST_F(DoubleHelix, ItsAxisTurnsAndItsWavesRun) {
    StartAt(0);
    PrepareAt(10); // turned by 2.372437, phase 2.260010
    const float s = std::sin(2.260010f + 0.5f * 16.673218f), v = s * 0.180182f;
    ExpectPlace(Map(0, 0.5f), -v * std::sin(2.372437f), v * std::cos(2.372437f)); // u = 0
}

// ---- DT Wild

using DTWild = EffectOnItsOwn<DTWildFunctor>;

TEST_F(DTWild, StaysWithinReachOfTheScreen) {
    StartAt(100);
    for (int frame = 0; frame < 400; ++frame) {
        PrepareAt(100 + frame * 0.1);
        for (int sample = 0; sample < 256; sample += 15) {
            const WaveFormPoint point = Map(0, float(sample) * 0.0039f, sample % 2 ? -1.0f : 1.0f);
            // The corner of 1.3 * (1.2, 0.9).
            EXPECT_LE(std::hypot(point.x, point.y), 1.951f);
        }
    }
}

TEST_F(DTWild, IsALineWithoutGaps) {
    StartAt(100);
    for (int frame = 0; frame < 100; ++frame) {
        PrepareAt(100 + frame * 0.37);
        WaveFormPoint last = Map(0, 0);
        for (int sample = 1; sample < 256; ++sample) {
            const WaveFormPoint point = Map(0, float(sample) * 0.0039f);
            // At most 16 * 0.9 across and 21 * 0.675 down for the whole line.
            EXPECT_LT(std::hypot(point.x - last.x, point.y - last.y), 21 * 0.0039f);
            last = point;
        }
    }
}

TEST_F(DTWild, TheSoundPullsAtIt) {
    StartAt(100);
    PrepareAt(103);
    const WaveFormPoint still = Map(0, 0.3f), loud = Map(0, 0.3f, 1);
    const float reach = 1.3f / 0.75f;
    ExpectPlace(loud, still.x * reach, still.y * reach);
}

TEST_F(DTWild, IsAnotherOneEachTimeItStarts) {
    StartAt(100, 1);
    PrepareAt(103);
    const WaveFormPoint first = Map(0, 0.3f);
    StartAt(100, 30000);
    PrepareAt(103);
    const WaveFormPoint second = Map(0, 0.3f);
    EXPECT_GT(std::hypot(first.x - second.x, first.y - second.y), 0.01f);
}

} // namespace
} // namespace orvane::zephor
