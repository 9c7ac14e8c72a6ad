#include "player/session/PulseLog.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <iterator>

namespace orvane::player {
namespace {

TEST(PulseLog, HasALineForEachPulse) {
    const auto path = std::filesystem::temp_directory_path() / "orvane-pulse-log";
    records::AudioRenderData sound = {};
    std::memset(sound.waveform, records::kWaveformSilence, sizeof(sound.waveform));
    {
        PulseLog log(path.string());
        log.Sent(1.5, 0.25, sound);
        sound.waveform[1][3] = 27; // 100 below silence
        log.Sent(2.5, 1.25, sound);
        EXPECT_TRUE(log.IsWell());
    }
    std::ifstream file(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "1.500000 0.250000 0\n2.500000 1.250000 100\n");
    file.close();
    std::filesystem::remove(path);
}

TEST(PulseLog, IsWellWithoutAFileAndNotWithOneThatCannotBe) {
    EXPECT_TRUE(PulseLog("").IsWell());
    EXPECT_FALSE(PulseLog("no-such-folder/log").IsWell());
}

} // namespace
} // namespace orvane::player
