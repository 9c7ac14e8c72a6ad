#include "zephor/colours/ColourMaps.h"

#include "zephor/colours/WCLUTManager.h"

#include "ManagerFixture.h"
#include "support/SlotOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace orvane::zephor {
namespace {

TEST(ColourMaps, ASecondMapWithTheSameIdReplacesTheFirst) {
    ColourMaps maps({});
    PlainMap first(20, { 1, 1, 1 }), second(20, { 2, 2, 2 }), other(19, {});
    maps.Enter(first);
    maps.Enter(other);
    EXPECT_EQ(maps.FindComputed(20), &first);
    maps.Enter(second);
    EXPECT_EQ(maps.FindComputed(20), &second);
    EXPECT_EQ(maps.Computed().size(), 2u);
}

TEST(ColourMaps, AreInTheOrderOfTheirIds) {
    ColourMaps maps({});
    PlainMap late(65, {}), early(11, {});
    maps.Enter(late);
    maps.Enter(early);
    EXPECT_EQ(maps.Computed().begin()->second, &early);
}

TEST(ColourMaps, UnknownIdsFindNothing) {
    const ColourTable tables[2] = {};
    const ColourMaps maps(tables);
    EXPECT_EQ(maps.FindFixed(1), &tables[1]);
    EXPECT_EQ(maps.FindFixed(2), nullptr);
    EXPECT_EQ(maps.FindFixed(-1), nullptr);
    EXPECT_EQ(maps.FindComputed(11), nullptr);
}

TEST(Rotation, HasItsContentsInOrder) {
    std::vector<int> expected = { 16, 17, 18, 19, 1, 11, 13, 0, 2, 3, 12 };
    for (int id = 20; id <= 58; ++id) expected.push_back(id);
    for (int id = 4; id <= 10; ++id) expected.push_back(id);
    for (int id = 59; id <= 65; ++id) expected.push_back(id);
    ASSERT_EQ(expected.size(), 64u);
    EXPECT_TRUE(std::ranges::equal(kRotation, expected));
}

TEST(Rotation, LeavesOutFourteenAndFifteenAlone) {
    const std::set<int> ids(kRotation.begin(), kRotation.end());
    EXPECT_EQ(ids.size(), 64u);
    for (int id = 0; id <= 65; ++id) EXPECT_EQ(ids.contains(id), id != 14 && id != 15) << id;
}

TEST(ColourSlots, MapsHaveTheDestructorFirst) {
    tests::ExpectSlotOrder({ ORVANE_SLOT(1, CLUTProc, Map), ORVANE_SLOT(2, CLUTProc, Reset) }, 0, 0);
}

TEST(ColourSlots, TheManagersDestructorStandsThird) {
    tests::ExpectSlotOrder({ ORVANE_SLOT(0, WCLUTManager, Init), ORVANE_SLOT(1, WCLUTManager, LoadMap),
                             ORVANE_SLOT(3, WCLUTManager, BlendStep) },
                           0, 2);
}

TEST(CLUTManager, HasItsStartValues) {
    const ColourMaps maps({});
    WCLUTManager clut(maps);
    EXPECT_EQ(clut.sliceCount, 1);
    EXPECT_TRUE(clut.uniformRandom);
    EXPECT_EQ(clut.currentSlot, 0);
    EXPECT_EQ(clut.lastSlot, 0);
    EXPECT_EQ(clut.request, 2);
    EXPECT_EQ(clut.fadeLevel, 0);
    EXPECT_EQ(clut.fadeStep, 3);
    EXPECT_EQ(clut.changeTime, 0.0);
    EXPECT_EQ(clut.changePeriod, 0.0);
    EXPECT_EQ(clut.newTable, ColourTable{});
    EXPECT_EQ(clut.oldTable, ColourTable{});
    EXPECT_EQ(clut.proc, nullptr);
    EXPECT_EQ(clut.MapName(), "");
    clut.Init();
    EXPECT_EQ(clut.sliceCount, 2);
}

} // namespace
} // namespace orvane::zephor
