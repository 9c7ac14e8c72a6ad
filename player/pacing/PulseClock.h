// When the next pulse is due: a fixed schedule of slots, one pulse in a slot at most.
//
// A pulse is a whole frame of the visualizer, and the reply comes when the frame is drawn, so a slow frame holds
// the player up. What was missed meanwhile is missed: the next pulse goes out at once if its slot has come, but
// only that one, and the schedule goes on where it would have been. So pulses never queue up behind a slow frame,
// frames slower than a slot follow one another without a pause, and cheap frames keep the rate in the long run,
// however late each wait ends.
//
// No clock is read here: the caller passes seconds, from any origin.
#pragma once

#include <cstdint>
#include <optional>

namespace orvane::player {

constexpr double kPulsesPerSecond = 60.0;

class PulseClock {
public:
    explicit PulseClock(double pulsesPerSecond = kPulsesPerSecond)
        : mPulsesPerSecond(pulsesPerSecond) {}

    // How long to wait for the next pulse; 0 if it is due. Never more than one slot: a clock that was set back
    // begins a new schedule.
    [[nodiscard]] double SecondsUntilDue(double now);

    // A pulse goes out now: its slot and all earlier ones are used up.
    void Sent(double now);

    // Slots that went by without a pulse, since the schedule began.
    [[nodiscard]] std::uint64_t Missed() const { return mMissed; }

private:
    struct Schedule {
        double start = 0;      // seconds
        std::int64_t next = 0; // number of the slot that is waited for
    };

    [[nodiscard]] double TimeOf(std::int64_t slot) const;

    const double mPulsesPerSecond;
    std::optional<Schedule> mSchedule; // begins with the first question or pulse
    std::uint64_t mMissed = 0;
};

} // namespace orvane::player
