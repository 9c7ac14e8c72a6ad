#include "zephor/colours/WCLUTManager.h"

#include "zephor/colours/PackedColour.h"

namespace orvane::zephor {

namespace {

constexpr float kByteUnit = 0.003921569f; // 1 / 255

// `level` parts of 255 of `from`, the rest of `to`, rounded. The sums are taken modulo 2^32, the result is
// their byte.
std::uint8_t Blend(std::uint8_t from, std::uint8_t to, std::int32_t level) {
    constexpr std::uint32_t kHalf = 128;
    const std::uint32_t d = (std::uint32_t(from) - std::uint32_t(to)) * std::uint32_t(level) + kHalf;
    return std::uint8_t(to + (((d >> 8) + d) >> 8));
}

} // namespace

void WCLUTManager::Init() {
    sliceCount = 2;
}

void WCLUTManager::ShowEntry(std::size_t i, const ColourBytes& from, const ColourBytes& to) {
    ColourBytes shown{};
    for (std::size_t channel = 0; channel < shown.size(); ++channel) {
        shown[channel] = Blend(from[channel], to[channel], fadeLevel);
        floatTable[i][channel] = float(shown[channel]) * kByteUnit;
    }
    floatTable[i][3] = 1.0f;
    table[i] = PackColour(shown);
}

void WCLUTManager::Upload() {
    clutBuffer->UpdateData(floatTable.data(), sizeof floatTable);
}

void WCLUTManager::LoadSlice(ColourTable& oldColours, ColourTable& newColours, std::size_t first,
                             std::size_t count) {
    float value = float(first) / 255.0f;
    for (std::size_t i = first; i < first + count; ++i, value += kByteUnit) {
        proc->Map(value, newColours[i].data());
        oldColours[i] = UnpackColour(table[i]);
        ShowEntry(i, oldColours[i], newColours[i]);
    }
}

void WCLUTManager::LoadMap(ColourTable& oldColours, ColourTable& newColours) {
    if (!clutBuffer || !proc) return;
    const std::size_t perSlice = kColourEntries / static_cast<std::size_t>(sliceCount);
    for (std::size_t first = 0; first + perSlice <= kColourEntries; first += perSlice)
        LoadSlice(oldColours, newColours, first, perSlice);
    Upload();
}

void WCLUTManager::BlendStep(const ColourTable& oldColours, const ColourTable& newColours) {
    if (!clutBuffer) return;
    for (std::size_t i = 0; i < kColourEntries; ++i) ShowEntry(i, oldColours[i], newColours[i]);
    Upload();
}

} // namespace orvane::zephor
