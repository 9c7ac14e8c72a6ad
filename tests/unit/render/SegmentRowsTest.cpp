#include "render/canvas/SegmentRows.h"

#include "CanvasOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace orvane::render {
namespace {

constexpr int kWidth = 45, kHeight = 30, kRowBytes = 64;

// A surface of random bytes, padding included, in a block of its own.
struct Picture {
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(kRowBytes * kHeight);
    CoverageSurface surface = { bytes.data(), kWidth, kHeight, kRowBytes };

    explicit Picture(std::uint32_t seed) { Fill(seed); }

    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    void Fill(std::uint32_t seed) {
        tests::Dice dice(seed);
        for (auto& byte : bytes) byte = std::uint8_t(dice.Below(256));
    }
};

// Segments of all kinds: long and hardly any, level, upright and between whole pixels, inside and beyond the edges.
struct Segments {
    double values[SegmentLot::kMost * 4];
    float width, opacity255;

    Segments(tests::Dice& dice, int round)
        : width(float(round % 2 ? dice.Between(0.01, 8) : 1 + dice.Below(3)))
        , opacity255(float(round % 4 ? 255 : dice.Between(0, 255))) {
        const double beyond = round % 7 ? 0 : 20; // most well inside, where the wide forms are at home
        for (int i = 0; i < SegmentLot::kMost; ++i) {
            double* const segment = values + i * 4;
            const double reach = std::pow(10, dice.Between(-6, beyond > 0 ? 2 : 1.3));
            for (int k = 0; k < 2; ++k) {
                const int side = k ? kHeight : kWidth;
                segment[k] = dice.Between(-beyond, side + beyond);
                segment[k + 2] = segment[k] + dice.Between(-reach, reach);
                if (beyond == 0) segment[k + 2] = std::clamp(segment[k + 2], 0.0, double(side));
            }
            if (round % 3 == 0)
                for (int k = 0; k < 4; ++k) segment[k] = std::round(segment[k]);
            const int kind = dice.Below(10);
            if (kind == 0) segment[3] = segment[1] + dice.Between(-1e-5, 1e-5);
            if (kind == 1) segment[2] = segment[0] + dice.Between(-1e-5, 1e-5);
            if (kind == 2) segment[3] = segment[1];
            if (kind == 3) segment[2] = segment[0];
        }
    }

    [[nodiscard]] SegmentLot Take(const CoverageSurface& surface) const {
        SegmentLot lot;
        lot.Take(values, SegmentLot::kMost, width, surface);
        return lot;
    }
};

void Fill(FillRowsForm form, const SegmentLot& lot, const CoverageSurface& surface, float opacity255) {
    for (int i = 0; i < SegmentLot::kMost; ++i)
        if (lot.isShort[i]) form(lot, i, i + 1, surface, opacity255);
}

// Those that this processor can run.
std::vector<FillRowsForm> WideForms() {
    std::vector<FillRowsForm> forms = { FastestFillRows() };
#ifdef __x86_64__
    forms.push_back(FillRowsSse2);
    if (HasAvx2()) forms.push_back(FillRowsAvx2);
#endif
    return forms;
}

class EachWideForm : public testing::TestWithParam<FillRowsForm> {};

INSTANTIATE_TEST_SUITE_P(SegmentRows, EachWideForm, testing::ValuesIn(WideForms()));

TEST_P(EachWideForm, MakesTheScalarFormsBytes) {
    tests::Dice dice(31);
    Picture scalar(7), wide(7);
    int drawn = 0;
    for (int i = 0; i < 20000; ++i) {
        const Segments segments(dice, i);
        const SegmentLot lot = segments.Take(scalar.surface);
        Fill(FillRowsScalar, lot, scalar.surface, segments.opacity255);
        Fill(GetParam(), lot, wide.surface, segments.opacity255);
        drawn += int(std::count(lot.isShort, lot.isShort + SegmentLot::kMost, true));
        ASSERT_EQ(scalar.bytes, wide.bytes) << "round " << i << " width " << segments.width;
        // Full surfaces hide differences: begin again with another picture.
        if (i % 12 == 0) {
            scalar.Fill(std::uint32_t(i));
            wide.Fill(std::uint32_t(i));
        }
    }
    EXPECT_GT(drawn, 60000);
}

TEST_P(EachWideForm, DrawsTheSegmentsOfARangeInOrder) {
    tests::Dice dice(33);
    Picture scalar(7), wide(7);
    for (int i = 0; i < 3000; ++i) {
        Segments segments(dice, 1); // none but short ones
        // All through one place, so that they lie over one another.
        for (int k = 0; k < SegmentLot::kMost; ++k) {
            segments.values[k * 4] = 20.3;
            segments.values[k * 4 + 1] = 15.8;
        }
        const SegmentLot lot = segments.Take(scalar.surface);
        const int from = dice.Below(SegmentLot::kMost), to = from + dice.Below(SegmentLot::kMost + 1 - from);
        const auto isShort = [](bool b) { return b; };
        ASSERT_TRUE(std::all_of(lot.isShort, lot.isShort + SegmentLot::kMost, isShort));
        for (int k = from; k < to; ++k) FillRowsScalar(lot, k, k + 1, scalar.surface, 100);
        GetParam()(lot, from, to, wide.surface, 100);
        ASSERT_EQ(scalar.bytes, wide.bytes) << i;
        scalar.Fill(std::uint32_t(i));
        wide.Fill(std::uint32_t(i));
    }
}

TEST_P(EachWideForm, ChangesNoByteOfThePadding) {
    tests::Dice dice(32);
    Picture picture(8);
    const Picture before(8);
    for (int i = 0; i < 5000; ++i) {
        const double segment[] = { dice.Between(kWidth - 8, kWidth + 8), dice.Between(-4, kHeight + 4),
                                   dice.Between(kWidth - 8, kWidth + 8), dice.Between(-4, kHeight + 4) };
        SegmentLot lot;
        lot.Take(segment, 1, 2, picture.surface);
        ASSERT_TRUE(lot.isShort[0]);
        GetParam()(lot, 0, 1, picture.surface, 255);
    }
    for (int y = 0; y < kHeight; ++y)
        for (int x = kWidth; x < kRowBytes; ++x)
            ASSERT_EQ(picture.bytes[std::size_t(y * kRowBytes + x)],
                      before.bytes[std::size_t(y * kRowBytes + x)]);
}

} // namespace
} // namespace orvane::render
