// The colour table on show, the choice of the next one, and the fade between them.
//
// Time is passed in. The owner calls SelectColorMap as it sees fit and StepFade in each frame.
#pragma once

#include "render/IBufferTexture.h"
#include "zephor/colours/ColourMaps.h"
#include "zephor/colours/ColourTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace orvane::zephor {

constexpr std::size_t kRotationSlots = 64;

// The ids of the maps in the order of their slots. 14 and 15 have no slot, so those two are never shown.
inline constexpr std::array<std::int32_t, kRotationSlots> kRotation = {
    16, 17, 18, 19, 1,  11, 13, 0,  2,  3,  12, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30,
    31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52,
    53, 54, 55, 56, 57, 58, 4,  5,  6,  7,  8,  9,  10, 59, 60, 61, 62, 63, 64, 65,
};

// The level of a fade that hasn't begun: the map it leads to is loaded by the next step.
constexpr std::int32_t kFadeStart = 255;

class CLUTManager {
public:
    explicit CLUTManager(const ColourMaps& maps);
    CLUTManager(const CLUTManager&) = delete;
    CLUTManager& operator=(const CLUTManager&) = delete;

    // Slots 0 to 3, the destructor's among them.
    virtual void Init() {}

    // Fills `newColours` from the map loaded last, `oldColours` from the table on show, and blends.
    virtual void LoadMap(ColourTable& oldColours, ColourTable& newColours) = 0;
    virtual ~CLUTManager();
    // Makes the table on show from the two, by the level of the fade.
    virtual void BlendStep(const ColourTable& oldColours, const ColourTable& newColours) = 0;

    // Chooses the next map and starts the fade to it, if the time for it has come or `flags` say so.
    // `now` in seconds; `flags` are of SelectionFlag; `changeMode` is the visualizer's.
    void SelectColorMap(double now, std::uint32_t flags, std::int32_t changeMode);

    // A frame's share of the fade, if one runs: StepColors and then AdvanceFade.
    void StepFade(double now);

    // Loads the map or blends, by the level, which isn't 0. `now` in seconds, for maps that depend on time.
    void StepColors(double now);

    // Lowers the level; at its end the next change is due `changePeriod` after `now`.
    void AdvanceFade(double now);

    // The display name of the map on show or faded to; empty for a fixed table.
    [[nodiscard]] std::string_view MapName() const;

    std::array<std::int32_t, kRotationSlots> rotation = kRotation;
    std::int32_t sliceCount = 1;                        // a table is loaded in this many parts
    bool uniformRandom = true;                          // any slot with equal chance, rather than by bands
    std::int32_t currentSlot = 0;                       // index into `rotation`
    std::int32_t lastSlot = 0;                          // the slot chosen last
    std::int32_t request = 2;                           // Selection.h
    std::int32_t fadeLevel = 0;                         // kFadeStart, then falling to 0
    std::int32_t fadeStep = 3;                          // each frame's; 1 after the first fade
    double changeTime = 0.0;                            // seconds; the next map is due then
    double changePeriod = 0.0;                          // seconds
    ColourTable newTable{};                             // target of the fade
    ColourTable oldTable{};                             // its source
    std::array<std::uint32_t, kColourEntries> table{};  // on show, as 0x00RRGGBB
    std::unique_ptr<render::IBufferTexture> clutBuffer; // deleted before the renderer that made it
    CLUTProc* proc = nullptr;                           // the map loaded last; null for a fixed table
    std::array<std::array<float, 4>, kColourEntries> floatTable{}; // on show, red, green, blue, 1; 0 to 1

private:
    [[nodiscard]] bool MaySelect(std::uint32_t flags, std::int32_t changeMode, double now) const;
    [[nodiscard]] std::int32_t ChooseSlot(float band);
    void LoadCurrentSlot(double now);
    void MixWithoutBuffer();

    const ColourMaps& mMaps;
};

} // namespace orvane::zephor
