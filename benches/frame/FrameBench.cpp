// A whole frame of the classic visualizer beside the least that any such frame costs: a loop that uploads an 8-bit
// texture, draws one palette quad and presents.
//
//   bench-frame [TURNS [FRAMES]]      20 turns of 30 frames each by default
//
// Both draw in a child window of the host's size, each in its turn; the medians of their frames are printed, and the
// ratio.
#include "plugins/PlugInMemory.h"
#include "records/AudioRenderData.h"
#include "render/direct3d/Direct3DRenderer.h"
#include "zephor/visualizer/Z_InternalVisualPlugIn.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using namespace orvane;

constexpr int kWidth = 1000, kHeight = 800;
constexpr double kWhole[4] = { 0, 0, 1, 1 };

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// A child of a top-level window, as the host's is.
HWND MakeChild() {
    const HWND top = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, kWidth, kHeight,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    const HWND child = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, kWidth, kHeight, top,
                                       nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(top, SW_SHOWNOACTIVATE);
    Pump();
    return child;
}

// Upload, one quad, present.
class BareLoop {
public:
    explicit BareLoop(HWND window)
        : mPixels(std::size_t(kWidth) * kHeight) {
        mReady = mRenderer.Create(kWidth, kHeight, { window });
        if (!mReady) return;
        mTable.reset(mRenderer.CreateBufferTexture(256, "table", 1));
        std::vector<float> entries(256 * 4, 0.5f);
        mTable->UpdateData(entries.data(), entries.size() * sizeof(float));
        mTexture.reset(mRenderer.CreateTexture(mPixels.data(), kWidth, kHeight, kWidth, 0,
                                               render::kPixelFormat_R8UInt, "image", 0, true));
        mQuad = mRenderer.CreateVertexBuffer(
            "quad", render::kPrimitive_TriangleStrip,
            mRenderer.GetPipeline(render::kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF), 4, 1, nullptr);
    }

    [[nodiscard]] bool IsReady() const { return mReady; }

    void Frame() {
        constexpr double kSize[2] = { kWidth, kHeight };
        constexpr std::uint32_t kColourAsSet = 2;
        mRenderer.BeginFrame();
        mTexture->UpdateContents(mPixels.data(), kSize, kWidth, 0, render::kPixelFormat_R8UInt);
        mTable->Bind();
        mRenderer.DrawTexturedQuad(mTexture.get(), int(mQuad), kWhole, kWhole, 1.0f, kColourAsSet);
        mTable->Unbind();
        mRenderer.Present();
    }

private:
    std::vector<std::uint8_t> mPixels;
    render::Direct3DRenderer mRenderer;
    std::unique_ptr<render::IBufferTexture> mTable;
    render::TexturePtr mTexture;
    std::uint32_t mQuad = 0;
    bool mReady = false;
};

records::AudioRenderData SoundOf(int frame) {
    records::AudioRenderData sound{};
    sound.waveformChannels = sound.spectrumChannels = records::kAudioChannels;
    for (std::size_t channel = 0; channel < records::kAudioChannels; ++channel)
        for (std::size_t i = 0; i < records::kSamplesPerChannel; ++i) {
            sound.waveform[channel][i] = std::uint8_t(127 + 90 * std::sin(0.05 * double(i) + 0.3 * frame));
            sound.spectrum[channel][i] = std::uint8_t(i < 200 ? 200 - i : 0);
        }
    return sound;
}

template <typename Frame>
void Measure(int frames, std::vector<double>& times, Frame&& frame) {
    for (int i = 0; i < frames; ++i) {
        const auto start = std::chrono::steady_clock::now();
        frame(i);
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        Pump();
    }
}

double Median(std::vector<double> times) {
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

} // namespace

int main(int count, char** arguments) {
    const int turns = count > 1 ? std::atoi(arguments[1]) : 20;
    const int frames = count > 2 ? std::atoi(arguments[2]) : 30;
    BareLoop bare(MakeChild());
    const auto plugIn = plugins::MakePlugIn<plugins::Z_InternalVisualPlugIn>();
    if (turns < 1 || frames < 1 || !bare.IsReady() || !plugIn || !plugIn->ActivateInWindow({ MakeChild() })) {
        std::fprintf(stderr, "bench-frame: nothing to measure\n");
        return 1;
    }
    std::vector<double> bareTimes, ownTimes;
    std::uint32_t stamp = 0;
    const auto own = [&](int i) {
        const records::AudioRenderData sound = SoundOf(i);
        ++stamp;
        plugIn->Pulse(reinterpret_cast<const std::uint8_t*>(&sound), sizeof sound, stamp, stamp);
    };
    std::vector<double> warmUp;
    Measure(frames, warmUp, own);
    Measure(frames, warmUp, [&](int) { bare.Frame(); });
    for (int turn = 0; turn < turns; ++turn) {
        Measure(frames, ownTimes, own);
        Measure(frames, bareTimes, [&](int) { bare.Frame(); });
    }
    const double ownMedian = Median(ownTimes), bareMedian = Median(bareTimes);
    std::printf("frame of the classic visualizer %10.2f ms, bare loop %.2f ms, ratio %.3f\n", ownMedian,
                bareMedian, ownMedian / bareMedian);
    plugIn->Deactivate();
    return 0;
}
