#include "zephor/effects/waveforms/Figures.h"

#include "EffectFixture.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orvane::zephor {
namespace {

// ---- DT Zoom Planet, from 10 to 20 seconds; the first draw of seed 1 is 41: from the right (side -1).

class DTZoomPlanet : public EffectOnItsOwn<DTZoomPlanetFunctor> {
protected:
    void OnItsWay(double x0) {
        mContext.endTime = 20;
        StartAt(10, 1);
        PrepareAt(10 + x0 * 10);
    }

    static constexpr float kClosing = 252 * 0.0039f; // t of the last of every sixth sample
};

TEST_F(DTZoomPlanet, HalfWayItIsASmallCircle) {
    OnItsWay(0.5);
    // n = -sin(0.5) = -0.479426, p = -2.157415 + 1, q = 0.2; 0.5^12 * 106.2882 * 50 = 1.297463, and 0.15.
    const float p = -1.157415f, q = 0.2f, r = 1.447463f;
    ExpectPlace(Map(0, 0), p + r, q);
    ExpectPlace(Map(0, kClosing / 4), p, q + r);
    ExpectPlace(Map(0, kClosing / 2), p - r, q);
    ExpectPlace(Map(0, kClosing), p + r, q);
    EXPECT_EQ(mContext.sampleStep, 6);
    EXPECT_NEAR(mContext.pointSize, 2.882400f, 1e-3f); // 0.7^8 * 50
}

TEST_F(DTZoomPlanet, ComesFromTheSideOfItsDraw) {
    OnItsWay(0);
    ExpectPlace(Map(0, 0), 1, 0.6f); // no radius
    mContext.endTime = 20;
    StartAt(10, 6000); // its first draw is 19632, of the upper half
    PrepareAt(10);
    ExpectPlace(Map(0, 0), -1, 0.6f);
}

TEST_F(DTZoomPlanet, SwallowsThePictureInTheEnd) {
    OnItsWay(0.9); // 0.9^12 * 106 is above 1
    const float radius = Map(0, 0).x - Map(1, kClosing / 4).x;
    EXPECT_NEAR(radius, 50.27f, 1e-2f);
}

TEST_F(DTZoomPlanet, ItsOtherLinesAreEllipsesAndRings) {
    OnItsWay(0.3);
    const WaveFormPoint middle = Map(1, kClosing / 4); // on the planet's pole
    const float radius = Map(0, 0).x - middle.x, q = middle.y - radius;
    const float acrosses[] = { 0.667f, 0.433f, 0.167f };
    for (int i = 0; i < 3; ++i) {
        ExpectPlace(Map(1 + i, 0), middle.x + acrosses[i] * radius, q); // meridians
        ExpectPlace(Map(1 + i, kClosing / 4), middle.x, q + radius);
        ExpectPlace(Map(4 + i, 0), middle.x + radius, q); // parallels
        ExpectPlace(Map(4 + i, kClosing / 4), middle.x, q + acrosses[i] * radius);
    }
    for (int ring = 7; ring <= 8; ++ring) {
        EXPECT_GT(Map(ring, 0).x - middle.x, 1.5f * radius);
        EXPECT_NEAR(Map(ring + 2, 0).x, Map(ring, 0).x, kNear) << "its copy";
        EXPECT_GT(Map(ring + 2, 0).y, Map(ring, 0).y);
    }
}

TEST_F(DTZoomPlanet, AsTheMainWaveformItStaysFarAway) {
    StartAt(1000, 1); // endTime 0
    PrepareAt(1012);
    EXPECT_NEAR(Map(0, 0).x, Map(0, kClosing / 2).x, 0.01f); // a radius of 0.3 * 12 / 1000
    EXPECT_LT(mContext.pointSize, 1);
}

TEST_F(DTZoomPlanet, WithoutAnyTimeItIsStillSomewhere) {
    StartAt(0, 1); // from 0 to 0
    PrepareAt(0);
    EXPECT_TRUE(std::isfinite(Map(0, 0).x));
    EXPECT_TRUE(std::isfinite(mContext.pointSize));
}

// ---- Hour glass: runs for 7 seconds and is turned over in 1.5.

class HourGlass : public EffectOnItsOwn<HourGlassFunctor> {
protected:
    // The mean height of the sand, y downwards.
    float SandAt(double time) {
        PrepareAt(time);
        float sum = 0;
        for (int sample = 0; sample < 256; ++sample) sum += Map(2, float(sample) * 0.0039f).y;
        return sum / 256;
    }
};

TEST_F(HourGlass, ItsWallsAreMirroredAndMeetAlmostAtTheNeck) {
    StartAt(100);
    PrepareAt(101);
    for (const float t : { 0.0f, 0.2f, 0.5f, 0.9f }) {
        const WaveFormPoint left = Map(0, t, 0.3f), right = Map(1, t, 0.3f);
        EXPECT_NEAR(left.x, -right.x, kNear);
        EXPECT_NEAR(left.y, right.y, kNear);
    }
    EXPECT_NEAR(Map(1, 0.5f).x, 0.02f, kNear);
    EXPECT_NEAR(Map(1, 0).x, 0.42f, kNear);
    EXPECT_NEAR(Map(1, 0).y, -0.8f, kNear);
}

TEST_F(HourGlass, TheSoundBendsTheWalls) {
    StartAt(100);
    PrepareAt(101);
    EXPECT_NEAR(Map(1, 0, 0.5f).x, 0.42f * 1.2f, kNear);
    EXPECT_NEAR(Map(1, 0, -0.5f).x, 0.42f * 0.8f, kNear);
}

TEST_F(HourGlass, TheSandRunsDown) {
    StartAt(100);
    float last = SandAt(100);
    for (int second = 1; second <= 6; ++second) {
        const float now = SandAt(100 + second);
        EXPECT_GT(now, last) << second;
        last = now;
    }
}

TEST_F(HourGlass, TheSandStaysBetweenTheWalls) {
    StartAt(100);
    for (double time = 100; time < 107; time += 0.3) {
        PrepareAt(time);
        for (int sample = 0; sample < 256; ++sample) {
            const WaveFormPoint grain = Map(2, float(sample) * 0.0039f);
            const float height = std::abs(grain.y) / 0.8f;
            const float wall = 0.02f + 0.4f * height * height * (3 - 2 * height);
            EXPECT_LE(std::abs(grain.x), wall + kNear);
            EXPECT_LE(height, 1.0001f);
        }
    }
}

TEST_F(HourGlass, IsTurnedOverWhenTheSandHasRunOut) {
    StartAt(100);
    PrepareAt(107.75); // half way: the wall's top lies on the right
    const WaveFormPoint top = Map(1, 0);
    EXPECT_NEAR(top.x, 0.8f, 1e-3f);
    EXPECT_NEAR(top.y, 0.42f, 1e-3f);
    PrepareAt(108.499);
    EXPECT_NEAR(Map(1, 0).y, 0.8f, 1e-2f) << "upside down";
    PrepareAt(108.501);
    EXPECT_NEAR(Map(1, 0).y, -0.8f, 1e-2f) << "and it starts anew";
}

} // namespace
} // namespace orvane::zephor
