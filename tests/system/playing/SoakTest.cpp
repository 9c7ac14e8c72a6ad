// A player whose user never rests: keys at random, in the console and in the window, for a long time. The environment
// variable ORVANE_SOAK=1 asks for ten minutes in place of half a minute; ORVANE_SEED=N repeats the keys of a run.
#include "system/UsageByTenths.h"
#include "system/playing/PlayingTest.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace orvane::tests {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using Moment = std::chrono::steady_clock::time_point;

constexpr std::chrono::seconds kShort{ 30 };
constexpr std::chrono::seconds kLong{ 600 };
constexpr std::chrono::seconds kWarmingUp{ 60 }; // in front of the long form
constexpr double kSongSeconds = 60;
constexpr int kSongs =
    450; // more than keys and time come to the end of; their names still fit a command line
constexpr DWORD kShortestRest = 40; // milliseconds between two keys
constexpr DWORD kLongestRest = 400;
constexpr DWORD kQuiet = 500; // milliseconds: what was typed before has had its effect
constexpr int kSamples = 10;  // in a tenth
constexpr DWORD kSampleStep = 50;
constexpr char kVisualizer[] = "Orvane Classic Visualizer";

struct Key {
    bool inConsole;
    const char* typed;
};

// None of them ends the session. Those of the window that are no commands of the player are the visualizer's own.
constexpr Key kKeys[] = {
    { true, " " },  { true, "\x1B[D" }, { true, "\x1B[C" }, { true, "n" },  { true, "p" },  { true, "v" },
    { true, "f" },  { false, " " },     { false, "v" },     { false, "," }, { false, "." }, { false, "[" },
    { false, "]" }, { false, "A" },     { false, "S" },     { false, "Q" }, { false, "W" }, { false, "Z" },
    { false, "X" }, { false, "C" },     { false, "F" },     { false, "I" }, { false, "L" }, { false, "M" },
    { false, "R" }, { false, "H" },     { false, "T" },
};

unsigned Seed() {
    const char* wish = std::getenv("ORVANE_SEED");
    return wish ? unsigned(std::strtoul(wish, nullptr, 10)) : std::random_device()();
}

HWND HostWindow() {
    return FindWindowW(L"ORVANE OOPWIND", nullptr);
}

bool FillsScreen(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place.right - place.left >= GetSystemMetrics(SM_CXSCREEN);
}

// When pulses were sent, in seconds, from the log that the player keeps.
std::vector<double> PulseTimes(const fs::path& log) {
    std::ifstream file(log);
    std::vector<double> times;
    for (std::string line; std::getline(file, line);) times.push_back(std::strtod(line.c_str(), nullptr));
    return times;
}

void PrintIntervals(const std::vector<double>& times) {
    std::vector<double> intervals;
    for (std::size_t i = 1; i < times.size(); ++i) intervals.push_back(times[i] - times[i - 1]);
    std::sort(intervals.begin(), intervals.end());
    const auto inMilliseconds = [&](double part) {
        return 1000 * intervals[std::size_t(part * double(intervals.size() - 1))];
    };
    std::printf("%zu pulses: interval median %.1f ms, p99 %.1f ms, longest %.1f ms\n", times.size(),
                inMilliseconds(0.5), inMilliseconds(0.99), inMilliseconds(1));
}

class PlayingSoak : public PlayingTest {
protected:
    ~PlayingSoak() override {
        mPlayer.Kill();
        if (mHost && WaitForSingleObject(mHost.get(), 0) == WAIT_TIMEOUT) TerminateProcess(mHost.get(), 1);
    }

    // The programs in a folder whose name no other process's command line has.
    void Start() {
        LARGE_INTEGER count;
        QueryPerformanceCounter(&count);
        const std::string name =
            "soak-" + std::to_string(GetCurrentProcessId()) + std::to_string(count.QuadPart);
        fs::create_directories(mFolder / name / "Plug-ins");
        fs::copy_file(ProgramBeside(L"example-plugin.dll"),
                      mFolder / name / "Plug-ins" / "example-plugin.dll");
        (void)CopyProgram(L"orvane-visualizer.exe", name + "/orvane-visualizer.exe");
        const auto player = CopyProgram(L"orvane-player.exe", name + "/orvane-player.exe");
        std::wstring arguments = L"--visualizer classic --pulse-log " + Quoted(mPulseLog);
        const std::wstring song = L" " + Quoted(WriteTone("s.wav", kSongSeconds));
        for (int i = 0; i < kSongs; ++i) arguments += song;
        ASSERT_TRUE(StartPlayer(mPlayer, arguments, { .input = true }, player.wstring())) << mPlayer.Text();
        DWORD id = 0;
        ASSERT_TRUE(WaitUntil([&] { return GetWindowThreadProcessId(HostWindow(), &id) != 0; }))
            << mPlayer.Text();
        mHost = player::Adopt(OpenProcess(
            SYNCHRONIZE | PROCESS_TERMINATE | PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
        ASSERT_TRUE(mHost);
        mUsage.emplace(mHost.get(), name + "\\orvane-visualizer.exe");
    }

    [[nodiscard]] bool BothRun() const {
        return mPlayer.IsRunning() && WaitForSingleObject(mHost.get(), 0) == WAIT_TIMEOUT;
    }

    void Press(const Key& key) {
        if (key.inConsole) {
            ASSERT_TRUE(mPlayer.Type(key.typed));
        } else {
            PostMessageW(GetWindow(HostWindow(), GW_CHILD), WM_CHAR, WPARAM(key.typed[0]), 1);
        }
        ++mPressed;
    }

    void PressUntil(Moment end) {
        while (std::chrono::steady_clock::now() < end) {
            ASSERT_NO_FATAL_FAILURE(Press(kKeys[mRandom() % std::size(kKeys)]));
            Sleep(kShortestRest + DWORD(mRandom() % (kLongestRest - kShortestRest)));
            ASSERT_TRUE(BothRun()) << mPlayer.Text();
        }
    }

    [[nodiscard]] bool ShowsClassic() const {
        const std::string text = mPlayer.Text();
        const auto last = text.rfind("Visualizer: ");
        return last != std::string::npos &&
               text.compare(last + 12, std::size(kVisualizer) - 1, kVisualizer) == 0;
    }

    // The same visualizer in a window that is no longer the whole screen: what is in use can be compared.
    void Settle() {
        ASSERT_TRUE(WaitUntil([&] {
            Sleep(kQuiet);
            if (FillsScreen(HostWindow())) return mPlayer.Type("f") && false;
            if (!ShowsClassic()) return mPlayer.Type("v") && false;
            return true;
        })) << mPlayer.Text();
    }

    void Sample(UsageByTenths& usage, int tenth) {
        ASSERT_NO_FATAL_FAILURE(Settle());
        for (int i = 0; i < kSamples; ++i) {
            Sleep(kSampleStep);
            usage.Sample(tenth);
        }
    }

    // It ends well, and said nothing but what it plays, shows and played.
    void ExpectGoodEnd() {
        ASSERT_TRUE(mPlayer.Type("q"));
        const Played played = Finish(mPlayer);
        EXPECT_EQ(played.exitCode, 0) << played.text;
        std::istringstream lines(WithoutSummary(played.text));
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(line.starts_with("Playing: ") || line.starts_with("Visualizer: ")) << line;
        const auto times = PulseTimes(mPulseLog);
        const auto frames = FramesPlayed(played.text);
        ASSERT_TRUE(frames) << played.text;
        EXPECT_LE(*frames, times.size());
        EXPECT_GE(*frames + 1, times.size()); // each pulse was answered; the last may have been on its way
        ASSERT_GT(times.size(), 100u);
        PrintIntervals(times);
        std::printf("%d keys, %d tracks, %d visualizers\n", mPressed, Count(played.text, "Playing: "),
                    Count(played.text, "Visualizer: "));
    }

    const fs::path mPulseLog = mFolder / "pulses";
    const unsigned mSeed = Seed();
    std::mt19937 mRandom{ mSeed };
    int mPressed = 0;
    ChildProcess mPlayer;
    player::UniqueHandle mHost;
    std::optional<HostUsage> mUsage;
};

TEST_F(PlayingSoak, KeysAtRandomMissNoReplyAndTakeNothing) {
    std::printf("ORVANE_SEED=%u\n", mSeed);
    ASSERT_NO_FATAL_FAILURE(Start());
    UsageByTenths usage(*mUsage);
    const auto now = [] { return std::chrono::steady_clock::now(); };
    if (WantsLongForm()) {
        ASSERT_NO_FATAL_FAILURE(PressUntil(now() + kWarmingUp));
    }
    const auto tenthLasts = milliseconds(WantsLongForm() ? kLong : kShort) / kTenths;
    for (int tenth = 0; tenth < kTenths; ++tenth) {
        ASSERT_NO_FATAL_FAILURE(PressUntil(now() + tenthLasts)) << tenth;
        ASSERT_NO_FATAL_FAILURE(Sample(usage, tenth)) << tenth;
    }
    usage.Print();
    if (WantsLongForm()) usage.ExpectFlat(); // half a minute is all warming up
    EXPECT_TRUE(BothRun());
    ExpectGoodEnd();
}

} // namespace
} // namespace orvane::tests
