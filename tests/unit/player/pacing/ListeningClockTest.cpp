#include "player/pacing/ListeningClock.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvane::player {
namespace {

constexpr double kRate = 48000;

TEST(ListeningClock, IsAtTheBeginningUntilTheDeviceReports) {
    ListeningClock clock(kRate);
    EXPECT_EQ(clock.Moment(1e6), 0);
    EXPECT_EQ(clock.Frame(1e6, 44100), 0);
    EXPECT_EQ(clock.Milliseconds(1e6), 0u);
}

TEST(ListeningClock, TellsTheMomentInSecondsFramesAndMilliseconds) {
    ListeningClock clock(kRate);
    clock.Played(72000, 10.0); // 1.5 s
    EXPECT_DOUBLE_EQ(clock.Moment(10.0), 1.5);
    EXPECT_EQ(clock.Frame(10.0, 44100), 66150);
    EXPECT_EQ(clock.Milliseconds(10.0), 1500u);
}

TEST(ListeningClock, RunsOnBetweenTwoReports) {
    ListeningClock clock(kRate);
    clock.Played(48000, 10.0);
    EXPECT_NEAR(clock.Moment(10.004), 1.004, 1e-9);
    EXPECT_NEAR(clock.Moment(10.009), 1.009, 1e-9);
    clock.Played(48480, 10.010);
    EXPECT_NEAR(clock.Moment(10.012), 1.012, 1e-9);
}

TEST(ListeningClock, AReportOfTheSamePositionDoesNotHoldTheMomentBack) {
    ListeningClock clock(kRate);
    clock.Played(48000, 10.0);
    clock.Played(48000, 10.008); // asked again within one period of the device
    EXPECT_NEAR(clock.Moment(10.009), 1.009, 1e-9);
}

TEST(ListeningClock, ADeviceThatReportsNothingNewStopsTheMoment) {
    ListeningClock clock(kRate);
    clock.Played(48000, 10.0);
    for (double now = 10; now < 15; now += 0.01) clock.Played(48000, now);
    EXPECT_NEAR(clock.Moment(15), 1.0 + ListeningClock::kLongestGap, 1e-9);
    clock.Played(96000, 15.0); // and goes on when the device does
    EXPECT_NEAR(clock.Moment(15.01), 2.01, 1e-9);
}

TEST(ListeningClock, NeverGoesBackByAStepOfTheDevice) {
    ListeningClock clock(kRate);
    double last = 0;
    // Periods of 10 ms, each reported 0 to 6 ms late in turn.
    for (int period = 0; period < 500; ++period) {
        const double at = period * 0.010;
        clock.Played(std::uint64_t(period * 480), at + period % 7 * 0.001);
        for (const double later : { 0.006, 0.008 }) {
            const double moment = clock.Moment(at + later);
            EXPECT_GE(moment, last);
            EXPECT_NEAR(moment, at + later, 0.0101);
            last = moment;
        }
    }
}

TEST(ListeningClock, ASeekBackIsFollowedAtOnce) {
    ListeningClock clock(kRate);
    clock.Played(480000, 10.0);
    EXPECT_NEAR(clock.Moment(10.0), 10.0, 1e-9);
    clock.Played(48000, 10.01);
    EXPECT_NEAR(clock.Moment(10.01), 1.0, 1e-9);
}

TEST(ListeningClock, ADelayMovesTheMomentBackButNotBeforeTheBeginning) {
    ListeningClock late(kRate, 0.2);
    late.Played(4800, 10.0); // 0.1 s
    EXPECT_EQ(late.Moment(10.0), 0);
    late.Played(48000, 11.0);
    EXPECT_NEAR(late.Moment(11.0), 0.8, 1e-9);

    ListeningClock early(kRate, -0.05);
    early.Played(48000, 10.0);
    EXPECT_NEAR(early.Moment(10.0), 1.05, 1e-9);
    EXPECT_EQ(early.Milliseconds(10.0), 1050u);
}

TEST(ListeningClock, AClockThatIsSetBackOrForwardMovesTheMomentByTheGapAtMost) {
    ListeningClock clock(kRate);
    clock.Played(48000, 1000.0);
    EXPECT_NEAR(clock.Moment(1000.0), 1.0, 1e-9);
    EXPECT_NEAR(clock.Moment(400.0), 1.0, 1e-9);
    EXPECT_NEAR(clock.Moment(90000.0), 1.1, 1e-9);
    clock.Played(48480, 400.0); // the device goes on by its own count
    EXPECT_NEAR(clock.Moment(400.0), 1.1, 1e-9);
    clock.Played(57600, 400.2);
    EXPECT_NEAR(clock.Moment(400.2), 1.2, 1e-9);
}

TEST(ListeningClock, MillisecondsWrapAsThePulseDoes) {
    ListeningClock clock(1000);
    clock.Played(0x1'0000'0000u + 5, 0);
    EXPECT_EQ(clock.Milliseconds(0), 5u);
}

} // namespace
} // namespace orvane::player
