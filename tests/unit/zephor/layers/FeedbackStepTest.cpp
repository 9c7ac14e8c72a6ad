// The feedback step in each of its forms, on one thread and on two.
#include "zephor/layers/FeedbackStep.h"

#include "FeedbackOracle.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::zephor {
namespace {

using tests::AllEngines;
using tests::FedBack;
using tests::Step;
using tests::TestField;
using tests::TestImage;

void ExpectEveryForm(const TestImage& source, const TestField& field, const TestImage& expected) {
    for (const auto& [name, engine] : AllEngines())
        EXPECT_EQ(Step(*engine, source, field).bytes, expected.bytes) << name;
}

TEST(FeedbackStep, TheDecayLowersByOneDownTo0AndFrom240UpGives239) {
    EXPECT_EQ(Decayed(0), 0);
    EXPECT_EQ(Decayed(1), 0);
    EXPECT_EQ(Decayed(2), 1);
    EXPECT_EQ(Decayed(239), 238);
    EXPECT_EQ(Decayed(240), 239);
    EXPECT_EQ(Decayed(241), 239);
    EXPECT_EQ(Decayed(255), 239);
}

TEST(FeedbackStep, AnAllZeroFieldMakesTheWholeImageTheAverageOfTheTopLeftBlock) {
    TestImage source(7, 4, 200);
    source.At(0, 0) = 10;
    source.At(1, 0) = 20;
    source.At(0, 1) = 30;
    source.At(1, 1) = 41;
    TestImage expected(7, 4); // (10 + 20 + 30 + 41) / 4 = 25, less one
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 7; ++x) expected.At(x, y) = 24;
    ExpectEveryForm(source, TestField(7, 4), expected);
}

// An even width has no pixel without a partner, an odd one has. Cells at (1, 0) average 1, 2, 4 and 8.
TEST(FeedbackStep, APixelAveragesFourPixelsAndOnTheBottomRowTwo) {
    for (const int width : { 4, 5 }) {
        TestImage source(width, 2), upper(width, 2), lower(width, 2);
        source.At(1, 0) = 101;
        source.At(2, 0) = 102;
        source.At(1, 1) = 104;
        source.At(2, 1) = 108;
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < width; ++x) {
                upper.At(x, y) = 102; // (101 + 102 + 104 + 108) / 4 = 103
                lower.At(x, y) = 105; // (104 + 108) / 2 = 106
            }
        ExpectEveryForm(source, TestField(width, 2, { 1, 0 }), upper);
        ExpectEveryForm(source, TestField(width, 2, { 1, 1 }), lower);
    }
}

TEST(FeedbackStep, Width1TakesEveryPixelWithoutRounding) {
    TestImage source(1, 3);
    source.bytes = { 10, 100, 20, 100, 40, 100 }; // each followed by the byte past the last column
    TestField field(1, 3);
    field.cells = { { 0, 0 }, { 0.9f, 1.9f }, { 0, 2 } };
    TestImage expected(1, 3);
    expected.At(0, 0) = 56; // (10 + 100 + 20 + 100) / 4 = 57
    expected.At(0, 1) = 64; // row 1: (20 + 100 + 40 + 100) / 4 = 65
    expected.At(0, 2) = 69; // (40 + 100) / 2 = 70
    ExpectEveryForm(source, field, expected);
}

TEST(FeedbackStep, Height1AveragesTwoPixelsOnly) {
    TestImage source(3, 1);
    source.bytes = { 10, 21, 40, 100 };
    TestField field(3, 1);
    field.cells = { { 0, 0 }, { 1, 0.4f }, { 2, 0 } };
    TestImage expected(3, 1);
    expected.At(0, 0) = 14; // 31 / 2 = 15
    expected.At(1, 0) = 29; // 61 / 2 = 30
    expected.At(2, 0) = 69; // 140 / 2 = 70
    ExpectEveryForm(source, field, expected);
}

// Where columns are told apart by their brightness: column x of one row holds 10 * x, so column x of the answer
// reads 10 * x + 5 - 1.
int ColumnRead(const TestImage& answer, int x) {
    return (answer.At(x, 0) - 4) / 10;
}

std::vector<int> ColumnsRead(FeedbackEngine& engine, const std::vector<float>& named) {
    const int width = int(named.size());
    TestImage source(width, 1);
    for (int x = 0; x <= width; ++x) source.At(x, 0) = std::uint8_t(10 * x);
    TestField field(width, 1);
    for (int x = 0; x < width; ++x) field.At(x, 0).x = named[std::size_t(x)];
    const TestImage answer = Step(engine, source, field);
    std::vector<int> columns;
    for (int x = 0; x < width; ++x) columns.push_back(ColumnRead(answer, x));
    return columns;
}

void ExpectColumns(const std::vector<float>& named, const std::vector<int>& expected) {
    for (const auto& [name, engine] : AllEngines()) EXPECT_EQ(ColumnsRead(*engine, named), expected) << name;
}

TEST(FeedbackStep, ACellOfMinus3Point7ReadsColumn0) {
    ExpectColumns({ -3.7f, -3.7f, -3.7f, -3.7f, -3.7f }, { 0, 0, 0, 0, 0 });
}

TEST(FeedbackStep, ACellAtWidthLess1ReadsOneBytePastTheLastColumn) {
    TestImage source(2, 2);
    source.bytes = { 0, 40, 80, 0, 120, 160 };
    TestImage expected(2, 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 2; ++x) expected.At(x, y) = 99; // (40 + 80 + 120 + 160) / 4 = 100
    ExpectEveryForm(source, TestField(2, 2, { 1, 0 }), expected);
}

TEST(FeedbackStep, PairsRoundTiesToEvenAndTheOddColumnDropsTheFraction) {
    ExpectColumns({ 2.5f, 2.7f, 3.5f, 0.5f, 2.5f }, { 2, 3, 4, 0, 2 });
    ExpectColumns({ 1.5f, 1.4999999f, 0.50000006f, 2.3f, 2.7f }, { 2, 1, 1, 2, 2 });
}

TEST(FeedbackStep, WhatIsNoNumberOrBeyondAnIntegerReadsColumn0) {
    const float nan = std::numeric_limits<float>::quiet_NaN(),
                endless = std::numeric_limits<float>::infinity();
    ExpectColumns({ nan, -nan, endless, -endless, nan }, { 0, 0, 0, 0, 0 });
    ExpectColumns({ 2147483648.0f, 1e30f, -1e30f, 4e9f, endless }, { 0, 0, 0, 0, 0 });
}

TEST(FeedbackStep, OfAPairsAddressTheLow27BitsCountAndTheOddColumnHasNoMask) {
    // 2^27 + 16 and 2^27; without the mask both are past the last column, 18, to which they are held.
    std::vector<float> named(19, 134217744.0f);
    std::vector<int> expected(19, 16);
    named[1] = 134217728.0f;
    expected[1] = 0;
    expected[18] = 18;
    ExpectColumns(named, expected);
}

TEST(FeedbackStep, AFieldOfALargerImageIsHeldToTheLastColumnAndRow) {
    TestImage source(4, 3, 50);
    source.At(3, 2) = 90;
    source.At(4, 2) = 70;
    TestImage expected(4, 3);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x) expected.At(x, y) = 79; // (90 + 70) / 2 = 80
    ExpectEveryForm(source, TestField(4, 3, { 1500, 900 }), expected);
}

// A random image and a random field of each kind.
void ExpectTheOraclesBytes(const std::vector<tests::NamedEngine>& engines, int width, int height,
                           std::mt19937& random) {
    for (const tests::CellKind kind : tests::kCellKinds) {
        const TestImage source = tests::MakeNoise(width, height, random);
        const TestField field = tests::MakeField(width, height, kind, random);
        const TestImage expected = FedBack(source, field);
        for (const auto& [name, engine] : engines)
            ASSERT_EQ(Step(*engine, source, field).bytes, expected.bytes)
                << name << ", " << width << " x " << height << ", cells " << int(kind);
    }
}

TEST(FeedbackStep, EveryFormMakesTheOraclesBytesAtWidths1To70AndHeights1To20) {
    const auto engines = AllEngines();
    std::mt19937 random(2026);
    for (int width = 1; width <= 70; ++width)
        for (int height = 1; height <= 20; ++height)
            ASSERT_NO_FATAL_FAILURE(ExpectTheOraclesBytes(engines, width, height, random));
}

TEST(FeedbackStep, EveryFormMakesTheOraclesBytesOfLargeImages) {
    const auto engines = AllEngines();
    std::mt19937 random(4);
    const int sizes[][2] = { { 257, 64 }, { 640, 33 }, { 1002, 40 }, { 4087, 7 } };
    for (const auto& [width, height] : sizes) ExpectTheOraclesBytes(engines, width, height, random);
}

TEST(FeedbackStep, TheNumberOfSlicesDoesNotShow) {
    std::mt19937 random(9);
    const TestImage source = tests::MakeNoise(33, 17, random);
    const TestField field = tests::MakeField(33, 17, tests::CellKind::Turn, random);
    const TestImage expected = FedBack(source, field);
    for (const auto& [name, engine] : AllEngines())
        for (const int slices : { 1, 2, 3, 4, 8, 16, 17, 64 })
            EXPECT_EQ(Step(*engine, source, field, slices).bytes, expected.bytes)
                << name << ", slices " << slices;
}

TEST(FeedbackStep, NothingIsWrittenBetweenTheRowsOfTheTarget) {
    constexpr std::uint8_t kUntouched = 0xA5;
    constexpr int kWidth = 37, kHeight = 5, kRowBytes = 48;
    std::mt19937 random(10);
    const TestImage source = tests::MakeNoise(kWidth, kHeight, random);
    const TestField field = tests::MakeField(kWidth, kHeight, tests::CellKind::Turn, random);
    for (const auto& [name, engine] : AllEngines()) {
        std::vector<std::uint8_t> target(kRowBytes * kHeight, kUntouched);
        engine->Step({ source.bytes.data(), source.rowBytes, target.data(), kRowBytes, kWidth, kHeight },
                     field.Get(), 1, 2);
        for (int y = 0; y < kHeight; ++y)
            for (int x = kWidth; x < kRowBytes; ++x)
                ASSERT_EQ(target[std::size_t(y * kRowBytes + x)], kUntouched)
                    << name << " x " << x << " y " << y;
    }
}

} // namespace
} // namespace orvane::zephor
