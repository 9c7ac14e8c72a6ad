#include "zephor/colours/CLUTManager.h"

#include "zephor/colours/PackedColour.h"
#include "zephor/registry/PresetTable.h"
#include "zephor/registry/Selection.h"

namespace orvane::zephor {

namespace {

// A draw of Rand() times `scale`, plus `first`: a range of slots. Its largest value rounds up to the slot
// behind the range.
struct SlotRange {
    float scale, first;

    [[nodiscard]] float Draw() const { return float(platform::Rand()) * scale + first; }
};

constexpr SlotRange kAllSlots = { 0.0019531846f, 0.0f };    // 0 to 63
constexpr SlotRange kUpperSlots = { 0.00012207404f, 0.0f }; // 0 to 3
constexpr SlotRange kMiddleSlots = { 9.155553e-05f, 4.0f }; // 4 to 6
constexpr SlotRange kLowerSlots = { 0.0013122959f, 21.0f }; // 21 to 63

const SlotRange& RangeOf(float band) {
    if (band >= kUpperBand) return kUpperSlots;
    return band >= kMiddleBand ? kMiddleSlots : kLowerSlots;
}

// Past either end the slots go on at the other.
std::int32_t Wrapped(std::int32_t slot) {
    constexpr auto kLast = std::int32_t(kRotationSlots) - 1;
    if (slot < 0) return kLast;
    return slot > kLast ? 0 : slot;
}

// `level` parts of 255 of `from`, the rest of `to`, rounded.
std::uint32_t Mix(std::uint8_t from, std::uint8_t to, std::int32_t level) {
    constexpr std::int32_t kFull = 255, kHalf = 128, kTimes257 = 257; // times 257 / 65536: by 255
    return std::uint32_t((to * (kFull - level) + from * level + kHalf) * kTimes257 / 65536);
}

} // namespace

CLUTManager::CLUTManager(const ColourMaps& maps)
    : mMaps(maps) {}

CLUTManager::~CLUTManager() = default;

bool CLUTManager::MaySelect(std::uint32_t flags, std::int32_t changeMode, double now) const {
    const bool force = flags & kSelect_Force;
    if (changeMode == kChangeMode_Held && request == 0 && !force) return false;
    if ((flags & kSelect_Immediate) || (force && request != 0)) return true;
    return changeMode != kChangeMode_Held && now > changeTime && fadeLevel == 0;
}

std::int32_t CLUTManager::ChooseSlot(float band) {
    std::int32_t slot = 0;
    do {
        slot = static_cast<std::int32_t>((uniformRandom ? kAllSlots : RangeOf(band)).Draw());
        if (request != 0) {
            slot = WrappingSum(request, lastSlot);
            lastSlot = kNoIndex;
        }
        slot = Wrapped(slot);
    } while (slot == lastSlot);
    return slot;
}

void CLUTManager::SelectColorMap(double now, std::uint32_t flags, std::int32_t changeMode) {
    if (!MaySelect(flags, changeMode, now)) return;
    const float band = DrawUnit();
    const PresetRow* preset = FindPreset(request);
    if (!preset && request >= kFirstPreset) {
        request = 0; // past the last preset: used up, and the map stays
        return;
    }
    const std::int32_t slot = preset ? preset->colourSlot : ChooseSlot(band);
    request = 0;
    currentSlot = lastSlot = slot;
    fadeLevel = kFadeStart;
}

void CLUTManager::StepFade(double now) {
    if (fadeLevel == 0) return;
    StepColors(now);
    AdvanceFade(now);
}

void CLUTManager::StepColors(double now) {
    if (fadeLevel == kFadeStart)
        LoadCurrentSlot(now);
    else if (clutBuffer)
        BlendStep(oldTable, newTable);
    else
        MixWithoutBuffer();
}

void CLUTManager::LoadCurrentSlot(double now) {
    const std::int32_t id = rotation[static_cast<std::size_t>(currentSlot)];
    if (const ColourTable* fixed = mMaps.FindFixed(id)) {
        proc = nullptr;
        newTable = *fixed;
        for (std::size_t i = 0; i < kColourEntries; ++i) oldTable[i] = UnpackColour(table[i]);
    } else if (CLUTProc* computed = mMaps.FindComputed(id)) {
        proc = computed;
        proc->Reset(float(now));
        LoadMap(oldTable, newTable);
    }
}

void CLUTManager::MixWithoutBuffer() {
    for (std::size_t i = 0; i < kColourEntries; ++i) {
        const auto mix = [&](std::size_t channel) {
            return Mix(oldTable[i][channel], newTable[i][channel], fadeLevel);
        };
        table[i] = mix(0) << 16 | mix(1) << 8 | mix(2);
    }
}

void CLUTManager::AdvanceFade(double now) {
    fadeLevel -= fadeStep;
    if (fadeLevel >= 1) return;
    fadeLevel = 0;
    fadeStep = 1;
    changeTime = now + changePeriod;
}

std::string_view CLUTManager::MapName() const {
    return proc ? std::string_view(proc->name) : std::string_view();
}

} // namespace orvane::zephor
