// Through which a built-in's key handler speaks back to its plug-in. Its commands end here: they are heard,
// with a line, and no further action comes of them.
#pragma once

#include "visualizer/IVisualizerCommandReceiver.h"

namespace orvane::plugins {

class InternalVisualPlugIn;

class InternalVisualPlugInCommandReceiver final : public visualizer::IVisualizerCommandReceiver {
public:
    explicit InternalVisualPlugInCommandReceiver(InternalVisualPlugIn* plugIn)
        : mPlugIn(plugIn) {}

    void ResetTrackChangeTime() override;
    void SetTrackInfoToDisplayAlways(bool always) override;
    void HelpToggled(bool shown) override;
    void ToggleConfigDisplay() override;
    void FPSToggled() override;

    [[nodiscard]] InternalVisualPlugIn* PlugIn() const { return mPlugIn; }

private:
    InternalVisualPlugIn* mPlugIn;
};

} // namespace orvane::plugins
