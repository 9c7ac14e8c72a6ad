// Three lists of test waveforms (3, 4 and 13 of them), and a set of overlays.
#pragma once

#include "WaveformFixture.h"

#include "support/ScriptedRand.h"
#include "zephor/waveforms/Overlays.h"

#include <cmath>
#include <memory>
#include <vector>

namespace orvane::zephor {

class OverlayFixture : public WaveformFixture {
protected:
    OverlayFixture() {
        for (int i = 0; i < kAll; ++i) {
            mObjects.push_back(std::make_unique<tests::TestWaveform>());
            mObjects.back()->mStep = tests::kOneSample;
            mPointers.push_back(mObjects.back().get());
        }
    }

    static constexpr int kAll = 20, kList1 = 3, kList2 = 4;

    [[nodiscard]] Waveforms Lists() const {
        const std::span<AsyncWaveFormFunctor* const> all(mPointers);
        return Waveforms({ all.first(kList1), all.subspan(kList1, kList2), all.subspan(kList1 + kList2) });
    }

    void Update(const OverlayRules& rules = {}) { UpdateOverlays(mSet, Frame(), rules, Lists()); }

    // A draw that lets an overlay start, the band, and a place within the band. (Rand() * 3.051851e-05.)
    static void ScriptStart(double band, double place) {
        const auto near = [](double unit) {
            const int number = int(unit * 32767);
            return tests::RandRange{ std::max(0, number - 150), std::min(32767, number + 150) };
        };
        tests::ScriptRand({ tests::RandRange{ 0, 200 }, near(band), near(place) });
    }

    // A set with nothing but one overlay, in slot 0; no other one can start.
    ZephorOverlaySlot& OnlyOverlay(std::int32_t index, double startTime) {
        mSet.activeCount = 1;
        mSet.nextCheckTime = 1e9;
        mSet.indices = { index, ZephorOverlaySet::kFree, ZephorOverlaySet::kFree };
        ZephorOverlaySlot& slot = mSet.slots[0];
        slot.colorCap = ZephorOverlaySlot::kFullColour;
        slot.startTime = startTime;
        slot.endTime = startTime + 12;
        return slot;
    }

    tests::TestWaveform& Waveform(int index) { return *mObjects[std::size_t(index)]; }

    std::vector<std::unique_ptr<tests::TestWaveform>> mObjects;
    std::vector<AsyncWaveFormFunctor*> mPointers;
    ZephorOverlaySet mSet;
};

} // namespace orvane::zephor
