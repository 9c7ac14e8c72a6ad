#include "zephor/math/Lanes.h"

#include "zephor/math/LaneForm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace orvane::zephor::single {
namespace {

TEST(Lanes, NarrowestFormRunsEverywhereAndTheWidestIsTheLast) {
    ASSERT_GE(RunnableLaneForms().size(), 2u);
    EXPECT_EQ(RunnableLaneForms().front(), LaneForm::One);
    EXPECT_EQ(RunnableLaneForms()[1], LaneForm::Four);
    EXPECT_EQ(WidestLaneForm(), RunnableLaneForms().back());
    EXPECT_EQ(std::string(NameOf(LaneForm::Eight)), "8 lanes");
}

TEST(Lanes, LoadsAndStoresAnywhere) {
    const float from[] = { 0, 1, 2, 3, 4, 5 };
    const auto lanes = Load<Lanes4>(from + 1);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(lanes[i], float(i + 1));
    float to[6] = {};
    Store(to + 1, lanes);
    EXPECT_EQ((std::vector<float>(to, to + 6)), (std::vector<float>{ 0, 1, 2, 3, 4, 0 }));
}

TEST(Lanes, AllHoldOneNumberWithItsSign) {
    const auto lanes = All<Lanes4>(-0.0f);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(std::signbit(lanes[i]));
    EXPECT_TRUE(std::signbit(All<float>(-0.0f)));
}

TEST(Lanes, SelectChoosesForEachLane) {
    const Lanes4 a = { 1, 5, 3, 7 }, b = { 2, 4, 6, 6 };
    const Lanes4 less = Select(a < b, a, b);
    EXPECT_EQ((std::vector<float>{ less[0], less[1], less[2], less[3] }), (std::vector<float>{ 1, 4, 3, 6 }));
    EXPECT_EQ(Select(1.0f < 2.0f, 3.0f, 4.0f), 3.0f);
}

TEST(Lanes, PairsAreStoredInterleaved) {
    float one[2], four[8];
    StorePairs(one, 1.0f, 10.0f);
    StorePairs(four, Lanes4{ 1, 2, 3, 4 }, Lanes4{ 10, 20, 30, 40 });
    EXPECT_EQ((std::vector<float>(one, one + 2)), (std::vector<float>{ 1, 10 }));
    EXPECT_EQ((std::vector<float>(four, four + 8)), (std::vector<float>{ 1, 10, 2, 20, 3, 30, 4, 40 }));
}

} // namespace
} // namespace orvane::zephor::single
