#include "render/direct3d/WindowCopy.h"

namespace orvane::render {
namespace {

bool RunsUnderWine() {
    const HMODULE module = GetModuleHandleW(L"ntdll.dll");
    return module && GetProcAddress(module, "wine_get_version");
}

// A bitmap header with masks: red in the lowest byte, as in the swap chain.
struct MaskedHeader {
    BITMAPINFOHEADER header{};
    DWORD masks[3] = { 0x0000FF, 0x00FF00, 0xFF0000 };
};

MaskedHeader HeaderOf(UINT rowPixels, UINT height) {
    MaskedHeader info;
    info.header.biSize = sizeof(info.header);
    info.header.biWidth = LONG(rowPixels);
    info.header.biHeight = -LONG(height); // top row first
    info.header.biPlanes = 1;
    info.header.biBitCount = 32;
    info.header.biCompression = BI_BITFIELDS;
    return info;
}

} // namespace

bool NeedsWindowCopy(HWND window) {
    static const bool sWine = RunsUnderWine();
    return sWine && (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) != 0;
}

bool WindowCopy::MakeStaging(const D3D11_TEXTURE2D_DESC& like) {
    if (mStaging && mWidth == like.Width && mHeight == like.Height) return true;
    D3D11_TEXTURE2D_DESC description = like;
    description.Usage = D3D11_USAGE_STAGING;
    description.BindFlags = 0;
    description.CPUAccessFlags = D3D11_CPU_ACCESS_READ;
    description.MiscFlags = 0;
    mStaging.Reset();
    if (FAILED(mDevice->CreateTexture2D(&description, nullptr, &mStaging))) return false;
    mWidth = like.Width;
    mHeight = like.Height;
    return true;
}

bool WindowCopy::Show(ID3D11DeviceContext* context, IDXGISwapChain* swapChain) {
    constexpr UINT kBytesPerPixel = 4;
    RECT place{};
    if (!GetClientRect(mWindow, &place))
        return false; // without a window, the one around it would be the screen
    ComPtr<ID3D11Texture2D> backBuffer;
    if (FAILED(swapChain->GetBuffer(0, IID_PPV_ARGS(&backBuffer)))) return false;
    D3D11_TEXTURE2D_DESC description{};
    backBuffer->GetDesc(&description);
    if (!MakeStaging(description)) return false;
    context->CopyResource(mStaging.Get(), backBuffer.Get());
    D3D11_MAPPED_SUBRESOURCE mapped{};
    if (FAILED(context->Map(mStaging.Get(), 0, D3D11_MAP_READ, 0, &mapped))) return false;
    const MaskedHeader info = HeaderOf(mapped.RowPitch / kBytesPerPixel, mHeight);
    const HWND around = GetAncestor(mWindow, GA_ROOT);
    MapWindowPoints(mWindow, around, reinterpret_cast<POINT*>(&place), 2);
    const HDC target = GetDCEx(around, nullptr, DCX_CACHE); // its children not left out
    const bool shown =
        target && StretchDIBits(target, int(place.left), int(place.top), int(place.right - place.left),
                                int(place.bottom - place.top), 0, 0, int(mWidth), int(mHeight), mapped.pData,
                                reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, SRCCOPY) != 0;
    if (target) ReleaseDC(around, target);
    GdiFlush();
    context->Unmap(mStaging.Get(), 0);
    return shown;
}

} // namespace orvane::render
