// The player before a host that remembers what it was told.
#include "shell/protocol/Requests.h"
#include "support/Wire.h"
#include "system/playing/PlayingTest.h"
#include "system/playing/WitnessHost.h"

#include <algorithm>

namespace orvane::tests {
namespace {

using Tags = std::vector<std::string>;

const Tags kOneSong = { "UPVM", "SWSV", "NOAR", "STOP", "HWND" };
constexpr std::size_t kPulseBytes = 2062;
constexpr std::size_t kWaveformAt = 13; // of a pulse: the left channel's 512 samples

std::uint32_t PositionOf(const std::string& pulse) {
    return shell::UInt32At(reinterpret_cast<const std::uint8_t*>(pulse.data()),
                           shell::pulse_request::kPosition);
}

class WitnessTest : public PlayingTest {};

TEST_F(WitnessTest, PlaysASongToItsEnd) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(Quoted(WriteTone("tone.wav", 1.0)));
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(WithoutSummary(played.text), "Playing: tone\nVisualizer: Scripted\n");
    EXPECT_EQ(host.Tags(), kOneSong);
    const auto pulses = host.Pulses();
    EXPECT_EQ(FramesPlayed(played.text), pulses.size());
    EXPECT_GT(pulses.size(), 10u);
    EXPECT_LT(pulses.size(), 120u); // sixty a second, and however late the song's end was seen
}

// Pulses are whole, numbered, and carry the tone's waveform; the position rises to the song's end.
TEST_F(WitnessTest, SendsTheSoundWithEachPulse) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(Quoted(WriteTone("tone.wav", 1.0)));
    ASSERT_EQ(played.exitCode, 0) << played.text;
    std::uint32_t position = 0;
    const auto pulses = host.Pulses();
    for (std::size_t i = 0; i < pulses.size(); ++i) {
        ASSERT_EQ(pulses[i].size(), kPulseBytes);
        WireBuilder stamp;
        stamp.Raw("PULS").U32(std::uint32_t(i + 1));
        EXPECT_EQ(pulses[i].substr(0, 8), AsText(stamp.Get()));
        const std::uint32_t next = PositionOf(pulses[i]);
        EXPECT_GE(next, position);
        position = next;
    }
    EXPECT_GT(position, 500u);
    EXPECT_LE(position, 1000u); // milliseconds
    const std::string& middle = pulses[pulses.size() / 2];
    const auto* samples = reinterpret_cast<const std::uint8_t*>(middle.data()) + kWaveformAt;
    EXPECT_GT(*std::max_element(samples, samples + 512), 180);
    EXPECT_LT(*std::min_element(samples, samples + 512), 75);
}

TEST_F(WitnessTest, EndsAfterTheSecondsItIsTold) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(L"--seconds 0.5 " + Quoted(WriteTone("long.wav", 60)));
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(host.Tags(), kOneSong);
    EXPECT_EQ(FramesPlayed(played.text).value_or(999), host.Pulses().size());
}

TEST_F(WitnessTest, PlaysSongsOneAfterTheOtherAndPassesOverWhatIsNone) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const auto text = Write("text.txt", "This is no music.\n");
    const Played played = Play(Quoted(WriteTone("one.wav", 0.3)) + L" " + Quoted(text) + L" missing.wav " +
                               Quoted(WriteTone("two.wav", 0.3)));
    EXPECT_EQ(played.exitCode, 0);
    EXPECT_EQ(WithoutSummary(played.text),
              "Playing: one\nVisualizer: Scripted\n" + NoSoundLine(text) +
                  "There is no file \"missing.wav\": check its name.\nPlaying: two\n");
    EXPECT_EQ(host.Tags(), (Tags{ "UPVM", "SWSV", "NOAR", "STRT", "NOAR", "STOP", "HWND" }));
}

TEST_F(WitnessTest, EndsByQ) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    ChildProcess player;
    ASSERT_TRUE(StartPlayer(player, Quoted(WriteTone("long.wav", 600)), { .input = true }));
    ASSERT_TRUE(WaitUntil([&] { return host.Pulses().size() > 3; }));
    ASSERT_TRUE(player.Type("xq")); // the first means nothing
    const Played played = Finish(player);
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(host.Tags(), kOneSong);
    EXPECT_EQ(FramesPlayed(played.text).value_or(0), host.Pulses().size());
}

// Full screen and seeking by a terminal's bytes; the window isn't there to be full, so it is asked for each time.
TEST_F(WitnessTest, ObeysTheKeysOfATerminal) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    ChildProcess player;
    ASSERT_TRUE(StartPlayer(player, Quoted(WriteTone("long.wav", 600)), { .input = true }));
    ASSERT_TRUE(WaitUntil([&] { return host.Pulses().size() > 3; }));
    ASSERT_TRUE(player.Type("f\x1B[C\x1B[C"));
    ASSERT_TRUE(WaitUntil([&] { return host.Tags().size() > 3; }));
    const std::size_t before = host.Pulses().size();
    ASSERT_TRUE(WaitUntil([&] { return host.Pulses().size() > before + 3; }));
    ASSERT_TRUE(player.Type("\x1B"));
    EXPECT_EQ(Finish(player).exitCode, 0);
    EXPECT_EQ(host.Tags(), (Tags{ "UPVM", "SWSV", "NOAR", "NTFS", "STOP", "HWND" }));
    EXPECT_GE(PositionOf(host.Pulses().back()), 10000u);
}

// This process in the console of another, until the object goes. Attaching to it may fail for a moment on a busy
// machine, so it is tried for a while.
class BorrowedConsole {
public:
    explicit BorrowedConsole(DWORD processId) {
        FreeConsole();
        mAttached = WaitUntil([&] { return AttachConsole(processId) != FALSE; });
        SetConsoleCtrlHandler(nullptr, TRUE); // what is meant for the other must not end this one
    }

    ~BorrowedConsole() {
        FreeConsole();
        SetConsoleCtrlHandler(nullptr, FALSE);
    }

    BorrowedConsole(const BorrowedConsole&) = delete;
    BorrowedConsole& operator=(const BorrowedConsole&) = delete;

    [[nodiscard]] bool IsAttached() const { return mAttached; }

private:
    bool mAttached;
};

TEST_F(WitnessTest, EndsCleanlyByCtrlC) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    ChildProcess player;
    ASSERT_TRUE(StartPlayer(player, Quoted(WriteTone("long.wav", 600)), { .flags = CREATE_NEW_CONSOLE }));
    ASSERT_TRUE(WaitUntil([&] { return host.Pulses().size() > 3; }));
    {
        const BorrowedConsole console(player.Id());
        ASSERT_TRUE(console.IsAttached());
        ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
        ASSERT_TRUE(player.WaitForText("a second.")); // the console has to last until the player has heard it
    }
    const Played played = Finish(player);
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(WithoutSummary(played.text), "Playing: long\nVisualizer: Scripted\n");
    EXPECT_EQ(host.Tags(), kOneSong);
}

TEST_F(WitnessTest, EndsByEscapeInTheWindow) {
    WitnessHost host({ { 5, std::string("CYEK\x1B\0\0\0\0\0\0\0", 12) } });
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(Quoted(WriteTone("long.wav", 600)));
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(host.Pulses().size(), 6u);
    EXPECT_EQ(host.Tags(), kOneSong);
}

TEST_F(WitnessTest, EndsWhenTheWindowIsToBeClosed) {
    WitnessHost host({ { 5, "WSLC" } });
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(Quoted(WriteTone("long.wav", 600)));
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(host.Pulses().size(), 6u);
    EXPECT_EQ(host.Tags(), kOneSong);
}

TEST_F(WitnessTest, ListsTheVisualizers) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(L"--list");
    EXPECT_EQ(played.exitCode, 0);
    EXPECT_EQ(played.text, "Scripted  built-in\n");
    EXPECT_EQ(host.Tags(), Tags{ "UPVM" });
}

TEST_F(WitnessTest, TellsThatThereIsNoSuchVisualizer) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const Played played = Play(L"--visualizer nothing " + Quoted(WriteTone("tone.wav", 1)));
    EXPECT_EQ(played.exitCode, 1);
    EXPECT_EQ(played.text, "There is no visualizer \"nothing\": see orvane-player --list.\n");
}

TEST_F(WitnessTest, SendsTheArtworkItIsTold) {
    WitnessHost host;
    ASSERT_TRUE(host.IsThere());
    const auto picture = Write("cover.png", "\x89PNG\r\n\x1A\n");
    const Played played = Play(L"--artwork " + Quoted(picture) + L" " + Quoted(WriteTone("tone.wav", 0.2)));
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(host.Tags(), (Tags{ "UPVM", "SWSV", "AR14", "STOP", "HWND" }));
}

} // namespace
} // namespace orvane::tests
