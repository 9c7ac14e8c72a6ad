// The order of the lists, which is the order of the effects' indices.
#include "zephor/effects/deltafields/DeltaLists.h"

#include "platform/Random.h"
#include "unit/zephor/deltafields/NamedMember.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orvane::zephor {
namespace {

using Names = std::vector<std::string>;

Names NamesOf(std::span<const DeltaFactory> list) {
    Names names;
    for (const DeltaFactory make : list) names.push_back(make()->name);
    return names;
}

TEST(DeltaLists, FirstThreeHoldTheirMembersInOrder) {
    EXPECT_EQ(NamesOf(DeltaList1()), (Names{ "Tripping Hard", "Scattered Flow out", "Quantum Ripple" }));
    EXPECT_EQ(NamesOf(DeltaList2()),
              (Names{ "Flower Power", "Sine Multi Circ", "Simple Sine Sphere", "Sunburnt", "Hip-No-Therapy",
                      "Radial Breakaway", "Flee", "DT - Chaos" }));
    EXPECT_EQ(NamesOf(DeltaList3()),
              (Names{ "Dandelion Psyc", "Dreamscape", "Gravity Ball", "Sphere", "The MAW", "Theta Divergence",
                      "Boxilight", "Contrail", "Linear Spread", "Once Upon A Time", "Phantom Mist",
                      "SOLs Base", "SOLs Warp", "Traffic Flow" }));
}

const Names kOrderOfList4 = { "(DJK)TraverseAmbit",
                              "(MT) Vaporizelow",
                              "Claustrophobia",
                              "Collapse & Turn",
                              "Constant Out",
                              "Donut",
                              "DT - Swirl",
                              "DT - Water",
                              "Expand & Turn",
                              "Flamage",
                              "Good ol LP",
                              "In Or Out, Inner Turn",
                              "Left Turn & Flow Out",
                              "ONE",
                              "Out Of Control",
                              "Poinsettia",
                              "Psycho Disco Ball",
                              "Quantum Theta",
                              "Right Turn",
                              "Scattered Flow In",
                              "Sincos",
                              "TimeWarp",
                              "Tunnel Vision",
                              "Twister",
                              "Watery Ripples",
                              "Acid Flower",
                              "Cloverleaf",
                              "Cyclone Clouds",
                              "Horizons",
                              "In The Ring",
                              "Lovely Darts",
                              "Sea Creatures",
                              "Swirlo",
                              "Quadrupole",
                              "Mystery Box",
                              "Echo",
                              "Fiber Optic Nerve",
                              "Great Minds",
                              "Bizarre Star",
                              "Centrifugal",
                              "Wavy Converge",
                              "Crop Spiral",
                              "Paint Spinner",
                              "RChaos2",
                              "Smoking Dandelion",
                              "Bubble Tunnel",
                              "Wavy Diverge",
                              "Diamonds",
                              "Diamond Tiled Tunnel",
                              "Dual Spirals",
                              "Wild Fire",
                              "Theta Divergence",
                              "Rings",
                              "Sun Sine Ray",
                              "Tornado",
                              "Supernova",
                              "Unfolding Before You",
                              "Vortex",
                              "Warpo Tunnel",
                              "Whoo! Whoo!",
                              "(DJK)Lemming's Water",
                              "Directed Spread",
                              "6 Feet Under",
                              "Drawn and Quartered",
                              "DT - Boxes",
                              "DT - Horizon",
                              "Eyes",
                              "Flamin Ice Cubes",
                              "Fractal sweetness",
                              "Freezymelt",
                              "Gale Force Winds",
                              "Gravity",
                              "HS101 Mess",
                              "Nowhere",
                              "Sine Slide",
                              "SOLs Perspective",
                              "SOLs Point and Hang",
                              "SOLs Tinsel",
                              "SOLs Torch",
                              "SOLs Waves",
                              "Swirly",
                              "Tiles",
                              "Waterfall of Life",
                              "Wet Paint",
                              "Cluster Swirlz",
                              "Rolling Hills",
                              "Do Not Adjust Your Set",
                              "Dynamic",
                              "Julia Seahorse",
                              "LDZ -04 +131",
                              "Peacock Tail",
                              "Standard Map",
                              "Sublime",
                              "Waves Of Grain",
                              "Weierstrauss Spread",
                              "Tunnel",
                              "Waves",
                              "Bizarre Tiles",
                              "I Love To Burn",
                              "The Sun",
                              "Organized Smoke",
                              "Mysterious Puddle",
                              "Psycho Linear Spread",
                              "Smoke In The Mist",
                              "Tan Turn",
                              "Concert",
                              "Focus",
                              "Incognito",
                              "Whirlpool In The Waves" };

TEST(DeltaLists, FourthHoldsItsMembersInOrder) {
    std::size_t place = 0;
    for (const std::string& name : NamesOf(DeltaList4())) {
        while (place < kOrderOfList4.size() && kOrderOfList4[place] != name) ++place;
        ASSERT_LT(place, kOrderOfList4.size()) << name << " is out of its order";
        ++place;
    }
}

const std::set<std::string> kPolar = { "Tripping Hard",
                                       "Flower Power",
                                       "Scattered Flow out",
                                       "Quantum Ripple",
                                       "Sine Multi Circ",
                                       "Simple Sine Sphere",
                                       "Sunburnt",
                                       "Dandelion Psyc",
                                       "Dreamscape",
                                       "Gravity Ball",
                                       "Hip-No-Therapy",
                                       "Radial Breakaway",
                                       "Sphere",
                                       "The MAW",
                                       "Theta Divergence",
                                       "(DJK)TraverseAmbit",
                                       "(MT) Vaporizelow",
                                       "Claustrophobia",
                                       "Collapse & Turn",
                                       "Constant Out",
                                       "Donut",
                                       "DT - Swirl",
                                       "DT - Water",
                                       "Expand & Turn",
                                       "Flamage",
                                       "Good ol LP",
                                       "In Or Out, Inner Turn",
                                       "Left Turn & Flow Out",
                                       "ONE",
                                       "Out Of Control",
                                       "Poinsettia",
                                       "Psycho Disco Ball",
                                       "Quantum Theta",
                                       "Right Turn",
                                       "Scattered Flow In",
                                       "Sincos",
                                       "TimeWarp",
                                       "Tunnel Vision",
                                       "Twister",
                                       "Watery Ripples",
                                       "Acid Flower",
                                       "Cloverleaf",
                                       "Cyclone Clouds",
                                       "Horizons",
                                       "In The Ring",
                                       "Lovely Darts",
                                       "Sea Creatures",
                                       "Swirlo",
                                       "Quadrupole",
                                       "Mystery Box",
                                       "Echo",
                                       "Fiber Optic Nerve",
                                       "Great Minds",
                                       "Bizarre Star",
                                       "Centrifugal",
                                       "Wavy Converge",
                                       "Crop Spiral",
                                       "Paint Spinner",
                                       "RChaos2",
                                       "Smoking Dandelion",
                                       "Bubble Tunnel",
                                       "Wavy Diverge",
                                       "Diamonds",
                                       "Diamond Tiled Tunnel",
                                       "Dual Spirals",
                                       "Wild Fire",
                                       "Rings",
                                       "Sun Sine Ray",
                                       "Tornado",
                                       "Supernova",
                                       "Unfolding Before You",
                                       "Vortex",
                                       "Warpo Tunnel",
                                       "Whoo! Whoo!",
                                       "Mysterious Puddle" };

TEST(DeltaLists, MembersAreOfTheirKind) {
    for (const DeltaFactory make : tests::AllDeltaFactories()) {
        const std::unique_ptr<DeltafieldFunctor> functor = make();
        EXPECT_EQ(functor->flags.isPolar, kPolar.contains(functor->name)) << functor->name;
    }
}

// Members that draw for each pixel, and the two that seed the generator, must be filled in order by one thread.
const std::set<std::string> kNotPure = { "Scattered Flow out",
                                         "Quantum Ripple",
                                         "(DJK)TraverseAmbit",
                                         "(MT) Vaporizelow",
                                         "Claustrophobia",
                                         "Good ol LP",
                                         "ONE",
                                         "Scattered Flow In",
                                         "Twister",
                                         "Cyclone Clouds",
                                         "In The Ring",
                                         "Lovely Darts",
                                         "Echo",
                                         "Fiber Optic Nerve",
                                         "Great Minds",
                                         "Paint Spinner",
                                         "Bubble Tunnel",
                                         "Vortex",
                                         "Whoo! Whoo!",
                                         "Flee",
                                         "Linear Spread",
                                         "Phantom Mist",
                                         "SOLs Warp",
                                         "Drawn and Quartered",
                                         "Eyes",
                                         "Freezymelt",
                                         "Gale Force Winds",
                                         "Gravity",
                                         "HS101 Mess",
                                         "Sine Slide",
                                         "SOLs Point and Hang",
                                         "SOLs Tinsel",
                                         "SOLs Torch",
                                         "Wet Paint",
                                         "Rolling Hills",
                                         "Do Not Adjust Your Set",
                                         "Sublime",
                                         "I Love To Burn",
                                         "Smoke In The Mist",
                                         "Focus",
                                         "DT - Chaos" };

TEST(DeltaLists, OnlyMembersWithoutDrawsArePure) {
    for (const DeltaFactory make : tests::AllDeltaFactories()) {
        const std::unique_ptr<DeltafieldFunctor> functor = make();
        EXPECT_NE(functor->IsPure(), kNotPure.contains(functor->name)) << functor->name;
    }
}

const std::set<std::string> kWithParameters = { "Flower Power",
                                                "Quantum Ripple",
                                                "Sine Multi Circ",
                                                "Sunburnt",
                                                "Dreamscape",
                                                "Sphere",
                                                "Theta Divergence",
                                                "(DJK)TraverseAmbit",
                                                "(MT) Vaporizelow",
                                                "Claustrophobia",
                                                "DT - Swirl",
                                                "DT - Water",
                                                "Flamage",
                                                "Good ol LP",
                                                "In Or Out, Inner Turn",
                                                "Quantum Theta",
                                                "Sincos",
                                                "TimeWarp",
                                                "Tunnel Vision",
                                                "Twister",
                                                "Acid Flower",
                                                "Cloverleaf",
                                                "Horizons",
                                                "Swirlo",
                                                "Quadrupole",
                                                "Mystery Box",
                                                "Bizarre Star",
                                                "Centrifugal",
                                                "Wavy Converge",
                                                "Crop Spiral",
                                                "Wavy Diverge",
                                                "Diamonds",
                                                "Diamond Tiled Tunnel",
                                                "Dual Spirals",
                                                "Rings",
                                                "Sun Sine Ray",
                                                "Unfolding Before You",
                                                "Flee",
                                                "Contrail",
                                                "SOLs Warp",
                                                "DT - Chaos",
                                                "Traffic Flow",
                                                "(DJK)Lemming's Water",
                                                "Directed Spread",
                                                "DT - Boxes",
                                                "DT - Horizon",
                                                "Eyes",
                                                "SOLs Point and Hang",
                                                "Swirly",
                                                "Tiles",
                                                "Waterfall of Life",
                                                "Rolling Hills",
                                                "Dynamic",
                                                "Peacock Tail",
                                                "Sublime",
                                                "Waves Of Grain",
                                                "Waves",
                                                "Bizarre Tiles",
                                                "I Love To Burn",
                                                "The Sun",
                                                "Organized Smoke",
                                                "Psycho Linear Spread",
                                                "Whirlpool In The Waves" };

TEST(DeltaLists, MembersWithParametersDrawThemAndOthersDrawNothing) {
    for (const DeltaFactory make : tests::AllDeltaFactories()) {
        constexpr std::uint32_t kSeed = 1234;
        platform::SeedRand(kSeed);
        const int first = platform::Rand();
        platform::SeedRand(kSeed);
        const std::unique_ptr<DeltafieldFunctor> functor = make();
        const bool drew = platform::Rand() != first;
        EXPECT_EQ(drew, kWithParameters.contains(functor->name)) << functor->name;
    }
}

TEST(DeltaLists, TwoChoicesOfOneEffectHaveDifferentParameters) {
    platform::SeedRand(3);
    const DeltaFactory make = tests::FactoryNamed("Flower Power");
    const auto first = make(), second = make();
    EXPECT_NE(first->MapPolar(0.5f, 1.0f), second->MapPolar(0.5f, 1.0f));
}

} // namespace
} // namespace orvane::zephor
