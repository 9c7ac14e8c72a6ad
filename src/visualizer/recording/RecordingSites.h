// The construction sites of native programs and of tests: renderers and canvases that only record.
#pragma once

#include "platform/NativeWindow.h"
#include "render/recording/DrawingLog.h"
#include "render/recording/RecordingRenderer.h"

#include <memory>

namespace orvane::visualizer {

// What a test decides, and what it sees. One for the process; plain, for one thread at a time.
struct RecordingSites {
    bool refuseRenderer = false, refuseSurface = false, refuseTextFormat = false;
    bool refuseVertexBuffer = false;  // of the next renderers, from their first buffer on
    render::RecordingOptions options; // of the next renderers; their size is what is asked for
    platform::NativeWindow lastWindow;
    std::shared_ptr<render::DrawingLog> drawing = std::make_shared<render::DrawingLog>(); // of all canvases
};

[[nodiscard]] RecordingSites& SitesInForce();

} // namespace orvane::visualizer
