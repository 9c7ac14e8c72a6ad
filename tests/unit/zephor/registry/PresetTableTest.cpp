#include "zephor/registry/PresetTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace orvane::zephor {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(PresetTable, HasTheTenRows) {
    constexpr std::int32_t kRows[10][3] = { { 1, 6, 2 },    { 2, 1, 6 },  { 42, 13, 7 }, { 11, 0, 8 },
                                            { 13, 12, 10 }, { 16, 2, 6 }, { 3, 4, 10 },  { 0, 3, 6 },
                                            { 4, 5, 10 },   { 8, 10, 6 } };
    ASSERT_EQ(kPresetTable.size(), 10u);
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(kPresetTable[i].delta, kRows[i][0]) << i;
        EXPECT_EQ(kPresetTable[i].waveform, kRows[i][1]) << i;
        EXPECT_EQ(kPresetTable[i].colourSlot, kRows[i][2]) << i;
    }
}

TEST(PresetTable, ARequestOfTwoOrMoreNamesTheRowTwoBelow) {
    EXPECT_EQ(FindPreset(2), &kPresetTable[0]);
    EXPECT_EQ(FindPreset(11), &kPresetTable[9]);
}

TEST(PresetTable, RequestsBelowTwoAndPastTheLastRowNameNone) {
    for (const std::int32_t request : { 1, 0, -1, kSmallest, 12, 13, kLargest })
        EXPECT_EQ(FindPreset(request), nullptr) << request;
}

TEST(WrappingSum, PassesBothEndsOfTheRange) {
    EXPECT_EQ(WrappingSum(2, 3), 5);
    EXPECT_EQ(WrappingSum(-4, 3), -1);
    EXPECT_EQ(WrappingSum(kLargest, 1), kSmallest);
    EXPECT_EQ(WrappingSum(kSmallest, -1), kLargest);
    EXPECT_EQ(WrappingSum(kSmallest, kSmallest), 0);
}

TEST(Selection, FlagsHaveTheValuesOfTheVisualizersFlagWords) {
    EXPECT_EQ(kSelect_AllTimed, 28u);
    EXPECT_EQ(kSelect_AllForced, 29u);
    EXPECT_EQ(kSelect_AllImmediate, 31u);
    EXPECT_EQ(kSelect_Delta | kSelect_Force, 5u);
    EXPECT_EQ(kSelect_Waveform | kSelect_Force, 9u);
    EXPECT_EQ(kSelect_Colour | kSelect_Force, 17u);
}

} // namespace
} // namespace orvane::zephor
