// The windows as they are made, shown and painted.
#include "orvane_plugin.h"
#include "support/IconDrawings.h"
#include "system/windows/WindowsTest.h"

#include <algorithm>
#include <cmath>

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

// The recorder tells what it got. Pictures of modules are the affair of the tests of the modules.
TEST_F(Look, SelectionShowsTheWindowAndActivatesTheModuleInTheProxyWindow) {
    EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(u"recorder").U8(0).Get()), "OK");
    EXPECT_TRUE(IsWindowVisible(mWindow));
    const auto activations = [&] { return CallsOf(Calls(), ModuleCall::Kind::Handler, ORVANE_MSG_ACTIVATE); };
    ASSERT_TRUE(WaitUntil([&] { return activations().size() == 1; }));
    EXPECT_EQ(activations()[0].module, "recorder");
    EXPECT_EQ(activations()[0].thread, mHost->MainThreadId());
    EXPECT_EQ(activations()[0].RecordAs<OrvaneActivateRecord>().window, mProxy);
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

// The strip's pixels as they must be: its icons on black, without the title. It is drawn at the size of the proxy
// window, which the system stretches over the whole window, each pixel of the screen between the four next to it.
class StripOracle {
public:
    StripOracle(long width, long height, const IconDrawing& zoomBox)
        : mStretchX(double(width - 8) / double(width))
        , mStretchY(double(height - 38) / double(height))
        , mRight(width)
        , mZoomBox(zoomBox) {}

    // The brightness at a pixel of the window.
    [[nodiscard]] double At(long x, long y) const {
        const double u = (double(x) + 0.5) * mStretchX - 0.5, v = (double(y) + 0.5) * mStretchY - 0.5;
        const long i = long(std::floor(u)), j = long(std::floor(v));
        const double a = u - double(i), b = v - double(j);
        return (Drawn(i, j) * (1 - a) + Drawn(i + 1, j) * a) * (1 - b) +
               (Drawn(i, j + 1) * (1 - a) + Drawn(i + 1, j + 1) * a) * b;
    }

    // How far a picture of the strip is from that at the worst, from column `from` on.
    [[nodiscard]] double WorstError(const Picture& strip, long from) const {
        double worst = 0;
        for (long y = 0; y < strip.height; ++y)
            for (long x = from; x < strip.width; ++x)
                worst = std::max(worst, std::abs(At(x, y) - strip.At(int(x), int(y)).Brightness()));
        return worst;
    }

private:
    [[nodiscard]] double Drawn(long x, long y) const {
        return IconAt(kCloseDrawing, &CloseValue, x - (mRight - 25 - 18), y - 9) +
               IconAt(mZoomBox, &BoxValue, x - (mRight - 25 - 64), y - 9);
    }

    static double IconAt(const IconDrawing& drawing, std::uint8_t (*value)(int, char), long x, long y) {
        if (x < 0 || x >= kIconColumns || y < 0 || y >= kIconRows) return 0;
        return value(int(y), drawing[y][x]);
    }

    double mStretchX, mStretchY;
    long mRight;
    const IconDrawing& mZoomBox;
};

constexpr double kRounding = 1.5; // of a pixel's value, by the system's own arithmetic

struct Bounds {
    long left = 10000, right = -1;

    [[nodiscard]] long Width() const { return right - left; }

    [[nodiscard]] double Middle() const { return double(left + right) / 2; }
};

// The columns of the title's ink.
constexpr int kInk = 100;
constexpr long kTitleEnd = 890; // the boxes lie further to the right

Bounds TitleColumns(const Picture& strip, long from = 0, long to = kTitleEnd) {
    Bounds bounds;
    for (long x = from; x < to; ++x)
        if (strip.CountBright({ x, 0, x + 1, 30 }, kInk) > 0) {
            bounds.left = std::min(bounds.left, x);
            bounds.right = std::max(bounds.right, x + 1);
        }
    return bounds;
}

TEST_F(Look, TheStripIsBlackWithBothIconsPixelForPixelAtTheirPlaces) {
    EXPECT_EQ(Ask("SWND"), "OK");
    const StripOracle oracle(1000, 800, kMaximizeDrawing);
    double worst = 0;
    EXPECT_TRUE(WaitUntil([&] { return (worst = oracle.WorstError(Strip(), 600)) <= kRounding; })) << worst;
    EXPECT_EQ(Strip().CountBright({ 0, 0, 400, 30 }, 0), 0) << "black left of the title";
}

TEST_F(Look, AMaximisedWindowsStripHasTheRestoreBox) {
    EXPECT_EQ(Ask("SWND"), "OK");
    PostMessageW(mWindow, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsZoomed(mWindow) != FALSE; }));
    const auto rect = RectOf(mWindow);
    const StripOracle oracle(rect[2] - rect[0], rect[3] - rect[1], kRestoreDrawing);
    double worst = 0;
    EXPECT_TRUE(WaitUntil([&] { return (worst = oracle.WorstError(Strip(), 1200)) <= kRounding; })) << worst;
}

// Of a layout from 8 to 1000 at the proxy window's width, which is stretched over 1000.
constexpr double kTitleMiddle = (8 + 1000) / 2.0 * 1000 / 992;
constexpr double kGlyphBearing = 3; // pixels, by which ink may lie off the middle of its own width

TEST_F(Look, TheTitleStandsInTheMiddleInWhite) {
    Show();
    Picture strip;
    Bounds own;
    EXPECT_TRUE(WaitUntil([&] {
        strip = Strip();
        own = TitleColumns(strip);
        return own.Width() > 0;
    }));
    EXPECT_NEAR(own.Middle(), kTitleMiddle, kGlyphBearing);
    EXPECT_GT(strip.CountBright({ own.left, 0, own.right, 30 }, 200), 0);
    for (const Pixel& pixel : strip.pixels) {
        ASSERT_EQ(pixel.red, pixel.green);
        ASSERT_EQ(pixel.green, pixel.blue);
    }

    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    Bounds tracks;
    EXPECT_TRUE(WaitUntil([&] {
        tracks = TitleColumns(Strip());
        return tracks.Width() > own.Width() + 10; // "Name - Artist" is the wider one
    }));
    EXPECT_NEAR(tracks.Middle(), kTitleMiddle, kGlyphBearing);
}

// The text breaks between words into the lines that follow, which lie below the strip.
TEST_F(Look, OfAnOverlongTitleTheStripShowsTheWholeWordsThatHaveRoom) {
    constexpr int kWordUnits = 25;
    constexpr double kEmWidth = 0.833 * 12, kSpaceWidth = 0.278 * 12; // of the font's "M" and " ", in pixels
    constexpr double kThreeWords = (3 * kWordUnits * kEmWidth + 2 * kSpaceWidth) * 1000 / 992;
    std::u16string name;
    for (int i = 0; i < 9; ++i) name += std::u16string(kWordUnits, u'M') + u' ';
    EXPECT_EQ(Ask(WireBuilder()
                      .Raw("STRT")
                      .Raw("FNIT")
                      .U32(0)
                      .U32(0)
                      .String(name)
                      .Zeros(300)
                      .Raw("MFUA")
                      .Zeros(44)
                      .Get()),
              "Start");
    EXPECT_EQ(Ask("SWND"), "OK");
    Bounds columns;
    EXPECT_TRUE(WaitUntil([&] {
        columns = TitleColumns(Strip(), 0, 915); // the first box begins there
        return columns.Width() > 500;
    }));
    EXPECT_NEAR(double(columns.Width()), kThreeWords, 2 * kGlyphBearing);
    EXPECT_NEAR(columns.Middle(), kTitleMiddle, kGlyphBearing);
}

TEST_F(Look, BehindABrokenPipeTheStripIsPaintedAgain) {
    Show();
    long own = 0;
    EXPECT_TRUE(WaitUntil([&] { return (own = TitleColumns(Strip()).Width()) > 0; }));
    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    EXPECT_TRUE(WaitUntil([&] { return TitleColumns(Strip()).Width() > own + 10; }));
    Reconnect();
    EXPECT_TRUE(WaitUntil([&] {
        const Bounds bounds = TitleColumns(Strip());
        return bounds.Width() > 0 && bounds.Width() <= own + 2;
    }));
    EXPECT_TRUE(WaitUntil([&] {
        return Strip().CountBright({ kTitleEnd, 9, 1000, 30 }, 50) > 36;
    })) << "the icons too";
}

// Hit tests of the real window, over every boundary. Points count from the window's corner.

struct Hit {
    long x, y;
    LRESULT code;
};

void ExpectHits(HWND window, std::initializer_list<Hit> hits) {
    const auto rect = RectOf(window);
    for (const Hit& hit : hits)
        EXPECT_EQ(SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(rect[0] + hit.x, rect[1] + hit.y)),
                  hit.code)
            << hit.x << ", " << hit.y;
}

TEST_F(Look, HitTestsOverEveryBoundaryOfTheWindow) {
    ExpectHits(mWindow, {
                            // the top border
                            { 0, 0, HTTOPLEFT },
                            { 3, 3, HTTOPLEFT },
                            { 4, 0, HTTOP },
                            { 995, 3, HTTOP },
                            { 996, 0, HTTOPRIGHT },
                            { 999, 3, HTTOPRIGHT },
                            // the strip, its edges included
                            { 0, 4, HTCAPTION },
                            { 999, 4, HTCAPTION },
                            { 3, 29, HTCAPTION },
                            { 500, 29, HTCAPTION },
                            { 500, 30, HTCLIENT },
                            { 3, 30, HTLEFT },
                            { 996, 30, HTRIGHT },
                            // the close box: 957 to 981, rows 10 to 26
                            { 956, 18, HTCAPTION },
                            { 957, 18, HTCLOSE },
                            { 981, 18, HTCLOSE },
                            { 982, 18, HTCAPTION },
                            { 970, 9, HTCAPTION },
                            { 970, 10, HTCLOSE },
                            { 970, 26, HTCLOSE },
                            { 970, 27, HTCAPTION },
                            // the maximise box: 911 to 935
                            { 910, 18, HTCAPTION },
                            { 911, 18, HTMAXBUTTON },
                            { 935, 18, HTMAXBUTTON },
                            { 936, 18, HTCAPTION },
                            { 920, 9, HTCAPTION },
                            { 920, 10, HTMAXBUTTON },
                            { 920, 26, HTMAXBUTTON },
                            { 920, 27, HTCAPTION },
                            // the other borders
                            { 0, 400, HTLEFT },
                            { 3, 795, HTLEFT },
                            { 4, 400, HTCLIENT },
                            { 995, 400, HTCLIENT },
                            { 996, 795, HTRIGHT },
                            { 999, 400, HTRIGHT },
                            { 0, 796, HTBOTTOMLEFT },
                            { 3, 799, HTBOTTOMLEFT },
                            { 4, 795, HTCLIENT },
                            { 4, 796, HTBOTTOM },
                            { 995, 799, HTBOTTOM },
                            { 996, 796, HTBOTTOMRIGHT },
                            { 999, 799, HTBOTTOMRIGHT },
                        });
}

TEST_F(Look, InFullScreenEveryPointIsTheClientAreas) {
    EXPECT_EQ(Ask("NTFS"), "OK");
    const auto screen = ScreenRect();
    const long right = screen[2] - 1, bottom = screen[3] - 1;
    ExpectHits(mWindow, { { 0, 0, HTCLIENT },
                          { right, 0, HTCLIENT },
                          { 500, 15, HTCLIENT },
                          { right - 30, 18, HTCLIENT },
                          { right - 76, 18, HTCLIENT },
                          { 0, 400, HTCLIENT },
                          { right, 400, HTCLIENT },
                          { 0, bottom, HTCLIENT },
                          { 500, bottom, HTCLIENT },
                          { right, bottom, HTCLIENT } });
    EXPECT_EQ(Ask("XTFS"), "OK");
    ExpectHits(mWindow, { { 0, 0, HTTOPLEFT } });
}

} // namespace
} // namespace orvane::tests
