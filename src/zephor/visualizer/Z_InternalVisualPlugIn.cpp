#include "zephor/visualizer/Z_InternalVisualPlugIn.h"

#include "platform/Clock.h"
#include "zephor/visualizer/ZephorVisualizer.h"

#include <memory>

namespace orvane::plugins {

bool Z_InternalVisualPlugIn::ActivateInWindow(platform::NativeWindow window) {
    return ActivateWith(window, [&]() -> std::unique_ptr<zephor::ZephorVisualizer> {
        auto made = std::make_unique<zephor::ZephorVisualizer>(platform::NowSeconds());
        if (!made->Start(window, mLocalizedStrings)) return nullptr;
        return made;
    });
}

} // namespace orvane::plugins
