// Carries the window in which the classic visualizer draws.
#pragma once

#include "visualizer/PlatformVisualizerDelegate.h"

namespace orvane::zephor {

class ZephorWinVizDelegate final : public visualizer::PlatformVisualizerDelegate {
public:
    explicit ZephorWinVizDelegate(platform::NativeWindow window)
        : mWindow(window) {}

    platform::NativeWindow GetWindowHandle() override { return mWindow; }

private:
    platform::NativeWindow mWindow;
};

} // namespace orvane::zephor
