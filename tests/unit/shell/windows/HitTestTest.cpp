// Hit tests, over every boundary. The window is 1000 by 800 at (100, 50) in the tables.
#include "shell/windows/HitTest.h"

#include "unit/shell/windows/WindowProcedures.h"

namespace orvane::tests {
namespace {

constexpr long kLeft = 100, kTop = 50, kRight = 1100, kBottom = 850; // right and bottom are outside
constexpr long kClientRight = 1000;
constexpr LRESULT kNowhere = -999; // where the platform decides

LRESULT At(long x, long y) {
    return shell::HitTest({ x, y }, { kLeft, kTop, kRight, kBottom }, kClientRight).value_or(kNowhere);
}

struct Row {
    long x, y;
    LRESULT hit;
};

void Expect(std::initializer_list<Row> rows) {
    for (const auto& row : rows) EXPECT_EQ(At(row.x, row.y), row.hit) << row.x << ", " << row.y;
}

TEST(HitTest, TheTopBorderIsFourPixelsAndHasItsCorners) {
    Expect({ { 100, 50, HTTOPLEFT },
             { 103, 53, HTTOPLEFT },
             { 104, 50, HTTOP },
             { 600, 53, HTTOP },
             { 1095, 53, HTTOP },
             { 1096, 50, HTTOPRIGHT },
             { 1099, 53, HTTOPRIGHT },
             { 600, 54, HTCAPTION },   // just below
             { 600, 49, kNowhere } }); // just above
}

TEST(HitTest, OnTheTopBorderAndTheLeftBorderIsTheTopLeftCorner) {
    EXPECT_EQ(At(100, 50), HTTOPLEFT);
}

TEST(HitTest, InTheStripOnTheLeftBorderIsCaption) {
    Expect(
        { { 100, 54, HTCAPTION }, { 103, 79, HTCAPTION }, { 1096, 54, HTCAPTION }, { 1099, 79, HTCAPTION } });
}

TEST(HitTest, TopPlusThirtyIsNoLongerInTheStrip) {
    Expect({ { 600, 79, HTCAPTION }, { 600, 80, kNowhere }, { 100, 80, HTLEFT }, { 1099, 80, HTRIGHT } });
}

TEST(HitTest, TheCloseBoxEndsBeforeClientRightMinus18AndBeginsAtClientRightMinus43) {
    const long y = kTop + 15;
    Expect({ { kLeft + kClientRight - 44, y, HTCAPTION },
             { kLeft + kClientRight - 43, y, HTCLOSE },
             { kLeft + kClientRight - 19, y, HTCLOSE },
             { kLeft + kClientRight - 18, y, HTCAPTION } });
}

TEST(HitTest, TheMaximiseBoxEndsBeforeClientRightMinus64AndBeginsAtClientRightMinus89) {
    const long y = kTop + 15;
    Expect({ { kLeft + kClientRight - 90, y, HTCAPTION },
             { kLeft + kClientRight - 89, y, HTMAXBUTTON },
             { kLeft + kClientRight - 65, y, HTMAXBUTTON },
             { kLeft + kClientRight - 64, y, HTCAPTION } });
}

TEST(HitTest, NineAndTwentySevenWithinABoxesWidthAreCaption) {
    for (const auto& [x, box] : { std::pair<long, LRESULT>(kLeft + kClientRight - 30, HTCLOSE),
                                  { kLeft + kClientRight - 70, HTMAXBUTTON } })
        Expect({ { x, kTop + 9, HTCAPTION },
                 { x, kTop + 10, box },
                 { x, kTop + 26, box },
                 { x, kTop + 27, HTCAPTION } });
}

TEST(HitTest, TheSideBordersAreFourPixelsAndHaveTheLowerCorners) {
    Expect({ { 99, 400, kNowhere },
             { 100, 400, HTLEFT },
             { 103, 845, HTLEFT },
             { 104, 400, kNowhere },
             { 1095, 400, kNowhere },
             { 1096, 400, HTRIGHT },
             { 1099, 845, HTRIGHT },
             { 1100, 400, kNowhere },
             { 100, 846, HTBOTTOMLEFT },
             { 103, 849, HTBOTTOMLEFT },
             { 1096, 846, HTBOTTOMRIGHT },
             { 1099, 849, HTBOTTOMRIGHT } });
}

TEST(HitTest, TheBottomBorderIsFourPixels) {
    Expect({ { 600, 845, kNowhere },
             { 600, 846, HTBOTTOM },
             { 104, 849, HTBOTTOM },
             { 1095, 849, HTBOTTOM },
             { 600, 850, kNowhere } });
}

TEST(HitTest, InsideThePlatformDecides) {
    Expect({ { 104, 80, kNowhere }, { 1095, 845, kNowhere }, { 600, 400, kNowhere } });
}

// The same through the window's message.

class HitTestMessage : public WindowProcedures {
protected:
    LRESULT HitAt(long x, long y) {
        return SendMessageW(Window(), WM_NCHITTEST, 0, MAKELPARAM(std::uint16_t(x), std::uint16_t(y)));
    }
};

TEST_F(HitTestMessage, CountsFromTheWindowsPlaceAlsoLeftOfTheScreen) {
    SetWindowPos(Window(), nullptr, -200, -10, 640, 480, SWP_NOZORDER);
    EXPECT_EQ(HitAt(-200, -10), HTTOPLEFT);
    EXPECT_EQ(HitAt(-200 + 640 - 43, 5), HTCLOSE);
    EXPECT_EQ(HitAt(-200 + 640 - 89, 5), HTMAXBUTTON);
    EXPECT_EQ(HitAt(-200 + 639, 469), HTBOTTOMRIGHT);
    EXPECT_EQ(HitAt(-100, 5), HTCAPTION);
    EXPECT_EQ(HitAt(100, 200), HTCLIENT) << "the platform's own decision";
}

TEST_F(HitTestMessage, InFullScreenThePlatformDecidesEverywhere) {
    server.SetFullScreen(true);
    const RECT window = WindowRectOf(Window());
    for (const auto& [x, y] : { std::pair(window.left, window.top),
                                { window.right - 30, window.top + 15 },
                                { window.left + 500, window.top + 20 },
                                { window.right - 1, window.bottom - 1 } })
        EXPECT_EQ(HitAt(x, y), HTCLIENT) << x << ", " << y;
}

TEST_F(HitTestMessage, WithoutAServerThePlatformDecidesEverywhere) {
    LoseServer();
    const RECT window = WindowRectOf(mTopLevel);
    EXPECT_EQ(SendMessageW(mTopLevel, WM_NCHITTEST, 0, MAKELPARAM(window.left, window.top)), HTCLIENT);
}

} // namespace
} // namespace orvane::tests
