// Brings finished frames to a window that the platform's own presentation does not reach.
//
// KEEP: Wine carries out the swap chain of a child window in a buffer off the screen and is to copy each frame into
// the window around it, but a window that has been given a pixel format, as any with a swap chain has, gets no
// drawable to copy to: the copy fails without a word and the child stays black. The window around it has one, if
// it is drawn on by such means too, as the host's is for its caption. So there the frame is read back and drawn
// through GDI at the child's place in its top-level window, instead of Present. Windows itself, and windows at the
// top level, never come here. Pinned by WindowCopy.AChildWindowShowsItsFrameOnTheScreen.
#pragma once

#include "render/direct3d/Platform.h"

#include <utility>

namespace orvane::render {

// Whether frames in `window` need it.
[[nodiscard]] bool NeedsWindowCopy(HWND window);

class WindowCopy {
public:
    WindowCopy(ComPtr<ID3D11Device> device, HWND window)
        : mDevice(std::move(device))
        , mWindow(window) {}

    // Shows the back buffer, over all of the window's client area. False if it can't be read or the window is gone.
    // From any thread; waits for the frame to be finished, and for no window.
    bool Show(ID3D11DeviceContext* context, IDXGISwapChain* swapChain);

private:
    [[nodiscard]] bool MakeStaging(const D3D11_TEXTURE2D_DESC& like);

    ComPtr<ID3D11Device> mDevice;
    HWND mWindow;
    ComPtr<ID3D11Texture2D> mStaging; // of the back buffer's size; null before the first frame
    UINT mWidth = 0, mHeight = 0;     // of mStaging
};

} // namespace orvane::render
