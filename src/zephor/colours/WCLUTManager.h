// The colour manager that hands its table to the graphics processor.
#pragma once

#include "zephor/colours/CLUTManager.h"

namespace orvane::zephor {

class WCLUTManager final : public CLUTManager {
public:
    using CLUTManager::CLUTManager;

    // Tables are loaded in two parts.
    void Init() override;

    // Both upload 4096 bytes to `clutBuffer`; without it they do nothing.
    void LoadMap(ColourTable& oldColours, ColourTable& newColours) override;
    void BlendStep(const ColourTable& oldColours, const ColourTable& newColours) override;

private:
    void LoadSlice(ColourTable& oldColours, ColourTable& newColours, std::size_t first, std::size_t count);
    void ShowEntry(std::size_t i, const ColourBytes& from, const ColourBytes& to);
    void Upload();
};

} // namespace orvane::zephor
