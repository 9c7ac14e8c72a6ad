#include "visualizer/Pixels.h"

#include "support/SetDpi.h"
#include "visualizer/PanelText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvane::visualizer {
namespace {

TEST(ScaleForDisplay, RoundsToWholePixelsHalvesUp) {
    const struct {
        int dpi;
        double pixels;
        int expected;
    } rows[] = {
        { 96, 12, 12 }, { 120, 12, 15 },   { 144, 12, 18 }, { 100, 12, 13 }, { 99, 12, 12 },
        { 96, 0, 0 },   { 120, 200, 250 }, { 120, 2, 3 },   { 48, 1, 1 },    { 0, 12, 12 },
    };

    for (const auto& row : rows) {
        const tests::SetDpi dpi(row.dpi);
        EXPECT_EQ(ScaleForDisplay(row.pixels), row.expected) << row.dpi << " DPI, " << row.pixels;
    }
}

TEST(WholePixels, CutsFractionsAndHoldsWhatNoPixelCountCanBe) {
    EXPECT_EQ(WholePixels(12.9), 12u);
    EXPECT_EQ(WholePixels(-3), 0u);
    EXPECT_EQ(WholePixels(std::nan("")), 0u);
    EXPECT_EQ(WholePixels(1e300), std::numeric_limits<std::uint32_t>::max());
}

TEST(PanelText, KeepsAnEmptyTextAndUpTo2047Units) {
    EXPECT_EQ(PanelText(""), std::u16string());
    EXPECT_EQ(PanelText("\xC3\xA9"), u"\u00E9");
    EXPECT_EQ(PanelText(std::string(2047, 'x')), std::u16string(2047, u'x'));
    EXPECT_EQ(PanelText(std::string(2048, 'x')), std::nullopt);
    EXPECT_EQ(PanelText("\xC0\x80"), std::nullopt);
}

} // namespace
} // namespace orvane::visualizer
