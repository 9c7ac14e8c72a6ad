#include "player/pacing/PulseClock.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::player {
namespace {

constexpr double kSlot = 1 / 60.0;

// A player whose waits and frames take the time they are given, on a clock of its own.
struct Player {
    PulseClock clock;
    double now = 1000.0; // any origin
    double lateness = 0; // by how much each wait ends late
    std::vector<double> pulses;

    void Pulse(double frameSeconds) {
        if (const double wait = clock.SecondsUntilDue(now); wait > 0) now += wait + lateness;
        clock.Sent(now);
        pulses.push_back(now);
        now += frameSeconds;
    }

    void RunFor(double seconds, double frameSeconds) {
        for (const double end = now + seconds; now < end;) Pulse(frameSeconds);
    }
};

TEST(PulseClock, TheFirstPulseIsDueAtOnce) {
    PulseClock clock;
    EXPECT_EQ(clock.SecondsUntilDue(5), 0);
    clock.Sent(5);
    EXPECT_NEAR(clock.SecondsUntilDue(5), kSlot, 1e-9);
    EXPECT_NEAR(clock.SecondsUntilDue(5 + kSlot / 4), kSlot * 3 / 4, 1e-9);
    EXPECT_EQ(clock.SecondsUntilDue(5 + kSlot * 1.01), 0);
}

TEST(PulseClock, CheapFramesKeepSixtyASecondForAnHour) {
    Player player;
    player.RunFor(3600, 0.002);
    EXPECT_NEAR(double(player.pulses.size()) / 3600, 60.0, 0.01);
    EXPECT_EQ(player.clock.Missed(), 0u);
}

TEST(PulseClock, WaitsThatEndLateDoNotSlowTheRate) {
    for (const double lateness : { 0.0005, 0.002, 0.010 }) {
        Player player;
        player.lateness = lateness;
        player.RunFor(100, 0.001);
        EXPECT_NEAR(double(player.pulses.size()) / 100, 60.0, 0.5) << "late by " << lateness;
    }
}

TEST(PulseClock, FramesSlowerThanASlotFollowOneAnotherWithoutAPause) {
    Player player;
    player.RunFor(10, 0.020);
    EXPECT_NEAR(double(player.pulses.size()) / 10, 50.0, 0.5);
}

TEST(PulseClock, AStallIsFollowedByOnePulseAtOnceAndThenByTheSchedule) {
    Player player;
    for (int i = 0; i < 10; ++i) player.Pulse(0.001);
    player.Pulse(1.005); // slot 10, and 60 slots more begin meanwhile: 11 to 70
    const double after = player.now;
    for (int i = 0; i < 3; ++i) player.Pulse(0.001);
    ASSERT_EQ(player.pulses.size(), 14u);
    EXPECT_EQ(player.pulses[11], after); // at once, in slot 70
    EXPECT_NEAR(player.pulses[12], 1000 + 71 * kSlot, 1e-6);
    EXPECT_NEAR(player.pulses[13], 1000 + 72 * kSlot, 1e-6);
    EXPECT_EQ(player.clock.Missed(), 59u); // 11 to 69
}

TEST(PulseClock, NeverTwoPulsesInOneSlot) {
    Player player;
    const double frames[] = { 0.001, 0.030, 0.0001, 0.016, 0.0167, 0.1, 0.002 };
    for (int i = 0; i < 7000; ++i) player.Pulse(frames[i % 7]);
    std::int64_t last = -1;
    for (const double at : player.pulses) {
        const auto slot = std::int64_t((at - 1000) / kSlot + 1e-6);
        EXPECT_GT(slot, last) << "at " << at;
        last = slot;
    }
}

TEST(PulseClock, AClockThatIsSetBackBeginsANewSchedule) {
    Player player;
    player.RunFor(1, 0.001);
    player.now -= 500;
    EXPECT_EQ(player.clock.SecondsUntilDue(player.now), 0);
    const auto before = player.pulses.size();
    player.RunFor(10, 0.001);
    EXPECT_NEAR(double(player.pulses.size() - before) / 10, 60.0, 0.5);
}

TEST(PulseClock, AClockThatIsSetForwardMissesSlotsButQueuesNone) {
    Player player;
    player.RunFor(1, 0.001);
    player.now += 86400;
    const auto before = player.pulses.size();
    player.RunFor(10, 0.001);
    EXPECT_NEAR(double(player.pulses.size() - before) / 10, 60.0, 0.5);
}

TEST(PulseClock, TheRateIsTheCallers) {
    PulseClock clock(25);
    clock.Sent(0);
    EXPECT_NEAR(clock.SecondsUntilDue(0), 0.04, 1e-9);
}

} // namespace
} // namespace orvane::player
