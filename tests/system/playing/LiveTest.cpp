// The player without a song. Whether the machine has sound devices is asked of the system itself: without one the player
// has its line to say, and with one the picture has something to follow. tools/with-sound-device makes one.
#include "player/sound/windows/ComApartment.h"
#include "player/sound/windows/WasapiDevice.h"
#include "support/windows/SoundDevices.h"
#include "system/playing/PlayingTest.h"
#include "system/playing/WitnessHost.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::tests {
namespace {

using player::StereoFrame;

constexpr std::size_t kWaveformAt = 13, kWaveformLength = 512; // the left channel's, in a pulse
constexpr std::uint32_t kRate = 44100;

// From the lowest to the highest sample of a pulse's waveform, 8 bits each.
int SwingOf(const std::string& pulse) {
    const auto* samples = reinterpret_cast<const std::uint8_t*>(pulse.data()) + kWaveformAt;
    const auto [low, high] = std::minmax_element(samples, samples + kWaveformLength);
    return *high - *low;
}

constexpr int kLoud = 100, kQuiet = 8; // swings

std::size_t CountLouder(const std::vector<std::string>& pulses, int swing) {
    return std::size_t(std::ranges::count_if(pulses, [&](const auto& p) { return SwingOf(p) > swing; }));
}

// A tone of half the full level.
std::vector<StereoFrame> Tone(std::uint32_t frames) {
    std::vector<StereoFrame> tone(frames);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const auto value = float(0.5 * std::sin(2 * std::numbers::pi * 440 * i / kRate));
        tone[i] = { value, value };
    }
    return tone;
}

class LiveTest : public PlayingTest {
protected:
    void Start(const wchar_t* arguments) {
        ASSERT_TRUE(mPlayer.Start(ProgramBeside(L"orvane-player.exe"), arguments, { .input = true }));
    }

    // Plays on the default device until `enough` holds.
    template <typename Enough>
    static void PlayUntil(Enough enough) {
        const auto device = player::MakeWasapiDevice();
        ASSERT_TRUE(device->Open(kRate));
        const auto tone = Tone(kRate);
        std::size_t written = 0;
        EXPECT_TRUE(WaitUntil([&] {
            if (written == tone.size()) written = 0; // 440 times a second begins anew without a step
            const std::size_t count = std::min(device->Room(), tone.size() - written);
            device->Write(std::span(tone).subspan(written, count));
            written += count;
            device->Run(true);
            return enough();
        }));
    }

    void ExpectRefusal(const char* line) {
        const Played played = Finish(mPlayer);
        EXPECT_EQ(played.exitCode, 6);
        EXPECT_EQ(played.text, line);
    }

    [[nodiscard]] Played End() {
        EXPECT_TRUE(mPlayer.Type("q"));
        return Finish(mPlayer);
    }

    const player::ComApartment mApartment;
    WitnessHost mHost;
    ChildProcess mPlayer;
};

TEST_F(LiveTest, TheInputIsShownAsItIsRecorded) {
    ASSERT_TRUE(mHost.IsThere());
    ASSERT_NO_FATAL_FAILURE(Start(L"--live input"));
    if (!HasDefaultDevice(eCapture))
        return ExpectRefusal("There is no recording device. Connect one, or name a song to play.\n");
    ASSERT_TRUE(WaitUntil([&] { return mHost.Pulses().size() > 30; })) << mPlayer.Text();
    const std::vector<std::string> before = mHost.Pulses();
    EXPECT_EQ(CountLouder(before, kQuiet), 0u);
    if (HasDefaultDevice(eRender)) { // a cable or a monitor leads from there to here
        PlayUntil([&] { return CountLouder(mHost.Pulses(), kLoud) > 30; });
        const std::size_t behind = mHost.Pulses().size();
        EXPECT_TRUE(WaitUntil([&] { // and quiet again
            const auto pulses = mHost.Pulses();
            return pulses.size() > behind + 30 && SwingOf(pulses.back()) <= kQuiet;
        }));
    }
    const Played played = End();
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(WithoutSummary(played.text), "Playing: What this machine records\nVisualizer: Scripted\n");
}

// What the machine plays can't be had everywhere. The picture moves all the same, and the player says what it lacks.
TEST_F(LiveTest, TheOutputIsShownOrElseSilence) {
    ASSERT_TRUE(mHost.IsThere());
    ASSERT_NO_FATAL_FAILURE(Start(L"--live"));
    if (!HasDefaultDevice(eRender))
        return ExpectRefusal("There is no sound device to listen to. Connect one, or name a song to play.\n");
    ASSERT_TRUE(WaitUntil([&] { return mHost.Pulses().size() > 30; })) << mPlayer.Text();
    const bool isDeaf = mPlayer.Text().find("This system hands out nothing of what it plays") == 0;
    const auto behind = [&](std::size_t count) {
        return [this, wanted = mHost.Pulses().size() + count] { return mHost.Pulses().size() >= wanted; };
    };
    if (isDeaf) {
        PlayUntil(behind(60));
        EXPECT_EQ(CountLouder(mHost.Pulses(), 0), 0u);
    } else {
        PlayUntil([&] { return CountLouder(mHost.Pulses(), kLoud) > 30; });
    }
    const Played played = End();
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_TRUE(played.text.ends_with("a second.\n")) << played.text;
}

} // namespace
} // namespace orvane::tests
