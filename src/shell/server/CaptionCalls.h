// What the caption strip is drawn with, in one table, so that a test can bring its own.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

namespace orvane::render {
class IRenderer2D;
class ITextFormat;
} // namespace orvane::render

namespace orvane::shell {

constexpr std::uint32_t kRenderTargetMade = 1; // the status of success

struct CaptionCalls {
    // A canvas on the window, of that size in pixels; null if it can't be made, and then another status than
    // success.
    std::unique_ptr<render::IRenderer2D> (*createRenderTarget)(std::uint32_t width, std::uint32_t height,
                                                               HWND window, std::uint32_t* status);

    // The strip's font, `size` in device-independent pixels; null if it can't be had.
    std::unique_ptr<render::ITextFormat> (*createTextFormat)(float size);
};

// Direct2D and DirectWrite.
extern const CaptionCalls kPlatformCaptionCalls;

} // namespace orvane::shell
