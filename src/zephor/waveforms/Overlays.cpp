#include "zephor/waveforms/Overlays.h"

#include "platform/Random.h"
#include "zephor/layers/DefaultGenerator.h"
#include "zephor/math/Single.h"
#include "zephor/registry/Selection.h"
#include "zephor/registry/WaveformChoice.h"
#include "zephor/waveforms/ParkPosition.h"

#include <algorithm>
#include <limits>
#include <span>

namespace orvane::zephor {

namespace {

constexpr double kSecondsBetweenDraws = 0.5;
constexpr double kSecondsBetweenDrawsOnHold = 0.016666666666666666;
constexpr float kChanceOfFirst = 0.04f;
constexpr float kChanceExponent = -1.55f; // of the number of overlays that there would be
constexpr std::uint32_t kSecondsDrawn = 12, kLeastSeconds = 4;
constexpr float kApproachPerSecond = 0.25f, kApproachExponent = 0.03f;

// KEEP: takes a slot that is in use, and never a free one. A new overlay so replaces the first that runs, the
// count grows beyond the slots in use, and once every slot has ended no overlay comes any more. That is how an
// evening of it looks. Pinned by Overlays.ANewOneTakesTheFirstSlotInUseAndNeverAFreeOne.
std::size_t FirstSlotInUse(const ZephorOverlaySet& set) {
    const auto inUse =
        std::ranges::find_if(set.indices, [](auto index) { return index != ZephorOverlaySet::kFree; });
    return std::size_t(inUse - set.indices.begin());
}

std::int32_t IndexFor(const ZephorOverlaySet& set, std::size_t slot, const OverlayRules& rules,
                      const Waveforms& waveforms) {
    if (rules.changesHeld) return set.recent[slot];
    const auto recent = std::span(set.recent).first(std::size_t(set.activeCount));
    return ChooseOverlayIndex(waveforms.ListLengths(), recent);
}

// With today's default generator: 12 seconds, and no drift.
void FillSlot(ZephorOverlaySlot& slot, double time, std::uint32_t decider) {
    slot.startTime = time;
    slot.started = false;
    slot.colorCap = ZephorOverlaySlot::kFullColour;
    slot.strength = 1;
    slot.endTime = time + double(decider % kSecondsDrawn + kLeastSeconds);
    slot.drift = std::int32_t(decider) >= 0;
    if (!slot.drift) return;
    const ParkPosition target = DrawParkPosition(decider);
    slot.targetX = target.x;
    slot.targetY = target.y;
}

void StartOverlay(ZephorOverlaySet& set, double time, const OverlayRules& rules, const Waveforms& waveforms) {
    set.nextCheckTime = time + (rules.hold ? kSecondsBetweenDrawsOnHold : kSecondsBetweenDraws);
    const float draw = DrawUnit();
    if (!(draw < single::Pow(float(set.activeCount + 1), kChanceExponent) * kChanceOfFirst)) return;
    const std::size_t slot = FirstSlotInUse(set);
    if (slot == set.slots.size()) return;
    ++set.activeCount;
    const std::int32_t index = IndexFor(set, slot, rules, waveforms);
    set.indices[slot] = set.recent[slot] = index;
    FillSlot(set.slots[slot], time, DefaultGeneratorValue());
}

float StrengthAfter(double seconds) {
    const float strength = 1.0f - single::Pow(float(seconds) * kApproachPerSecond, kApproachExponent);
    return strength > 0 ? strength : 0; // also of a time before the start, where there is no such power
}

// True if the overlay has ended.
// KEEP: the cap of a slot that never had an overlay starts at 0 and falls below, so that slot never ends: it draws
// the first waveform from the moment the first overlay starts. It stops at the lowest number, after a year or so.
// Pinned by Overlays.TheCapOfASlotThatWasNeverUsedRunsOnBelowZero.
bool FadeOut(ZephorOverlaySlot& slot) {
    if (slot.colorCap > std::numeric_limits<std::int32_t>::min()) --slot.colorCap;
    return slot.colorCap == 0;
}

} // namespace

void UpdateOverlays(ZephorOverlaySet& set, const WaveformFrame& frame, const OverlayRules& rules,
                    const Waveforms& waveforms) {
    if (set.activeCount < ZephorOverlaySet::kSlots && frame.time > set.nextCheckTime)
        StartOverlay(set, frame.time, rules, waveforms);
    if (set.activeCount <= 0) return;
    frame.target.BeginDraw();
    for (std::size_t i = 0; i < set.slots.size(); ++i) {
        ZephorOverlaySlot& slot = set.slots[i];
        if (set.indices[i] == ZephorOverlaySet::kFree) continue;
        slot.strength = StrengthAfter(frame.time - slot.startTime);
        if (AsyncWaveFormFunctor* waveform = ResolveOverlayWaveform(waveforms, set.indices[i]))
            DrawOverlay(slot, *waveform, frame);
        if (frame.time > slot.endTime && FadeOut(slot)) {
            set.indices[i] = ZephorOverlaySet::kFree;
            --set.activeCount;
        }
    }
    frame.target.EndDraw();
}

} // namespace orvane::zephor
