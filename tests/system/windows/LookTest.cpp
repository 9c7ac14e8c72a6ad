// The windows as they are made, shown and painted.
#include "system/windows/WindowsTest.h"

namespace orvane::tests {
namespace {

using Look = WindowsTest;

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

TEST_F(Look, TheWindowsHaveTheirClassesStylesSizesAndPlaces) {
    EXPECT_EQ(ClassOf(mWindow), L"ORVANE OOPWIND");
    EXPECT_EQ(GetWindowLongW(mWindow, GWL_EXSTYLE), 128);
    EXPECT_EQ(DWORD(GetWindowLongW(mWindow, GWL_STYLE)) & ~DWORD(WS_CLIPSIBLINGS), 0x80000000u);
    const long left = (ScreenRect()[2] - 1000) / 2, top = (ScreenRect()[3] - 800) / 2;
    EXPECT_EQ(RectOf(mWindow), (std::vector<long>{ left, top, left + 1000, top + 800 }));
    EXPECT_EQ(TitleOf(mWindow), L"Orvane");

    EXPECT_EQ(ClassOf(mProxy), L"ORVANE PROXY");
    EXPECT_EQ(DWORD(GetWindowLongW(mProxy, GWL_STYLE)) & ~DWORD(WS_CLIPSIBLINGS), 0x50000000u);
    EXPECT_EQ(RectInParent(mProxy), (std::vector<long>{ 4, 34, 996, 796 }));
    EXPECT_EQ(TitleOf(mProxy), L"Orvane Visualizer");
    EXPECT_EQ(FindWindowExW(nullptr, mWindow, L"ORVANE OOPWIND", nullptr), nullptr) << "there is one";
}

TEST_F(Look, TheWindowIsShownAndHiddenByRequest) {
    EXPECT_FALSE(IsWindowVisible(mWindow)) << "not before it is asked for";
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_TRUE(IsWindowVisible(mWindow));
    EXPECT_EQ(Ask("HWND"), "OK");
    EXPECT_FALSE(IsWindowVisible(mWindow));
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_TRUE(IsWindowVisible(mWindow));
}

TEST_F(Look, SelectionShowsTheWindowAndTheModuleDrawsInIt) {
    SelectExample();
    EXPECT_TRUE(IsWindowVisible(mWindow));
    RECT proxy = {};
    GetWindowRect(mProxy, &proxy);
    EXPECT_TRUE(WaitUntil([&] {
        EXPECT_EQ(Pulse(), std::string(4, '\0'));
        const Picture picture = TakePicture(proxy);
        return picture.CountBright({ 0, 0, picture.width, picture.height }, 150) > 500;
    })) << "no trace came up in the proxy window";
}

TEST_F(Look, ActivationShowsNoWindowAndTakesTheModulesName) {
    EXPECT_EQ(Ask(ActivateRequest(kExampleName)), "PRXY");
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == L"Orvane Oscilloscope"; }));
    EXPECT_FALSE(IsWindowVisible(mWindow));
    EXPECT_EQ(Ask(ActivateRequest(u"Nobody's")), "FAIL");
}

TEST_F(Look, ATrackMakesTheTitleAndTheNextClientFindsTheFirstOneAgain) {
    SelectExample();
    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == L"Name - Artist"; }));
    Reconnect();
    EXPECT_EQ(TitleOf(mWindow), L"Orvane");
}

// The strip is drawn at the size of the proxy window, 992 by 762. Where a system stretches that over the
// window's 1000 by 800, all lies a few pixels further to the right and below.
constexpr long kStretch = 8;

struct Bounds {
    long left = 10000, right = -1;
};

Bounds BrightColumns(const Picture& strip, long from, long to, int least) {
    Bounds bounds;
    for (long x = from; x < to; ++x)
        if (strip.CountBright({ x, 0, x + 1, 30 }, least) > 0) {
            bounds.left = std::min(bounds.left, x);
            bounds.right = std::max(bounds.right, x + 1);
        }
    return bounds;
}

void ExpectWithin(const Bounds& bounds, long left, long right) {
    EXPECT_GE(bounds.left, left - 1);
    EXPECT_LE(bounds.left, left + 1 + kStretch);
    EXPECT_GE(bounds.right, right - 1);
    EXPECT_LE(bounds.right, right + 1 + kStretch);
}

TEST_F(Look, TheStripIsBlackWithBothIconsAtTheirPlaces) {
    Show();
    const Picture strip = Strip();
    constexpr int kDark = 40;
    EXPECT_EQ(strip.CountBright({ 0, 0, 250, 30 }, kDark), 0);
    EXPECT_EQ(strip.CountBright({ 750, 0, 900, 30 }, kDark), 0);
    ExpectWithin(BrightColumns(strip, 930, 1000, kDark), 957 + 9,
                 957 + 17); // columns 9 to 16 of the close icon
    ExpectWithin(BrightColumns(strip, 890, 940, kDark), 911 + 8, 911 + 18); // columns 8 to 17 of the other
    EXPECT_EQ(strip.CountBright({ 890, 0, 1000, 9 }, kDark), 0) << "nothing above the icons";
    EXPECT_GE(strip.CountBright({ 890, 9, 940, 30 }, 100), 36) << "a box of 10 by 10 has 36 pixels around it";
}

TEST_F(Look, TheTitleStandsInTheMiddleInWhite) {
    Show();
    const auto middle = [&] {
        const Bounds bounds = BrightColumns(Strip(), 100, 880, 128);
        return (bounds.left + bounds.right) / 2;
    };
    EXPECT_NEAR(double(middle()), 504, double(kStretch)); // of 8 to 1000
    EXPECT_GT(Strip().CountBright({ 300, 0, 700, 30 }, 230), 5);

    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    // "Name - Artist" is wider than "Orvane".
    EXPECT_TRUE(WaitUntil([&] {
        const Bounds bounds = BrightColumns(Strip(), 100, 880, 128);
        return bounds.right - bounds.left > 60;
    }));
    EXPECT_NEAR(double(middle()), 504, double(kStretch));
}

TEST_F(Look, AnOverlongTitleStaysClearOfTheStripsLeftEdgeAndEndsInASign) {
    EXPECT_EQ(Ask(WireBuilder()
                      .Raw("STRT")
                      .Raw("FNIT")
                      .U32(0)
                      .U32(0)
                      .String(std::u16string(120, u'M') + u" " + std::u16string(100, u'M'))
                      .Zeros(300)
                      .Raw("MFUA")
                      .Zeros(44)
                      .Get()),
              "Start");
    Show();
    EXPECT_EQ(Strip().CountBright({ 0, 0, 8, 30 }, 60), 0);
}

TEST_F(Look, BehindABrokenPipeTheStripIsPaintedAgain) {
    Show();
    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == L"Name - Artist"; }));
    Reconnect();
    EXPECT_TRUE(WaitUntil([&] {
        const Bounds bounds = BrightColumns(Strip(), 100, 880, 128);
        return bounds.right > bounds.left && bounds.right - bounds.left < 60; // "Orvane" again
    }));
    EXPECT_GE(Strip().CountBright({ 890, 9, 940, 30 }, 100), 36);
}

} // namespace
} // namespace orvane::tests
