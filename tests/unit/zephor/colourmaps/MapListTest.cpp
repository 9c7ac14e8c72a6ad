#include "zephor/colourmaps/AllColourMaps.h"

#include "zephor/colours/CLUTManager.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string_view>

namespace orvane::zephor {
namespace {

constexpr std::string_view kNames[] = {
    "Aqua",
    "Color Gap",
    "Hue Wheel",
    "Spectrologist Assistant",
    "Bizzaro",
    "DT - Wild West End",
    "Muted Middle",
    "Firestorm",
    "Green",
    "DT - Lake of Fire",
    "Color Gap - Purity",
    "Color Gap - Sunshine",
    "Bizzaro",
    "Brood",
    "Dali",
    "Dark Rainbow",
    "Daydream",
    "DT - Antarctis",
    "DT - Glows",
    "DT - Green Fish",
    "DT - Honor",
    "DT - Metal",
    "DT - Neon Knights",
    "DT - November Rain",
    "DT - Ocean Club",
    "DT - Plastic",
    "DT - Purple Haze",
    "Electric Acid",
    "Hero",
    "Hero 3",
    "Ice Nightshade",
    "Lust",
    "Midnight Dream",
    "Mononoke",
    "Mystery Unveiled - Dim",
    "Mystery Unveiled - Jellyfish",
    "Old Glory",
    "Orange to Blue",
    "Primarily Mine",
    "Punkin'",
    "Purple and Blues",
    "Purple and Blues II",
    "Scythe",
    "Solar Winds",
    "Strawberry",
    "Strawberry Dreams",
    "Sunchemicals From A Queen Bee",
    "Teal",
    "Silver Machine",
    "Juice",
    "Latium",
    "Primarily Mine - I",
    "Purple Ghost",
    "QuickSilver",
    "Radioactive",
};

TEST(AllColourMaps, Ids11To65HaveTheirDisplayNames) {
    ASSERT_EQ(AllColourMaps().Computed().size(), std::size(kNames));
    std::int32_t id = 11;
    for (const std::string_view name : kNames) {
        const CLUTProc* map = AllColourMaps().FindComputed(id);
        ASSERT_NE(map, nullptr) << id;
        EXPECT_EQ(map->name, name);
        EXPECT_EQ(map->id, id++);
    }
}

TEST(AllColourMaps, Ids0To10AreFixedTables) {
    for (std::int32_t id = 0; id <= 10; ++id) EXPECT_NE(AllColourMaps().FindFixed(id), nullptr) << id;
    EXPECT_EQ(AllColourMaps().FindFixed(11), nullptr);
}

TEST(AllColourMaps, EveryIdOfTheRotationHasAMap) {
    for (const std::int32_t id : kRotation)
        EXPECT_NE(AllColourMaps().FindFixed(id) != nullptr, AllColourMaps().FindComputed(id) != nullptr)
            << id;
}

TEST(AllColourMaps, AllButTheFourWithRandomParametersAreInRotation) {
    const std::set<std::int32_t> random = { 12, 15, 45, 46 };
    for (const auto& [id, map] : AllColourMaps().Computed()) {
        EXPECT_EQ(map->inRotation, !random.contains(id)) << map->name;
        EXPECT_EQ(dynamic_cast<ClutWithReset*>(map) != nullptr, random.contains(id)) << map->name;
    }
}

TEST(AllColourMaps, ResetStoresTheTime) {
    for (const auto& [id, map] : AllColourMaps().Computed()) {
        map->Reset(float(id) + 0.5f);
        EXPECT_EQ(map->time, float(id) + 0.5f);
    }
}

} // namespace
} // namespace orvane::zephor
