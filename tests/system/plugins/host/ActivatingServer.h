// The server of the plug-ins with one plain window, so that a player can select a visualizer and drive it through
// a whole life before the real windows come in.
#pragma once

#include "shell/server/PluginPipeServer.h"

#include <string>

namespace orvane::tests {

class ActivatingServer : public shell::PluginPipeServer {
public:
    // Scans `furtherFolder`, which ends in a backslash, in front of all else, unless it is empty.
    ActivatingServer(std::span<const shell::BuiltIn> builtIns, std::wstring furtherFolder)
        : PluginPipeServer(builtIns)
        , mFurtherFolder(std::move(furtherFolder)) {}

    // Where the visualizers draw. Made and owned by the main thread.
    void SetWindow(HWND window) { mWindow = window; }

    bool Initialize(std::uint8_t messageMode) override;
    bool ActivateVisualizer() override;
    void ActivateProxyWindowInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                         std::uint32_t d) override;
    void DeactivateVisualizerOnMainThread() override;
    void ResizeRenderTarget(std::uint32_t width, std::uint32_t height) override;

private:
    const std::wstring mFurtherFolder;
    HWND mWindow = nullptr;
};

} // namespace orvane::tests
