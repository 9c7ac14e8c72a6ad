// The example module, loaded for real: a played host with a window, a synthesized sound, and a look at the
// pixels that come of it.
#include "support/PlayedHost.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <future>
#include <numbers>
#include <string_view>
#include <vector>

namespace orvane::tests {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 560;
constexpr COLORREF kUnpainted = RGB(0, 255, 0); // the window's own background, in no picture of the module
constexpr DWORD kFrame = 16;                    // ms
constexpr int kFramesToSettle = 60;             // everything soft has come up by then
constexpr auto kPatience = std::chrono::seconds(60);

struct Pixel {
    std::uint8_t blue, green, red, unused;
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    [[nodiscard]] Pixel At(int x, int y) const { return pixels[std::size_t(y * width + x)]; }

    // How many pixels of the rows from `top` to `bottom`, shares of the height, are as `wanted` says.
    template <class Wanted>
    [[nodiscard]] int Count(double top, double bottom, Wanted wanted) const {
        int count = 0;
        for (int y = int(top * height); y < int(bottom * height); ++y)
            for (int x = 0; x < width; ++x) count += wanted(At(x, y)) ? 1 : 0;
        return count;
    }

    template <class Wanted>
    [[nodiscard]] int Count(Wanted wanted) const {
        return Count(0.0, 1.0, wanted);
    }

    // The topmost and bottommost rows with such a pixel; their distance tells how far a trace swings.
    template <class Wanted>
    [[nodiscard]] int Swing(Wanted wanted) const {
        int first = height, last = -1;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                if (!wanted(At(x, y))) continue;
                first = std::min(first, y);
                last = std::max(last, y);
            }
        return std::max(0, last - first);
    }
};

bool IsLeftTrace(Pixel p) {
    return p.green > 150 && p.blue > 180 && p.red + 60 < p.green;
}

bool IsRightTrace(Pixel p) {
    return p.red > 180 && p.green + 80 < p.red && p.blue > 90;
}

bool IsText(Pixel p) {
    return p.red > 200 && p.green > 200 && p.blue > 200;
}

bool IsLit(Pixel p) {
    return p.red > 90 || p.green > 90 || p.blue > 90;
}

bool IsUnpainted(Pixel p) {
    return RGB(p.red, p.green, p.blue) == kUnpainted;
}

// The upper part holds the text, then come two lanes, then the bars.
constexpr double kTextEnd = 0.17;
constexpr double kBarsBegin = 0.70;

class Window {
public:
    Window() {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = L"Example Test";
        windowClass.hbrBackground = mBrush;
        RegisterClassW(&windowClass); // fails from the second test on, which is as good
        mWindow = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, windowClass.lpszClassName, L"", WS_POPUP,
                                  20, 20, kWidth, kHeight, nullptr, nullptr, nullptr, nullptr);
        ShowWindow(mWindow, SW_SHOWNOACTIVATE);
        UpdateWindow(mWindow);
    }

    ~Window() { DestroyWindow(mWindow); }

    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    operator HWND() const { return mWindow; }

    void Resize(int width, int height) {
        SetWindowPos(mWindow, nullptr, 20, 20, width, height, SWP_NOZORDER);
    }

    void Blank() {
        RECT client;
        GetClientRect(mWindow, &client);
        const HDC context = GetDC(mWindow);
        const HBRUSH brush = CreateSolidBrush(kUnpainted);
        FillRect(context, &client, brush);
        DeleteObject(brush);
        ReleaseDC(mWindow, context);
    }

    // What stands in the window.
    [[nodiscard]] Picture Read() const {
        RECT client;
        GetClientRect(mWindow, &client);
        Picture picture{ client.right, client.bottom, {} };
        picture.pixels.resize(std::size_t(client.right) * std::size_t(client.bottom));
        BITMAPINFO info = {};
        info.bmiHeader = {
            sizeof(info.bmiHeader), client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0
        };
        const HDC window = GetDC(mWindow);
        const HDC memory = CreateCompatibleDC(window);
        const HBITMAP bitmap = CreateCompatibleBitmap(window, client.right, client.bottom);
        const HGDIOBJ old = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, client.right, client.bottom, window, 0, 0, SRCCOPY);
        SelectObject(memory, old);
        GetDIBits(memory, bitmap, 0, UINT(client.bottom), picture.pixels.data(), &info, DIB_RGB_COLORS);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(mWindow, window);
        return picture;
    }

private:
    HBRUSH mBrush = CreateSolidBrush(kUnpainted);
    HWND mWindow = nullptr;
};

// A sine of `cycles` over the block on both channels, and one strong band in the spectrum.
OrvaneRenderData Tone(double cycles, double amplitude, int loudBin = 40) {
    OrvaneRenderData sound = {};
    sound.waveformChannels = 2;
    sound.spectrumChannels = 2;
    for (int channel = 0; channel < ORVANE_CHANNELS; ++channel) {
        for (int i = 0; i < ORVANE_SAMPLES; ++i) {
            const double angle = 2 * std::numbers::pi * cycles * i / ORVANE_SAMPLES;
            sound.waveform[channel][i] =
                std::uint8_t(std::lround(ORVANE_SILENCE + amplitude * std::sin(angle)));
        }
        for (int bin = loudBin; bin < loudBin + 8; ++bin) sound.spectrum[channel][bin] = 250;
    }
    return sound;
}

void Assign(OrvaneString& string, std::u16string_view text) {
    string.count = std::uint16_t(text.size());
    std::copy(text.begin(), text.end(), string.units);
}

OrvaneTrack SampleTrack() {
    OrvaneTrack track = {};
    Assign(track.name, u"Night Train to Nowhere");
    Assign(track.artist, u"The Paper Lanterns");
    return track;
}

class ExamplePlugin : public testing::Test {
protected:
    ExamplePlugin()
        : mHost(ProgramFolder() / "example-plugin.dll") {
        EXPECT_EQ(mHost.Enter(), ORVANE_OK);
    }

    ~ExamplePlugin() override { mHost.Send(ORVANE_MSG_DEACTIVATE); }

    void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }

    void PlayFor(int frames, const OrvaneRenderData& sound) {
        for (int i = 0; i < frames; ++i) {
            mHost.Pulse(sound, ++mStamp);
            Pump();
            Sleep(kFrame);
        }
    }

    PlayedHost mHost;
    Window mWindow;
    std::uint32_t mStamp = 0;
};

TEST_F(ExamplePlugin, RegistersAsOrvaneOscilloscopeAndAsksForIdles) {
    ASSERT_EQ(mHost.mRegistered.size(), 1u);
    const OrvaneRegisterRecord record = mHost.mRegistered[0];
    const OrvaneString name = record.name;
    EXPECT_EQ(std::u16string(name.units, name.units + name.count), u"Orvane Oscilloscope");
    EXPECT_EQ(record.majorVersion, 10u);
    EXPECT_EQ(record.minorVersion, 9u);
    EXPECT_EQ(record.options, 8u);
}

TEST_F(ExamplePlugin, ExportsTheEntryAndNothingElse) {
    const auto* base = reinterpret_cast<const std::uint8_t*>(GetModuleHandleW(L"example-plugin.dll"));
    ASSERT_NE(base, nullptr);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* image = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& place = image->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    ASSERT_EQ(exports->NumberOfNames, 1u);
    const auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    EXPECT_STREQ(reinterpret_cast<const char*>(base + names[0]), "OrvanePluginMain");
}

TEST_F(ExamplePlugin, ActivationPaintsEveryPixel) {
    EXPECT_EQ(mHost.Activate(mWindow), ORVANE_OK);
    EXPECT_EQ(mWindow.Read().Count(IsUnpainted), 0);
}

TEST_F(ExamplePlugin, ShowsBothTracesTheBarsAndTheTitle) {
    mHost.Activate(mWindow);
    const Picture before = mWindow.Read();
    EXPECT_EQ(before.Count(0, kTextEnd, IsText), 0);
    mHost.Play(SampleTrack());
    PlayFor(kFramesToSettle, Tone(6, 100));
    const Picture picture = mWindow.Read();
    EXPECT_GT(picture.Count(kTextEnd, kBarsBegin, IsLeftTrace), kWidth / 2);
    EXPECT_GT(picture.Count(kTextEnd, kBarsBegin, IsRightTrace), kWidth / 2);
    EXPECT_GT(picture.Count(kBarsBegin, 1, IsLit), 500);
    EXPECT_GT(picture.Count(0, kTextEnd, IsText), 300);
}

TEST_F(ExamplePlugin, TheTraceFollowsTheAmplitude) {
    mHost.Activate(mWindow);
    PlayFor(kFramesToSettle, Tone(6, 110));
    const int loud = mWindow.Read().Swing(IsLeftTrace);
    PlayFor(kFramesToSettle, Tone(6, 20));
    const int quiet = mWindow.Read().Swing(IsLeftTrace);
    PlayFor(kFramesToSettle, Tone(6, 0));
    const int silent = mWindow.Read().Swing(IsLeftTrace);
    EXPECT_GT(loud, 3 * quiet);
    EXPECT_GT(quiet, silent);
    EXPECT_LT(silent, 8);
}

TEST_F(ExamplePlugin, AnotherSoundIsAnotherPictureAndTheSameSoundStandsStill) {
    mHost.Activate(mWindow);
    const auto differing = [](const Picture& a, const Picture& b) {
        int count = 0;
        for (std::size_t i = 0; i < a.pixels.size(); ++i)
            count += std::abs(a.pixels[i].green - b.pixels[i].green) > 40 ? 1 : 0;
        return count;
    };
    PlayFor(2 * kFramesToSettle, Tone(6, 90));
    const Picture first = mWindow.Read();
    PlayFor(10, Tone(6, 90));
    const Picture same = mWindow.Read();
    PlayFor(10, Tone(9, 90));
    const Picture other = mWindow.Read();
    EXPECT_LT(differing(first, same), 20);
    EXPECT_GT(differing(same, other), 1000);
}

TEST_F(ExamplePlugin, ALoudHighBandStandsFurtherRightThanALowOne) {
    mHost.Activate(mWindow);
    const auto middleOfBars = [&](int loudBin) {
        PlayFor(2 * kFramesToSettle, Tone(6, 0, loudBin));
        const Picture picture = mWindow.Read();
        double sum = 0, count = 0;
        for (int y = int(kBarsBegin * picture.height); y < int(0.85 * picture.height); ++y)
            for (int x = 0; x < picture.width; ++x)
                if (IsLit(picture.At(x, y))) sum += x, ++count;
        return count > 0 ? sum / count : -1.0;
    };
    const double low = middleOfBars(4), high = middleOfBars(200);
    EXPECT_GT(low, 0);
    EXPECT_GT(high, low + kWidth / 4.0);
}

TEST_F(ExamplePlugin, AStampOfZeroLeavesTheSoundAlone) {
    mHost.Activate(mWindow);
    PlayFor(kFramesToSettle, Tone(6, 100));
    const int before = mWindow.Read().Swing(IsLeftTrace);
    const OrvaneRenderData silence = Tone(1, 0);
    for (int i = 0; i < kFramesToSettle; ++i) {
        mHost.Pulse(silence, 0);
        Sleep(kFrame);
    }
    EXPECT_NEAR(mWindow.Read().Swing(IsLeftTrace), before, 4);
}

TEST_F(ExamplePlugin, AResizedWindowIsPaintedInFull) {
    mHost.Activate(mWindow);
    mHost.Play(SampleTrack());
    for (const auto& [width, height] : { std::pair(1100, 700), std::pair(300, 220), std::pair(40, 12) }) {
        PlayFor(5, Tone(6, 100));
        mWindow.Resize(width, height);
        Pump();
        mHost.Send(ORVANE_MSG_FRAME_CHANGED);
        const Picture picture = mWindow.Read();
        EXPECT_EQ(picture.width, width);
        EXPECT_EQ(picture.Count(IsUnpainted), 0) << width << " x " << height;
    }
    mWindow.Resize(0, 0);
    mHost.Send(ORVANE_MSG_FRAME_CHANGED);
    mWindow.Resize(kWidth, kHeight);
    mHost.Send(ORVANE_MSG_FRAME_CHANGED);
    PlayFor(kFramesToSettle, Tone(6, 100));
    EXPECT_GT(mWindow.Read().Count(kTextEnd, kBarsBegin, IsLeftTrace), kWidth / 2);
}

TEST_F(ExamplePlugin, AfterAStopTheTraceSinksWithTheIdlesUntilNothingMoves) {
    mHost.Activate(mWindow);
    mHost.Play(SampleTrack());
    PlayFor(kFramesToSettle, Tone(6, 110));
    EXPECT_GT(mWindow.Read().Swing(IsLeftTrace), 40);
    mHost.Send(ORVANE_MSG_STOP);
    for (int i = 0; i < 5 * kFramesToSettle; ++i) {
        mHost.Send(ORVANE_MSG_IDLE);
        Sleep(kFrame);
    }
    const Picture sunk = mWindow.Read();
    EXPECT_LT(sunk.Swing(IsLeftTrace), 8);
    EXPECT_EQ(sunk.Count(kBarsBegin, 0.85, IsLit), 0);
    mWindow.Blank();
    mHost.Send(ORVANE_MSG_IDLE);
    EXPECT_EQ(mWindow.Read().Count(IsUnpainted), kWidth * kHeight) << "at rest an idle draws nothing";
}

TEST_F(ExamplePlugin, DrawsNothingBeforeActivationAndAfterDeactivation) {
    const auto stays = [&] {
        mWindow.Blank();
        PlayFor(3, Tone(6, 100));
        mHost.Play(SampleTrack());
        mHost.Send(ORVANE_MSG_DRAW);
        mHost.Send(ORVANE_MSG_STOP);
        mHost.Send(ORVANE_MSG_FRAME_CHANGED);
        mHost.Send(ORVANE_MSG_IDLE);
        return mWindow.Read().Count(IsUnpainted) == kWidth * kHeight;
    };
    EXPECT_TRUE(stays());
    mHost.Activate(mWindow);
    EXPECT_EQ(mHost.Send(ORVANE_MSG_DEACTIVATE), ORVANE_OK);
    EXPECT_TRUE(stays());
    mHost.Activate(mWindow);
    EXPECT_EQ(mWindow.Read().Count(IsUnpainted), 0);
}

TEST_F(ExamplePlugin, AnswersUnknownMessagesAsUnimplemented) {
    EXPECT_EQ(mHost.Send(0x7A7A7A7A), ORVANE_UNIMPLEMENTED);
    EXPECT_EQ(mHost.Send(ORVANE_MSG_ARTWORK), ORVANE_UNIMPLEMENTED);
}

TEST_F(ExamplePlugin, DrawsOnTwoThreadsAtOnceWhileTheWindowIsResized) {
    mHost.Activate(mWindow);
    mHost.Play(SampleTrack());
    std::atomic<bool> goesOn = true;
    auto service = std::async(std::launch::async, [&] {
        const OrvaneRenderData sound = Tone(6, 100);
        int pulses = 0;
        for (; goesOn || pulses < 20; ++pulses) mHost.Pulse(sound, std::uint32_t(pulses) + 1);
        return pulses;
    });
    for (int i = 0; i < 40; ++i) {
        mWindow.Resize(kWidth - 200 + 10 * (i % 20), kHeight - 5 * (i % 20));
        mHost.Send(ORVANE_MSG_FRAME_CHANGED);
        mHost.Send(ORVANE_MSG_DRAW);
        Pump();
    }
    mWindow.Resize(kWidth, kHeight);
    mHost.Send(ORVANE_MSG_FRAME_CHANGED);
    goesOn = false;
    EXPECT_GE(service.get(), 20);
    PlayFor(kFramesToSettle, Tone(6, 100));
    EXPECT_GT(mWindow.Read().Count(kTextEnd, kBarsBegin, IsLeftTrace), kWidth / 2);
}

// The window's own thread may be waiting for the service thread: it doesn't pump here until all is drawn.
TEST_F(ExamplePlugin, APulseNeverWaitsForTheThreadOfTheWindow) {
    mHost.Activate(mWindow);
    auto service = std::async(std::launch::async, [&] {
        const OrvaneRenderData sound = Tone(6, 100);
        for (std::uint32_t i = 1; i <= 20; ++i) mHost.Pulse(sound, i);
    });
    const bool done = service.wait_for(kPatience) == std::future_status::ready;
    EXPECT_TRUE(done);
    while (service.wait_for(std::chrono::milliseconds(kFrame)) != std::future_status::ready) Pump();
}

} // namespace
} // namespace orvane::tests
