#include "player/session/Progress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace orvane::player {

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kMinutesPerHour = 60;

template <typename... Values>
std::string Format(const char* format, Values... values) {
    std::array<char, 128> text = {};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string FramesText(std::uint64_t frames) {
    return std::to_string(frames).append(frames == 1 ? " frame" : " frames");
}

} // namespace

std::string TimeText(double seconds) {
    const auto whole = std::int64_t(std::max(seconds, 0.0));
    const auto minutes = int(whole / kSecondsPerMinute);
    const auto rest = int(whole % kSecondsPerMinute);
    if (minutes < kMinutesPerHour) return Format("%d:%02d", minutes, rest);
    return Format("%d:%02d:%02d", minutes / kMinutesPerHour, minutes % kMinutesPerHour, rest);
}

std::string ProgressLine(const Progress& progress) {
    std::string line = TimeText(progress.position);
    if (progress.duration > 0) line.append(" / ").append(TimeText(progress.duration));
    if (progress.paused) line.append("  paused");
    if (!progress.title.empty()) line.append("  ").append(progress.title);
    return line.append("  ").append(FramesText(progress.frames));
}

std::string SummaryLine(double seconds, std::uint64_t frames) {
    const double rate = seconds > 0 ? double(frames) / seconds : 0;
    return Format("Played %.1f s: ", seconds)
        .append(FramesText(frames))
        .append(Format(", %.1f a second.", rate));
}

} // namespace orvane::player
