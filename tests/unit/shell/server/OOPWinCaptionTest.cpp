// The caption strip: what is painted on it, and what becomes of a target that is lost.
#include "render/PackedRows.h"
#include "shell/server/CaptionIcons.h"
#include "support/IconDrawings.h"
#include "support/windows/WindowServer.h"

namespace orvane::tests {
namespace {

class Caption : public WindowServer {
protected:
    void SetUp() override { MakeWindows(); }

    // What painting the strip of a window `width` wide calls.
    Calls Paint(long width = 1000) {
        caption.calls.clear();
        const RECT client = { 0, 0, width, 800 };
        server.PaintCaption(Window(), client);
        return caption.calls;
    }
};

const Calls kNewTarget = { "CreateRenderTarget(1000 800)", "CreateBitmapFromPackedRows(close 72)",
                           "CreateBitmapFromPackedRows(maximize 72)",
                           "CreateBitmapFromPackedRows(restore 72)" };

const Calls kPainted = { "BeginDraw()",
                         "SetFillColor(0 0 0 1)",
                         "FillRectangle(0 0 1000 30)",
                         "DrawBitmap(close 1 957 9 25 18)",    // 1000 - 25 - 18
                         "DrawBitmap(maximize 1 911 9 25 18)", // 1000 - 25 - 64
                         "CreateTextFormat(12)",
                         "SetFillColor(1 1 1 1)",
                         "SetTextAlignment(2)",
                         "SetEllipsisTrimming()",
                         "DrawText(Orvane 8 8 992 30)",
                         "EndDraw()" };

TEST_F(Caption, IsBlackWithTheIconsAndTheTitle) {
    EXPECT_EQ(Paint(), kPainted);
    EXPECT_EQ(caption.formats, 0) << "the format is deleted";
    EXPECT_EQ(console.Text(), "");
}

TEST_F(Caption, StartsAtTheClientRectanglesCorner) {
    caption.calls.clear();
    const RECT client = { 5, 7, 645, 487 };
    server.PaintCaption(Window(), client);
    EXPECT_EQ(caption.calls[2], "FillRectangle(5 7 640 30)");
    EXPECT_EQ(caption.calls[3], "DrawBitmap(close 1 602 9 25 18)");    // 645 - 25 - 18
    EXPECT_EQ(caption.calls[4], "DrawBitmap(maximize 1 556 9 25 18)"); // 645 - 25 - 64
    EXPECT_EQ(caption.calls[9], "DrawText(Orvane 8 8 632 30)");
}

TEST_F(Caption, AMaximisedWindowHasTheRestoreBox) {
    ShowWindow(Window(), SW_MAXIMIZE);
    EXPECT_EQ(Paint()[4], "DrawBitmap(restore 1 911 9 25 18)");
    ShowWindow(Window(), SW_RESTORE);
    EXPECT_EQ(Paint()[4], "DrawBitmap(maximize 1 911 9 25 18)");
}

TEST_F(Caption, MissingIconsAreLeftOut) {
    caption.refusedIcons = { "close", "maximize" };
    server.InitializeAgain();
    const Calls calls = Paint();
    EXPECT_EQ(calls[2], "FillRectangle(0 0 1000 30)");
    EXPECT_EQ(calls[3], "CreateTextFormat(12)");
}

TEST_F(Caption, AnEmptyTitleHasItsLineAndDrawsNoText) {
    SetWindowTextW(Window(), L"");
    const Calls calls = Paint();
    EXPECT_EQ(calls.size(), 6u);
    EXPECT_EQ(calls.back(), "EndDraw()");
    EXPECT_EQ(console.Text(), "no text to draw");
}

TEST_F(Caption, WithoutATextFormatThereIsNoText) {
    caption.refuseTextFormat = true;
    const Calls calls = Paint();
    EXPECT_EQ(calls[5], "CreateTextFormat(12)");
    EXPECT_EQ(calls[6], "EndDraw()");
}

TEST_F(Caption, OfATitleOfMoreThan256UnitsItShowsTheFirst255) {
    SetWindowTextW(Window(), (std::wstring(255, L'a') + std::wstring(45, L'b')).c_str());
    EXPECT_EQ(Paint()[9], "DrawText(" + std::string(255, 'a') + " 8 8 992 30)");
}

TEST_F(Caption, IsNotPaintedInFullScreen) {
    server.SetFullScreen(true);
    EXPECT_EQ(Paint(), Calls{});
    server.SetFullScreen(false);
    EXPECT_EQ(Paint(), kPainted);
}

TEST_F(Caption, ALostTargetIsReleasedAndTheNextPaintIsBlackAgainWithIconsRebuilt) {
    caption.losePicture = true;
    EXPECT_EQ(Paint(), kPainted);
    EXPECT_EQ(caption.targets, 0);
    EXPECT_EQ(caption.icons, 0);
    caption.losePicture = false;
    Calls again = kNewTarget;
    again.insert(again.end(), kPainted.begin(), kPainted.end());
    EXPECT_EQ(Paint(), again);
    EXPECT_EQ(caption.targets, 1);
    EXPECT_EQ(caption.icons, 3);
    EXPECT_EQ(Paint(), kPainted);
}

TEST_F(Caption, WithoutATargetItIsTriedAtEachPaint) {
    caption.refuseTarget = true;
    server.InitializeAgain();
    console.Clear();
    EXPECT_EQ(Paint(), Calls{ "CreateRenderTarget(1000 800)" });
    EXPECT_EQ(console.Text(), "Could not create an HWND render target for the OOP window\n");
    caption.refuseTarget = false;
    EXPECT_EQ(Paint().size(), kNewTarget.size() + kPainted.size());
}

// The icons.

void ExpectDrawing(const char* const (&rows)[72], const IconDrawing& drawing,
                   std::uint8_t (*value)(int row, char mark)) {
    const auto picture = render::DecodePackedRows(rows, 72);
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture->width, unsigned(kIconColumns));
    ASSERT_EQ(picture->height, unsigned(kIconRows));
    for (int y = 0; y < kIconRows; ++y)
        for (int x = 0; x < kIconColumns; ++x) {
            const std::uint8_t* pixel = &picture->bytes[std::size_t(4 * (y * kIconColumns + x))];
            for (int channel = 0; channel < 4; ++channel)
                EXPECT_EQ(pixel[channel], value(y, drawing[y][x])) << x << ", " << y << ", " << channel;
        }
}

TEST(CaptionIcons, TheRowsOfEachDecodeToItsDrawing) {
    ExpectDrawing(shell::kCloseBoxRows, kCloseDrawing, &CloseValue);
    ExpectDrawing(shell::kMaximizeBoxRows, kMaximizeDrawing, &BoxValue);
    ExpectDrawing(shell::kRestoreBoxRows, kRestoreDrawing, &BoxValue);
}

} // namespace
} // namespace orvane::tests
