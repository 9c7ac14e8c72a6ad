// The panels of a visualizer that runs in the real host, seen on the screen. The background is black but for a
// green bar that wanders across it, so what is red or blue belongs to a panel.
#include "system/windows/BuiltInsTest.h"
#include "unit/render/draw2d/ImageFiles.h"

#include <algorithm>
#include <chrono>

namespace orvane::tests {
namespace {

using render::tests::Encode;
using render::tests::MakePng;

class Panels : public BuiltInsTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(BuiltInsTest::SetUp());
        Select(kFirstName);
        Pulse(); // the first frame, from which the visualizer's time counts
    }

    // Sizes the window so that the view has that size.
    void SizeView(int width, int height) {
        SetWindowPos(mWindow, nullptr, 0, 0, width + 8, height + 38,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_TRUE(WaitUntil([&] {
            const auto rect = RectOf(mProxy);
            return rect[2] - rect[0] == width && rect[3] - rect[1] == height;
        }));
    }

    void SendArtwork(const Bytes& image) {
        EXPECT_EQ(Ask(WireBuilder().Raw("AR13").Raw(AsText(image)).Get()), "OK");
    }

    // How many pixels of a part of the view, measured from its left edge and its top, are white enough to be text.
    // The green bar's aren't.
    [[nodiscard]] int TextIn(const RECT& part) const {
        constexpr int kWhite = 120;
        const Picture view = View();
        int count = 0;
        for (long y = part.top; y < part.bottom; ++y)
            for (long x = part.left; x < part.right; ++x) {
                const Pixel pixel = view.At(int(x), int(y));
                count += pixel.red > kWhite && pixel.blue > kWhite ? 1 : 0;
            }
        return count;
    }

    [[nodiscard]] bool TextComes(const RECT& part, int least) {
        return PulseUntil([&] { return TextIn(part) >= least; });
    }

    [[nodiscard]] bool TextGoes(const RECT& part) {
        return PulseUntil([&] { return TextIn(part) == 0; });
    }

    [[nodiscard]] Pixel ArtworkCentre() const {
        const Picture view = View();
        return view.At(20 + 32, view.height - 20 - 32);
    }
};

// Enough pixels for a word of 12-pixel text, and for several.
constexpr int kWord = 10, kWords = 60;

Bytes RedPng() {
    Bytes pixels;
    for (int i = 0; i < 8 * 8; ++i) pixels.insert(pixels.end(), { 255, 0, 0, 255 });
    return MakePng(8, 8, pixels);
}

// In the view of 992 by 762: margin 20, a row every 20 pixels, from 2 below the texture's top.
RECT TrackRow(long left, long bottomMargin, int row) {
    const long top = 762 - bottomMargin - 64 + 2 + 20 * row;
    return { left, top, left + 512, top + 20 };
}

TEST_F(Panels, TheTrackStandsInTheLowerLeftCornerInThreeRows) {
    StartTrack(u"Song", u"Singer", u"Record");
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(TextComes(TrackRow(20, 20, row), kWord)) << row;
    EXPECT_EQ(TextIn({ 0, 0, 992, 678 }), 0) << "nothing above the panel";
    EXPECT_EQ(TextIn({ 0, 0, 20, 762 }), 0) << "nothing left of it";
}

TEST_F(Panels, ArtworkPushesTheTextToItsRight) {
    StartTrack(u"Song", u"Singer", u"Record");
    SendArtwork(RedPng());
    EXPECT_TRUE(PulseUntil([&] { return ArtworkCentre().red > 250; }));
    EXPECT_EQ(ArtworkCentre().blue, 0);
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(TextComes(TrackRow(94, 21, row), kWord)) << row;
    EXPECT_EQ(TextIn({ 0, 0, 94, 762 }), 0);
    // The square: 64 by 64 pixels, 20 from the left edge and the bottom.
    const Picture view = View();
    for (const auto& [x, y] : { std::pair{ 20, 678 }, { 83, 678 }, { 20, 741 }, { 83, 741 } })
        EXPECT_GT(view.At(x, y).red, 200) << x << ", " << y;
    for (const auto& [x, y] : { std::pair{ 19, 700 }, { 84, 700 }, { 50, 677 }, { 50, 742 } })
        EXPECT_LT(view.At(x, y).red, 50) << x << ", " << y;
}

TEST_F(Panels, ArtworkMayBeJpegAndABrokenFileTakesItAway) {
    StartTrack(u"Song", u"Singer", u"Record");
    SendArtwork(Encode(GUID_ContainerFormatJpeg, 40, 30, 0, 0, 255));
    EXPECT_TRUE(PulseUntil([&] { return ArtworkCentre().blue > 240; }));
    EXPECT_LT(ArtworkCentre().red, 20);

    Bytes broken = RedPng();
    broken.resize(broken.size() / 2);
    SendArtwork(broken);
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(TextComes(TrackRow(20, 20, row), kWord)) << row;
    SendArtwork({});
    EXPECT_TRUE(TextComes(TrackRow(20, 20, 0), kWord));
}

// Both the fade of the track, from 10 to 20 seconds, and the end of the help, at 20, as they are lived through.
TEST_F(Panels, TheTrackFadesBetweenTenAndTwentySecondsAndTheHelpGoesByItself) {
    using Clock = std::chrono::steady_clock;
    constexpr RECT kHelp = { 26, 20, 26 + 256, 20 + 183 };
    // The fade counts from the last frame before the track, which lies between these two moments.
    const auto earliest = Clock::now();
    Pulse();
    StartTrack(u"Song", u"Singer", u"Record");
    const auto latest = Clock::now();
    SendArtwork(RedPng());
    SendKey(u'h');
    const auto secondsSince = [](Clock::time_point moment) {
        return std::chrono::duration<double>(Clock::now() - moment).count();
    };
    const auto redOf = [](double age) { return 255 * std::clamp(1 - (age - 10) * 0.1, 0.0, 1.0); };
    // The artwork's red is 255 times the panel's strength: that of an age between the two that the clock allows.
    const auto expectRedAt = [&](double time) {
        constexpr double kRounding = 2;
        while (secondsSince(latest) < time) Pulse();
        const double youngest = secondsSince(latest);
        Pulse();
        const double red = ArtworkCentre().red;
        EXPECT_LE(red, redOf(youngest) + kRounding) << time;
        EXPECT_GE(red, redOf(secondsSince(earliest)) - kRounding) << time;
    };
    expectRedAt(2);
    EXPECT_GT(TextIn(kHelp), kWords);
    expectRedAt(9);
    expectRedAt(15);
    EXPECT_GT(TextIn(kHelp), kWords);
    expectRedAt(18);
    EXPECT_TRUE(PulseUntil([&] { return ArtworkCentre().red == 0; }));
    EXPECT_TRUE(TextGoes(kHelp));
    EXPECT_GE(secondsSince(earliest), 20);
}

TEST_F(Panels, HelpConfigAndCounterStandWhereTheyBelong) {
    SendKey(u'h');
    SendKey(u'c');
    SendKey(u'f');
    EXPECT_TRUE(TextComes({ 26, 20, 282, 203 }, kWords)) << "help: three rows of two columns";
    EXPECT_TRUE(TextComes({ 772, 30, 972, 91 }, 3 * kWord)) << "config: three lines";
    EXPECT_TRUE(TextComes({ 887, 762 - 50, 968, 762 - 30 }, kWord)) << "counter";
    EXPECT_EQ(TextIn({ 300, 0, 770, 762 }), 0);
    EXPECT_EQ(TextIn({ 0, 210, 880, 762 }), 0);
    EXPECT_EQ(TextIn({ 973, 0, 992, 762 }), 0) << "the config panel keeps 20 pixels from the right edge";
    SendKey(u'h');
    EXPECT_TRUE(TextGoes({ 26, 20, 282, 203 }));
    SendKey(u'c');
    EXPECT_TRUE(TextGoes({ 772, 30, 972, 91 }));
    SendKey(u'f');
    EXPECT_TRUE(TextGoes({ 880, 700, 992, 762 }));
}

TEST_F(Panels, InAWideViewHelpAndCounterStandFurtherFromTheEdges) {
    SizeView(1200, 400);
    SendKey(u'h');
    SendKey(u'f');
    EXPECT_TRUE(TextComes({ 60, 20, 60 + 256, 203 }, kWords));
    EXPECT_EQ(TextIn({ 0, 0, 60, 400 }), 0) << "20 / 400 of 1200 pixels";
    EXPECT_TRUE(TextComes({ 960, 350, 1040, 370 }, kWord)) << "1 - 80 / 400 of 1200 pixels";
    EXPECT_EQ(TextIn({ 1040, 0, 1200, 400 }), 0);
}

TEST_F(Panels, InATallViewHelpAndCounterStandNearerToTheEdges) {
    SizeView(400, 700);
    SendKey(u'h');
    SendKey(u'f');
    EXPECT_TRUE(TextComes({ 11, 20, 11 + 256, 203 }, kWords));
    EXPECT_EQ(TextIn({ 0, 0, 11, 700 }), 0) << "20 / 700 of 400 pixels";
    EXPECT_TRUE(TextComes({ 354, 650, 400, 670 }, 1)) << "1 - 80 / 700 of 400 pixels, and over the edge";
    EXPECT_EQ(TextIn({ 300, 600, 354, 700 }), 0);
}

TEST_F(Panels, TheBackgroundMovesUnderThem) {
    const auto bar = [&] {
        const Picture view = View();
        long sum = 0, count = 0;
        for (int x = 0; x < view.width; ++x)
            if (view.At(x, 400).green > 200) sum += x, ++count;
        return count ? double(sum) / double(count) : -1;
    };
    Pulse();
    const double before = bar();
    EXPECT_TRUE(PulseUntil([&] { return std::abs(bar() - before) > 20; }));
}

} // namespace
} // namespace orvane::tests
