// The classic visualizer as a plug-in of the host.
//
// Parked texts are kept and give the title, as for every built-in. A visualizer that runs goes on with the texts that
// it was made with: it reads the list at its creation alone, by its fixed numbering.
#pragma once

#include "plugins/internal/InternalVisualPlugIn.h"

namespace orvane::plugins {

class Z_InternalVisualPlugIn : public InternalVisualPlugIn {
public:
    // Its fixed name is "Orvane Classic Visualizer"; a title comes when one is parked.
    Z_InternalVisualPlugIn()
        : InternalVisualPlugIn(PlugInKind::kZephor) {
        SetName(u"Orvane Classic Visualizer");
    }

    bool ActivateInWindow(platform::NativeWindow window) override;

protected:
    ~Z_InternalVisualPlugIn() = default;
};

} // namespace orvane::plugins
