#include "player/session/PulseLog.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace orvane::player {

namespace {

int Loudest(const records::AudioRenderData& sound) {
    int loudest = 0;
    for (const auto& channel : sound.waveform)
        for (const int sample : channel)
            loudest = std::max(loudest, std::abs(sample - records::kWaveformSilence));
    return loudest;
}

} // namespace

PulseLog::PulseLog(const std::string& path) {
    if (!path.empty()) mFile.open(std::filesystem::path(std::u8string(path.begin(), path.end())));
}

void PulseLog::Sent(double seconds, double position, const records::AudioRenderData& sound) {
    if (!mFile.is_open()) return;
    std::array<char, 80> line = {};
    std::snprintf(line.data(), line.size(), "%.6f %.6f %d\n", seconds, position, Loudest(sound));
    mFile << line.data();
}

} // namespace orvane::player
