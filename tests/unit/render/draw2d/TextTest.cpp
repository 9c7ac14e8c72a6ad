// Text set by DirectWrite on a surface in memory, judged by where its ink is.
#include "render/draw2d/WTextFormat.h"

#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string_view>

namespace orvane::render {
namespace {

using namespace tests;

constexpr int kWidth = 300, kHeight = 60;
constexpr float kSize = 20; // of the letters

// The text within x 50 to 250, y 10 to 50.
constexpr double kBox[4] = { 50, 10, 200, 40 };

IDWriteTextFormat* Native(ITextFormat& format) {
    return static_cast<IDWriteTextFormat*>(format.GetNativeFormat());
}

class Text : public testing::Test {
protected:
    Text() { EXPECT_NE(format, nullptr); }

    Picture Set(std::u16string_view text, const double rect[4] = kBox) {
        Surface surface(kWidth, kHeight);
        return surface.After([&](IRenderer2D& canvas) {
            canvas.DrawText(text.data(), std::uint32_t(text.size()), format.get(), rect);
        });
    }

    std::unique_ptr<ITextFormat> format = CreateTextFormat(kSize);
};

TEST_F(Text, IsWhiteOnTransparentWithSmoothEdges) {
    const Picture picture = Set(u"Sample");
    int full = 0, partial = 0;
    for (const Pixel& p : picture.pixels) {
        // Premultiplied white: as much of each colour as of alpha.
        ASSERT_TRUE(Near(p, { p.alpha, p.alpha, p.alpha, p.alpha }, 1)) << p;
        full += p.alpha > 240;
        partial += p.alpha > 16 && p.alpha < 240;
    }
    EXPECT_GT(full, 20);
    EXPECT_GT(partial, 20);
}

TEST_F(Text, HasTheFillColour) {
    Surface surface(kWidth, kHeight);
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetFillColor(0, 1, 0, 1);
        canvas.SetStrokeColor(1, 0, 0, 1);
        canvas.DrawText(u"Sample", 6, format.get(), kBox);
    });
    EXPECT_TRUE(picture.InkOf().Any());
    for (const Pixel& p : picture.pixels) {
        ASSERT_TRUE(p.red == 0 && p.blue == 0) << p;
        ASSERT_NEAR(p.green, p.alpha, 1);
    }
}

TEST_F(Text, StandsInTheRectangleFromTheTopLeft) {
    const Ink ink = Set(u"Sample").InkOf();
    ASSERT_TRUE(ink.Any());
    EXPECT_GE(ink.left, 50);
    EXPECT_LE(ink.left, 54);
    EXPECT_GE(ink.top, 10);
    EXPECT_LE(ink.bottom, 10 + 28);
    EXPECT_GT(ink.Width(), 45); // six letters of some half their height
    EXPECT_LT(ink.Width(), 90);
    EXPECT_GT(ink.Height(), 12); // a capital and a descender
    EXPECT_LT(ink.Height(), 26);
}

TEST_F(Text, GrowsWithTheSizeOfTheFormat) {
    const Ink small = Set(u"Sample").InkOf();
    format = CreateTextFormat(2 * kSize);
    ASSERT_NE(format, nullptr);
    const Ink large = Set(u"Sample").InkOf();
    EXPECT_NEAR(large.Width(), 2 * small.Width(), 6);
    EXPECT_NEAR(large.Height(), 2 * small.Height(), 4);
}

TEST_F(Text, AlignmentSaysWhereTheInkIs) {
    ASSERT_TRUE(format->SetTextAlignment(kTextAlignmentTrailing));
    const Ink trailing = Set(u"Sample").InkOf();
    EXPECT_GE(trailing.right, 246);
    EXPECT_LE(trailing.right, 250);

    ASSERT_TRUE(format->SetTextAlignment(kTextAlignmentCentred));
    const Ink centred = Set(u"Sample").InkOf();
    EXPECT_NEAR((centred.left + centred.right) / 2.0, 150, 3);

    ASSERT_TRUE(format->SetTextAlignment(kTextAlignmentLeading));
    const Ink leading = Set(u"Sample").InkOf();
    EXPECT_LE(leading.left, 54);

    // A single line has nothing to be spread out to.
    ASSERT_TRUE(format->SetTextAlignment(kTextAlignmentJustified));
    const Ink justified = Set(u"Sample").InkOf();
    EXPECT_LE(justified.left, 54);
    EXPECT_EQ(justified.Width(), leading.Width());
}

TEST_F(Text, AlignmentsAreTheNativeOnesAndAnyOtherValueCountsAsLeading) {
    const struct {
        std::uint32_t value;
        DWRITE_TEXT_ALIGNMENT native;
    } rows[] = {
        { 0, DWRITE_TEXT_ALIGNMENT_LEADING },  { 1, DWRITE_TEXT_ALIGNMENT_TRAILING },
        { 2, DWRITE_TEXT_ALIGNMENT_CENTER },   { 3, DWRITE_TEXT_ALIGNMENT_JUSTIFIED },
        { 4, DWRITE_TEXT_ALIGNMENT_LEADING },  { 2, DWRITE_TEXT_ALIGNMENT_CENTER },
        { 99, DWRITE_TEXT_ALIGNMENT_LEADING }, { 0xFFFFFFFF, DWRITE_TEXT_ALIGNMENT_LEADING },
    };

    for (const auto& row : rows) {
        EXPECT_TRUE(format->SetTextAlignment(row.value)) << row.value;
        EXPECT_EQ(Native(*format)->GetTextAlignment(), row.native) << row.value;
    }
}

TEST_F(Text, TheFormatIsNormalArialOfTheSizeAskedFor) {
    IDWriteTextFormat* const native = Native(*format);
    ASSERT_NE(native, nullptr);
    wchar_t name[32] = {};
    ASSERT_TRUE(SUCCEEDED(native->GetFontFamilyName(name, 32)));
    EXPECT_STREQ(name, L"Arial");
    ASSERT_TRUE(SUCCEEDED(native->GetLocaleName(name, 32)));
    EXPECT_STREQ(name, L"en-us");
    EXPECT_EQ(native->GetFontSize(), kSize);
    EXPECT_EQ(native->GetFontWeight(), 400);
    EXPECT_EQ(native->GetFontStyle(), DWRITE_FONT_STYLE_NORMAL);
    EXPECT_EQ(native->GetFontStretch(), 5);
}

TEST_F(Text, AFormatWithoutASizeIsNull) {
    for (const float size : { 0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN() })
        EXPECT_EQ(CreateTextFormat(size), nullptr) << size;
}

TEST_F(Text, NullTextNoLengthOrNoFormatDrawNothing) {
    Surface surface(kWidth, kHeight);
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.DrawText(nullptr, 4, format.get(), kBox);
        canvas.DrawText(u"text", 0, format.get(), kBox);
        canvas.DrawText(u"text", 4, nullptr, kBox);
        WTextFormat empty(nullptr);
        canvas.DrawText(u"text", 4, &empty, kBox);
    });
    EXPECT_TRUE(picture.IsAll(kClear));
}

TEST_F(Text, AnEmptyFormatAnswersFalse) {
    WTextFormat empty(nullptr);
    EXPECT_FALSE(empty.SetTextAlignment(kTextAlignmentCentred));
    EXPECT_FALSE(empty.SetEllipsisTrimming());
    EXPECT_EQ(empty.GetNativeFormat(), nullptr);
}

TEST_F(Text, NoMoreUnitsAreReadThanTheLengthSays) {
    const std::u16string_view text = u"HHHHHHHH";
    const Ink one = Set(text.substr(0, 1)).InkOf(), two = Set(text.substr(0, 2)).InkOf();
    const Ink four = Set(text.substr(0, 4)).InkOf();
    EXPECT_GT(two.Width(), one.Width() + 10);
    EXPECT_GT(four.Width(), two.Width() + 20);
}

TEST_F(Text, LettersBeyondAsciiAreDrawn) {
    EXPECT_NE(Set(u"\u00C9").InkOf().Height(), Set(u"E").InkOf().Height()); // with and without an accent
    EXPECT_TRUE(Set(u"\u03A9").InkOf().Any());
    EXPECT_TRUE(Set(u"\u0416").InkOf().Any());
}

// The two halves of a pair are one sign, so the pair and a letter stand where two signs stand.
TEST_F(Text, ASurrogatePairIsOneSign) {
    const Ink pair = Set(u"\U0001D11E").InkOf(), pairAndLetter = Set(u"\U0001D11EH").InkOf();
    ASSERT_TRUE(pair.Any());
    EXPECT_GT(pairAndLetter.right, pair.right);
    EXPECT_LT(pair.Width(), 2 * int(kSize));
}

TEST_F(Text, HalfAPairIsSurvived) {
    const char16_t high[] = { 0xD834, u'H' }, low[] = { 0xDD1E, u'H' }, last[] = { u'H', 0xD834 };
    for (const auto* text : { high, low, last }) EXPECT_TRUE(Set({ text, 2 }).InkOf().Any());
}

TEST_F(Text, OfAVastPlaceFallsOnNoPixel) {
    const double away[4] = { 0, 1.8446744073709552e19, 300, 25 };
    EXPECT_TRUE(Set(u"Sample", away).IsAll(kClear));
}

TEST_F(Text, AnEmptyRectangleIsSurvived) {
    const double empty[4] = { 50, 10, 0, 0 }, inverted[4] = { 50, 10, -20, -20 };
    Set(u"Sample", empty);
    Set(u"Sample", inverted);
}

class Ellipsis : public Text {
protected:
    // One line, so that what doesn't fit has nowhere to go.
    Ellipsis() { EXPECT_TRUE(SUCCEEDED(Native(*format)->SetWordWrapping(DWRITE_WORD_WRAPPING_NO_WRAP))); }

    static constexpr std::u16string_view kLong = u"HHHH HHHH HHHH HHHH HHHH HHHH";
};

TEST_F(Ellipsis, IsAskedForAtWordsWithASign) {
    ASSERT_TRUE(format->SetEllipsisTrimming());
    DWRITE_TRIMMING trimming = {};
    Microsoft::WRL::ComPtr<IDWriteInlineObject> sign;
    ASSERT_TRUE(SUCCEEDED(Native(*format)->GetTrimming(&trimming, &sign)));
    EXPECT_EQ(trimming.granularity, DWRITE_TRIMMING_GRANULARITY_WORD);
    EXPECT_NE(sign, nullptr);
}

TEST_F(Ellipsis, IsNotDrawnUnlessAskedFor) {
    EXPECT_GT(Set(kLong).InkOf().right, 260);
}

TEST_F(Ellipsis, EndsALongTextWithinTheRectangle) {
    ASSERT_TRUE(format->SetEllipsisTrimming());
    const Picture picture = Set(kLong);
    const Ink ink = picture.InkOf();
    ASSERT_TRUE(ink.Any());
    EXPECT_LE(ink.right, 251);
    EXPECT_GT(ink.right, 150);
    // The letters are all tall; what ends the text is three dots on the line that the letters stand on.
    const Ink dots = picture.InkOf(32, ink.right - 10);
    EXPECT_LE(dots.Height(), 4);
    EXPECT_NEAR(dots.bottom, ink.bottom, 1);
    EXPECT_GT(ink.Height(), 12);
}

TEST_F(Ellipsis, LeavesATextThatFits) {
    const Picture before = Set(u"HHHH HHHH");
    ASSERT_TRUE(format->SetEllipsisTrimming());
    EXPECT_EQ(Set(u"HHHH HHHH").pixels, before.pixels);
}

} // namespace
} // namespace orvane::render
