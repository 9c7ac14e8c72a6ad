#include "render/canvas/SegmentRows.h"

#include "CanvasOracle.h"
#include "render/canvas/SegmentFill.h"
#include "render/canvas/SegmentRowsAvx2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace orvane::render {
namespace {

constexpr int kWidth = 45, kHeight = 30, kRowBytes = 64;

// A surface of random bytes, padding included, in a block of its own.
struct Picture {
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(kRowBytes * kHeight);
    CoverageSurface surface = { bytes.data(), kWidth, kHeight, kRowBytes };

    explicit Picture(std::uint32_t seed) {
        tests::Dice dice(seed);
        for (auto& byte : bytes) byte = std::uint8_t(dice.Below(256));
    }

    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
};

using Form = void (*)(const SegmentRows&);

// Those that this processor can run.
std::vector<Form> WideForms() {
    std::vector<Form> forms = { FillRowsWide, FillRows };
#ifdef __x86_64__
    if (HasAvx2()) forms.push_back(FillRowsAvx2);
#endif
    return forms;
}

class EachWideForm : public testing::TestWithParam<Form> {};

INSTANTIATE_TEST_SUITE_P(SegmentRows, EachWideForm, testing::ValuesIn(WideForms()));

TEST_P(EachWideForm, MakesTheScalarFormsBytes) {
    tests::Dice dice(31);
    Picture scalar(7), wide(7);
    int drawn = 0;
    for (int i = 0; i < 20000; ++i) {
        const double reach = std::pow(10, dice.Between(-6, 2));
        const double x = dice.Between(-20, kWidth + 20), y = dice.Between(-20, kHeight + 20);
        double segment[4] = { x, y, x + dice.Between(-reach, reach), y + dice.Between(-reach, reach) };
        if (i % 3 == 0)
            for (double& value : segment) value = std::round(value);
        if (i % 5 == 0) segment[3] = segment[1] + dice.Between(-1e-5, 1e-5);
        const double width = i % 2 ? dice.Between(0.01, 8) : double(1 + dice.Below(3));
        const auto opacity255 = float(i % 4 ? 255 : dice.Between(0, 255));
        SegmentCorners corners;
        if (!corners.Make(segment, width) || !IsShortSegment(corners, width, scalar.surface)) continue;
        FillRowsScalar(MakeSegmentRows(corners, scalar.surface, opacity255));
        GetParam()(MakeSegmentRows(corners, wide.surface, opacity255));
        ASSERT_EQ(scalar.bytes, wide.bytes) << segment[0] << " " << segment[1] << " " << segment[2] << " "
                                            << segment[3] << " width " << width;
        // Full surfaces hide differences: begin again with another picture.
        if (++drawn % 50 == 0) {
            const Picture fresh{ std::uint32_t(i) };
            std::copy(fresh.bytes.begin(), fresh.bytes.end(), scalar.bytes.begin());
            std::copy(fresh.bytes.begin(), fresh.bytes.end(), wide.bytes.begin());
        }
    }
    EXPECT_GT(drawn, 10000);
}

TEST_P(EachWideForm, ChangesNoByteOfThePadding) {
    tests::Dice dice(32);
    Picture picture(8);
    const Picture before(8);
    for (int i = 0; i < 5000; ++i) {
        const double segment[] = { dice.Between(kWidth - 8, kWidth + 8), dice.Between(-4, kHeight + 4),
                                   dice.Between(kWidth - 8, kWidth + 8), dice.Between(-4, kHeight + 4) };
        SegmentCorners corners;
        ASSERT_TRUE(corners.Make(segment, 2));
        GetParam()(MakeSegmentRows(corners, picture.surface, 255));
    }
    for (int y = 0; y < kHeight; ++y)
        for (int x = kWidth; x < kRowBytes; ++x)
            ASSERT_EQ(picture.bytes[std::size_t(y * kRowBytes + x)],
                      before.bytes[std::size_t(y * kRowBytes + x)]);
}

} // namespace
} // namespace orvane::render
