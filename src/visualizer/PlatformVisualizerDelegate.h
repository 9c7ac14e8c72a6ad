// By which a visualizer tells the framework in which window its renderer shall draw.
//
// A local object of the visualizer's creation step: it lives through the call of CreateRenderer alone.
#pragma once

#include "platform/NativeWindow.h"

#include <cstdint>

namespace orvane::visualizer {

class PlatformVisualizerDelegate {
public:
    virtual ~PlatformVisualizerDelegate() = default; // slot 0

    // Slot 1. Reserved: 0. Nobody calls it.
    virtual std::uint32_t Reserved1() { return 0; }

    // Slot 2.
    virtual platform::NativeWindow GetWindowHandle() = 0;
};

} // namespace orvane::visualizer
