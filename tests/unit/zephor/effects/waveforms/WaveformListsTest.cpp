#include "zephor/effects/waveforms/WaveformLists.h"

#include "zephor/effects/waveforms/Nothing.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>
#include <vector>

namespace orvane::zephor {
namespace {

// What an effect is registered as.
struct Row {
    std::string_view name;
    int lineCount;
    bool usesAsyncMap, connectPoints, drawDots, fillDots, fullFrame;
};

constexpr Row kRows[] = {
    // name             lines async  conn.  dots   filled full
    { "Radar Sweep", 1, true, true, false, false, true },
    { "Big And Banded", 1, true, true, false, false, false },
    { "Random Corridor", 2, true, true, false, false, false },
    { "DT Sine Dot", 3, true, false, true, true, false },
    { "DT Wild", 1, true, true, false, false, false },
    { "Hour glass", 3, true, false, false, false, true },
    { "Double Helix", 2, true, true, false, false, true },
    { "DT Zoom Planet", 11, false, true, false, false, true },
    { "Attack", 4, true, false, true, true, false },
    { "Explosion1", 1, true, false, false, false, false },
    { "Falling Orbs", 1, true, false, true, true, false },
    { "Default Waveform", 2, true, true, false, false, false },
    { "Kaleidoscope", 8, true, false, false, false, false },
    { "Example Spectrum", 2, true, true, false, false, false },
    { "Null", 0, true, false, false, false, false },
    { "Null", 3, true, true, false, false, true },
    { "Particle Pulse", 1, true, false, false, false, true },
};

std::vector<AsyncWaveFormFunctor*> All() {
    std::vector<AsyncWaveFormFunctor*> all;
    for (const WaveformList list : { WaveformList1(), WaveformList2(), WaveformList3() })
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

TEST(WaveformLists, HoldEachEffectInItsPlaceAndForm) {
    const auto all = All();
    ASSERT_EQ(all.size(), std::size(kRows));
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i]->name, kRows[i].name);
        EXPECT_EQ(all[i]->lineCount, kRows[i].lineCount) << all[i]->name;
        EXPECT_EQ(all[i]->usesAsyncMap, kRows[i].usesAsyncMap) << all[i]->name;
        EXPECT_EQ(all[i]->connectPoints, kRows[i].connectPoints) << all[i]->name;
        EXPECT_EQ(all[i]->drawDots, kRows[i].drawDots) << all[i]->name;
        EXPECT_EQ(all[i]->fillDots, kRows[i].fillDots) << all[i]->name;
        EXPECT_EQ(all[i]->fullFrame, kRows[i].fullFrame) << all[i]->name;
        EXPECT_EQ(all[i]->passCount, 1) << all[i]->name;
    }
}

TEST(WaveformLists, List1HasThreeAndList2FourEffects) {
    EXPECT_EQ(WaveformList1().size(), 3u);
    EXPECT_EQ(WaveformList2().size(), 4u);
}

TEST(WaveformLists, AnEffectIsOneObjectForEver) {
    EXPECT_EQ(All(), All());
    const auto all = All();
    EXPECT_EQ(std::set<AsyncWaveFormFunctor*>(all.begin(), all.end()).size(), all.size());
}

TEST(WaveformLists, AnIndexCountsThroughAllLists) {
    EXPECT_EQ(ResolveWaveform(WaveformLists(), 0)->name, "Radar Sweep");
    EXPECT_EQ(ResolveWaveform(WaveformLists(), 2)->name, "Random Corridor");
    EXPECT_EQ(ResolveWaveform(WaveformLists(), 3)->name, "DT Sine Dot");
    EXPECT_EQ(ResolveWaveform(WaveformLists(), 7)->name, "DT Zoom Planet");
}

TEST(WaveformLists, AnIndexPastTheEndIsNoneOrForOverlaysTheFirst) {
    const auto end = std::int32_t(All().size());
    EXPECT_EQ(ResolveWaveform(WaveformLists(), end), nullptr);
    EXPECT_EQ(ResolveWaveform(WaveformLists(), -1), nullptr);
    EXPECT_EQ(ResolveOverlayWaveform(WaveformLists(), end)->name, "Radar Sweep");
}

TEST(Null, IsOffTheScreen) {
    const WaveFormContext context;
    WaveFormPoint point;
    NullWaveformFunctor().MapPointAsync(context, point);
    EXPECT_EQ(point.x, -2);
    EXPECT_EQ(point.y, -2);
    point = {};
    NullFunctor().MapPointAsync(context, point);
    EXPECT_EQ(point.x, -2);
    EXPECT_EQ(point.y, -2);
}

} // namespace
} // namespace orvane::zephor
