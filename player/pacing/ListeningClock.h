// Which moment of the song is being heard, from what the sound device says that it has played.
//
// A device tells its position in steps (a period of some 10 ms under Windows), so between two reports the moment
// runs on with the clock. It runs on for a short while only: a device that no longer reports has stopped, and the
// picture stops with it. The moment never goes back by a step of the device, only when the song is begun anew.
//
// No clock is read here: the caller passes seconds, from any origin.
#pragma once

#include <cstdint>
#include <optional>

namespace orvane::player {

class ListeningClock {
public:
    // How long the moment runs on without a report, in seconds: the longest period of a device, and some.
    static constexpr double kLongestGap = 0.1;
    // A report this far behind the moment, in seconds, is a seek or a new beginning, not a late step.
    static constexpr double kJump = 0.25;

    // `framesPerSecond` is the rate at which the device counts. `delay`, in seconds, is how much later the sound
    // comes to the ear than the device says that it played it (wireless speakers); below 0 the picture, which
    // takes its time too, is made for a moment that is still to be heard.
    explicit ListeningClock(double framesPerSecond, double delay = 0)
        : mFramesPerSecond(framesPerSecond)
        , mDelay(delay) {}

    // The device has played that many frames of the song by now.
    void Played(std::uint64_t frames, double now);

    // Seconds of the song that were heard by now, from 0; 0 before the first report.
    [[nodiscard]] double Moment(double now);

    // The same in the units of the song: frames at `songRate`, and milliseconds as a pulse carries them.
    [[nodiscard]] std::int64_t Frame(double now, double songRate);
    [[nodiscard]] std::uint32_t Milliseconds(double now);

private:
    struct Report {
        double position = 0; // seconds of the song
        double at = 0;       // seconds of the clock
    };

    const double mFramesPerSecond;
    const double mDelay;
    std::optional<Report> mReport;
    double mFurthest = 0; // seconds of the song, without the delay: never gone behind but by a jump
};

} // namespace orvane::player
