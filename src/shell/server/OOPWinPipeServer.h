// The server that the process makes: a server of the plug-ins that owns the windows. A borderless top-level
// window with a caption strip that it draws itself, and inside it the proxy window, in which plug-ins draw.
//
// Showing, hiding and full screen run on the service thread although the windows belong to the main thread:
// a request may not wait for a window message. SetFullScreen isn't protected, so a request and a key can
// run it at once.
#pragma once

#include "platform/OwnedMutex.h"
#include "shell/server/CaptionCalls.h"
#include "shell/server/PluginPipeServer.h"

#include <memory>

namespace orvane::render {
class IBitMap2D;
}

namespace orvane::shell {

class OOPWinPipeServer : public PluginPipeServer {
public:
    explicit OOPWinPipeServer(std::span<const BuiltIn> builtIns, const PipeCalls& calls = kPlatformPipeCalls,
                              const CaptionCalls& captionCalls = kPlatformCaptionCalls);

    // Releases the render target and the icons. The windows stay.
    ~OOPWinPipeServer() override;

    // Makes the windows, if they aren't there yet, the render target and the icons anew, and goes on with the
    // plug-ins. A window that can't be made has its line and doesn't stop the server.
    bool Initialize(std::uint8_t messageMode) override;      // 1
    bool ShowVisualizerWindow() override;                    // 6
    bool ShowVisualizerWindowAndSelectVisualizer() override; // 7
    bool HideVisualizerWindow() override;                    // 8
    bool EnterFullscreen() override;                         // 9
    bool ExitFullscreen() override;                          // 10
    bool PostMessageToConsole() override;                    // 11
    void StartVisualizerWithTrackParam() override;           // 14
    void DeactivateVisualizerOnMainThread() override;        // 23
    bool ActivateVisualizer() override;                      // 26
    void ActivateProxyWindowInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                         std::uint32_t d) override;              // 27
    void ResizeRenderTarget(std::uint32_t width, std::uint32_t height) override; // 31
    bool HandleKey(std::uint16_t character, std::uint32_t keyParam) override;    // 32
    void ToggleFullScreen() override;                                            // 33

    // Covers the whole monitor that the window is on, with the cursor hidden; or goes back to where it was.
    void SetFullScreen(bool on);

    [[nodiscard]] bool IsFullScreen() const { return mIsFullScreen; }

    // Draws the caption strip of `window`, whose client rectangle is `clientRect`: black, the icons, the
    // title. Nothing in full screen.
    void PaintCaption(HWND window, const RECT& clientRect);

    // The title shows the current track, or else the current plug-in's name; the strip is drawn again.
    void UpdateWindowTitle();

    [[nodiscard]] HWND TopLevelWindow() const { return mOOPWind; }

    [[nodiscard]] HWND ProxyWindow() const { return mProxyWind; }

private:
    void CreateTopLevelWindow();
    void CreateProxyWindow();
    void CreateRenderTargetAndIcons();
    void ReleaseRenderTargetAndIcons();
    [[nodiscard]] bool HasRenderTarget();
    void InvalidateStrip();
    void DrawCaption(HWND window, const RECT& clientRect);
    void DrawTitle(HWND window, const RECT& clientRect);
    void ShowOnTop();
    [[nodiscard]] plugins::VisualPlugIn* FindPlugin(const char16_t* name, std::uint16_t length) const;
    void EnterFullScreen();
    void LeaveFullScreen();

    HWND mOOPWind = nullptr;
    HWND mProxyWind = nullptr;
    std::unique_ptr<render::IRenderer2D> mRenderTarget; // draws on mOOPWind; may be null
    std::unique_ptr<render::IBitMap2D> mCloseBoxIcon;   // these too
    std::unique_ptr<render::IBitMap2D> mMaximizeBoxIcon;
    std::unique_ptr<render::IBitMap2D> mRestoreBoxIcon;
    RECT mWindowedRect = {}; // of mOOPWind before full screen
    bool mWindowedRectValid = false;
    bool mIsFullScreen = false;
    std::int32_t mCursorHideCount = 0; // 0, or negative by the number of cursor hidings to undo

    // Guards the render target and the icons: after a broken pipe the service thread makes them anew while
    // the main thread may be painting. Held for drawing and for swapping only, never while something is
    // made or released on a window of another thread. Taken behind mPluginLock where both are.
    platform::OwnedMutex mCaptionLock;

    const CaptionCalls& mCaptionCalls;
};

} // namespace orvane::shell
