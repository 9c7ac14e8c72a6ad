// The line that tells how far a song has come.
#pragma once

#include <cstdint>
#include <string>

namespace orvane::player {

struct Progress {
    double position = 0; // seconds
    double duration = 0; // seconds; 0: nobody knows
    bool paused = false;
    std::string title;        // UTF-8
    std::uint64_t frames = 0; // shown since the beginning
};

// "0:12 / 3:45  Title  720 frames", with "paused" behind the time when it is; hours from 1:00:00 on. Without a
// duration the slash and what follows it are left out.
[[nodiscard]] std::string ProgressLine(const Progress& progress);

// "3:45"; below 0 is 0:00.
[[nodiscard]] std::string TimeText(double seconds);

// "Played 3.0 s: 180 frames, 60.0 a second."
[[nodiscard]] std::string SummaryLine(double seconds, std::uint64_t frames);

} // namespace orvane::player
