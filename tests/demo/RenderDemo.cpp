// render-demo: one of everything that the renderer draws, in a window.
//
//     render-demo [--frames N]     ends by itself after N frames
//     render-demo --measure N      times N frames of an 8-bit image through the colour table, 1000 by 800
#include "demo/DemoScene.h"
#include "render/direct3d/Direct3DRenderer.h"
#include "support/windows/EndAtOnce.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace orvane::demo {
namespace {

using render::Direct3DRenderer;
using Clock = std::chrono::steady_clock;

constexpr int kWidth = 1200, kHeight = 1000;

Direct3DRenderer* sRenderer = nullptr; // what the window's size goes to, while it is there

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message == WM_SIZE && sRenderer != nullptr && wParam != SIZE_MINIMIZED) {
        const double rect[4] = { 0, 0, double(LOWORD(lParam)), double(HIWORD(lParam)) };
        sRenderer->ResizeRenderTarget(rect);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND OpenWindow(int width, int height) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &WindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = L"ORVANE RENDER DEMO";
    RegisterClassW(&windowClass);
    RECT rect{ 0, 0, width, height };
    AdjustWindowRect(&rect, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowExW(0, windowClass.lpszClassName, L"Orvane render demo",
                           WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, rect.right - rect.left,
                           rect.bottom - rect.top, nullptr, nullptr, windowClass.hInstance, nullptr);
}

bool Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Until the window is closed, or for so many frames if that isn't 0.
void Show(Direct3DRenderer& renderer, long frames) {
    constexpr DWORD kPause = 10; // milliseconds between frames
    DemoScene scene(renderer);
    const auto start = Clock::now();
    long shown = 0;
    while (Pump() && (frames == 0 || shown < frames)) {
        double viewport[4];
        renderer.GetViewport(viewport);
        if (viewport[2] >= 1 && viewport[3] >= 1) scene.Draw(SecondsSince(start), viewport[2], viewport[3]);
        renderer.Present();
        ++shown;
        Sleep(kPause);
    }
    std::printf("%ld frames in %.1f s\n", shown, SecondsSince(start));
}

// The frame of an image visualizer: all its bytes and the table uploaded, one quad, presented.
void Measure(Direct3DRenderer& renderer, std::uint32_t width, std::uint32_t height, long frames) {
    using namespace render;
    const TexturePtr image(
        renderer.CreateTexture(nullptr, width, height, 0, 0, kPixelFormat_R8UInt, "", 0, true));
    const std::unique_ptr<IBufferTexture> table(renderer.CreateBufferTexture(256, "", 1));
    const float quad[] = { -1, -1, 0, 0, 1, 1, -1, 0, 1, 1, -1, 1, 0, 0, 0, 1, 1, 0, 1, 0 };
    const auto buffer = static_cast<int>(renderer.CreateVertexBuffer(
        "", kPrimitive_TriangleStrip,
        renderer.GetPipeline(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF), 4, 1, quad));
    std::vector<std::uint8_t> indices(std::size_t(width) * height);
    std::vector<float> entries(256 * 4, 0.5f);
    const double size[2] = { double(width), double(height) };
    std::vector<double> milliseconds;
    const auto begin = Clock::now();
    for (long frame = 0; frame < frames && Pump(); ++frame) {
        for (std::size_t i = 0; i < indices.size(); ++i)
            indices[i] = static_cast<std::uint8_t>(i + std::size_t(frame));
        const auto start = Clock::now();
        image->UpdateContents(indices.data(), size, width, 0, kPixelFormat_R8UInt);
        table->UpdateData(entries.data(), entries.size() * sizeof(float));
        table->Bind();
        renderer.DrawVertexBuffer(image.get(), buffer, 0, 4);
        table->Unbind();
        renderer.Present();
        milliseconds.push_back(SecondsSince(start) * 1000);
    }
    // The device works behind the calls: the pace is what counts, the calls are what this thread waits for.
    const double pace = SecondsSince(begin) * 1000 / double(milliseconds.size());
    std::ranges::sort(milliseconds);
    const auto at = [&](double share) {
        return milliseconds[std::size_t(share * double(milliseconds.size() - 1))];
    };
    std::printf(
        "%zu frames of %u x %u: one every %.1f ms; calls %.1f ms in the median, 80 of 100 in %.1f to %.1f\n",
        milliseconds.size(), width, height, pace, at(0.5), at(0.1), at(0.9));
}

int Run(const char* option, long frames) {
    constexpr int kMeasuredWidth = 1000, kMeasuredHeight = 800;
    const bool isMeasuring = std::strcmp(option, "--measure") == 0;
    const int width = isMeasuring ? kMeasuredWidth : kWidth, height = isMeasuring ? kMeasuredHeight : kHeight;
    const HWND window = OpenWindow(width, height);
    Direct3DRenderer renderer;
    if (!renderer.Create(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height), { window })) {
        std::fprintf(stderr, "no renderer\n");
        return 1;
    }
    sRenderer = &renderer;
    if (isMeasuring)
        Measure(renderer, kMeasuredWidth, kMeasuredHeight, frames);
    else
        Show(renderer, frames);
    sRenderer = nullptr;
    return 0;
}

} // namespace
} // namespace orvane::demo

int main(int argc, char** argv) {
    const char* const option = argc == 3 ? argv[1] : "";
    const long frames = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 0;
    const bool isKnown = std::strcmp(option, "--frames") == 0 || std::strcmp(option, "--measure") == 0;
    if (argc != 1 && (!isKnown || frames < 1)) {
        std::fprintf(stderr, "render-demo [--frames N | --measure N]\n");
        return 2;
    }
    orvane::tests::EndAtOnce(orvane::demo::Run(option, frames));
}
