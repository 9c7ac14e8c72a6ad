// What a viewer expects of the maps: dark where nothing is, bright where the music is, no edges by accident,
// and each another one.
#include "zephor/colourmaps/AllColourMaps.h"
#include "zephor/colourmaps/FixedTables.h"

#include "platform/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace orvane::zephor {
namespace {

struct Strip {
    std::int32_t id;
    std::string name;
    ColourTable table;
};

// All maps as they are half a minute after the start, with one run of random parameters.
std::vector<Strip> Strips() {
    platform::SeedRand(1);
    std::vector<Strip> strips;
    for (std::int32_t id = 0; id <= 10; ++id)
        strips.push_back({ id, "table", *AllColourMaps().FindFixed(id) });
    for (const auto& [id, map] : AllColourMaps().Computed()) {
        map->Reset(25.0f);
        Strip& strip = strips.emplace_back(Strip{ id, map->name, {} });
        for (std::size_t i = 0; i < kColourEntries; ++i) map->Map(float(i) / 255.0f, strip.table[i].data());
    }
    return strips;
}

int Brightest(const ColourBytes& colour) {
    return *std::ranges::max_element(colour);
}

int Distance(const ColourBytes& a, const ColourBytes& b) {
    int most = 0;
    for (std::size_t c = 0; c < a.size(); ++c) most = std::max(most, std::abs(a[c] - b[c]));
    return most;
}

TEST(Looks, EntryZeroIsBlackButForTheThreeThatAreMeantOtherwise) {
    const std::set<std::int32_t> colouredGround = { 8, 14, 17 };
    for (const Strip& strip : Strips()) {
        if (!colouredGround.contains(strip.id)) {
            EXPECT_LE(Brightest(strip.table[0]), 2) << strip.name;
        }
    }
}

TEST(Looks, TheBrightEndIsBright) {
    for (const Strip& strip : Strips()) {
        if (strip.id != 14) { // its brightness comes and goes with time
            EXPECT_GE(Brightest(strip.table[255]), 240) << strip.name;
        }
    }
}

TEST(Looks, NeighbouringIntensitiesHaveNeighbouringColours) {
    // The jellyfish has a line; two lose all their saturation in the last step.
    constexpr std::int32_t kJellyfish = 46, kAqua = 11, kGreen = 19;
    for (const Strip& strip : Strips()) {
        if (strip.id == kJellyfish) continue;
        const std::size_t last = strip.id == kAqua || strip.id == kGreen ? 254 : 255;
        for (std::size_t i = 1; i <= last; ++i)
            EXPECT_LE(Distance(strip.table[i - 1], strip.table[i]), 20)
                << strip.id << ' ' << strip.name << " entry " << i;
    }
}

TEST(Looks, NoTwoMapsLookAlike) {
    const std::vector<Strip> strips = Strips();
    for (std::size_t a = 0; a < strips.size(); ++a)
        for (std::size_t b = a + 1; b < strips.size(); ++b) {
            int sum = 0;
            for (std::size_t i = 0; i < kColourEntries; ++i)
                sum += Distance(strips[a].table[i], strips[b].table[i]);
            EXPECT_GE(sum / int(kColourEntries), 10) << strips[a].name << " and " << strips[b].name;
        }
}

TEST(Looks, NamesKeepTheirPromise) {
    const std::vector<Strip> strips = Strips();

    struct Promise {
        std::int32_t id;
        std::size_t channel; // the strongest at half the intensity
    };

    constexpr std::size_t kRed = 0, kGreen = 1, kBlue = 2;
    for (const Promise& promise :
         { Promise{ 18, kRed }, Promise{ 20, kRed }, Promise{ 24, kRed }, //
           Promise{ 42, kRed }, Promise{ 50, kRed }, Promise{ 55, kRed }, Promise{ 19, kGreen },
           Promise{ 30, kGreen }, Promise{ 44, kGreen }, Promise{ 65, kGreen }, Promise{ 28, kBlue },
           Promise{ 37, kBlue }, Promise{ 43, kBlue }, Promise{ 51, kBlue } }) {
        const Strip& strip = strips[std::size_t(promise.id)];
        const ColourBytes& middle = strip.table[128];
        EXPECT_EQ(std::size_t(std::ranges::max_element(middle) - middle.begin()), promise.channel)
            << strip.name;
    }
}

struct Stop {
    std::size_t place;
    ColourBytes colour;
};

void ExpectStops(std::size_t id, const std::vector<Stop>& stops) {
    for (const Stop& stop : stops) EXPECT_EQ(FixedTables()[id][stop.place], stop.colour) << id;
}

TEST(FixedTables, RunThroughTheStopsThatAreGiven) {
    ExpectStops(0, { { 0, { 0, 0, 0 } },
                     { 64, { 0, 200, 252 } },
                     { 128, { 84, 252, 252 } },
                     { 255, { 228, 228, 255 } } });
    ExpectStops(8, { { 0, { 219, 0, 0 } }, { 128, { 123, 3, 3 } }, { 255, { 0, 0, 255 } } });
    ExpectStops(
        3,
        { { 0, { 0, 0, 0 } }, { 72, { 0, 0, 168 } }, { 150, { 56, 132, 12 } }, { 255, { 252, 252, 252 } } });
}

TEST(FixedTables, RunInStraightLinesBetweenStops) {
    // A quarter of the way from black to (0, 200, 252), and half of the way on to (84, 252, 252).
    ExpectStops(0, { { 16, { 0, 50, 63 } }, { 96, { 42, 226, 252 } } });
    // A third of 105 entries from (56, 132, 12) to (252, 252, 252): 121.3, 172, 92.
    ExpectStops(3, { { 185, { 121, 172, 92 } } });
}

} // namespace
} // namespace orvane::zephor
