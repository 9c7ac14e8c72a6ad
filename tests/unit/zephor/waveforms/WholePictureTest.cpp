// Every effect on the real canvas: what must hold whatever it draws.
#include "RecordingLayer.h"

#include "platform/Random.h"
#include "support/AcrossBuilds.h"
#include "support/SetClock.h"
#include "unit/zephor/layers/AllocationCount.h"
#include "unit/zephor/layers/LayerPixels.h"
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/math/Single.h"
#include "zephor/waveforms/DrawWaveforms.h"
#include "zephor/waveforms/Overlays.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace orvane::zephor {
namespace {

std::vector<AsyncWaveFormFunctor*> All() {
    std::vector<AsyncWaveFormFunctor*> all;
    for (const WaveformList list : { WaveformList1(), WaveformList2(), WaveformList3() })
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

class WholePicture : public testing::Test {
protected:
    static constexpr int kWidth = 322, kHeight = 242;
    static constexpr double kStart = 5000;

    WholePicture() { MakeMusic(0); }

    // A wave that travels, without any of the C library's functions.
    void MakeMusic(int frame) {
        for (int channel = 0; channel < kAudioChannels; ++channel)
            for (int i = 0; i < kAudioPoints; ++i) {
                const float a = float(i) * 0.13f + float(frame) * 0.4f + float(channel);
                mAudio.waveform[channel][i] = single::Sin(a) * 0.4f + single::Sin(a * 3.1f) * 0.3f;
                mAudio.spectrum[channel][i] = float(256 - i) / 180;
            }
    }

    [[nodiscard]] WaveformFrame Frame(ZephorLayer& target, double time) {
        return { target, mAudio, time, kWidth, kHeight, ShownColours(mTable) };
    }

    // FNV-1a of an image that a fade from the list's first effect was drawn into.
    std::uint64_t ChecksumOf(AsyncWaveFormFunctor* effect) {
        ZephorIndexLayer layer(5);
        layer.Resize(kWidth, kHeight);
        WaveformStage stage;
        platform::SeedRand(11);
        stage.PutOn(0, All()[0]);
        stage.PutOn(1, effect);
        for (int frame = 0; frame < 150; frame += 10) {
            stage.fadeFrames = std::max(127 - frame, 0);
            MakeMusic(frame);
            DrawWaveforms(stage, Frame(layer, kStart + frame * 0.025));
        }
        tests::Checksum sum;
        sum.Add(tests::LayerPixels(layer).bytes);
        return sum.Get();
    }

    tests::SetClock mClock{ kStart };
    ZephorAudioState mAudio{};
    std::array<std::uint32_t, 256> mTable{};
};

TEST_F(WholePicture, TheSameSeedsAndSoundMakeTheSameBytes) {
    for (AsyncWaveFormFunctor* effect : All()) {
        const std::uint64_t sum = ChecksumOf(effect);
        EXPECT_EQ(ChecksumOf(effect), sum) << effect->name;
        tests::SayForEveryBuild(effect->name, sum);
    }
}

TEST_F(WholePicture, OnlyTheEffectsWithoutAPictureDrawNone) {
    constexpr int kLeastLit = 30; // pixels, of 78,000
    // Null, and what stays a point as the main waveform.
    for (AsyncWaveFormFunctor* effect : All()) {
        const bool isDark = effect->name == "Null" || effect->name == "DT Zoom Planet";
        ZephorIndexLayer layer(5);
        layer.Resize(kWidth, kHeight);
        WaveformStage stage;
        stage.waveform = effect;
        for (int frame = 0; frame < 200; frame += 5)
            DrawWaveforms(stage, Frame(layer, kStart + frame * 0.025));
        int lit = 0;
        for (const std::uint8_t byte : tests::LayerPixels(layer).bytes) lit += byte == 255;
        EXPECT_EQ(lit < kLeastLit, isDark) << effect->name << ": " << lit;
    }
}

// At the machine's start, later, and after years; with the loudest sound and without any.
TEST_F(WholePicture, EveryEffectHasAPlaceForEveryPointAtAnyTime) {
    for (const double start : { 0.0, 0.2, 5000.0, 1e9 })
        for (const float loud : { 0.0f, -1.0f, 1.0f }) {
            for (auto& channel : mAudio.waveform) std::ranges::fill(channel, loud);
            for (auto& channel : mAudio.spectrum) std::ranges::fill(channel, std::abs(loud) * 2);
            for (AsyncWaveFormFunctor* effect : All()) {
                tests::RecordingLayer layer;
                WaveformStage stage;
                ZephorOverlaySlot slot;
                stage.waveform = effect;
                slot.strength = 1;
                slot.endTime = start + 12;
                for (const double elapsed : { 0.0, 0.01, 3.0, 11.9, 100.0 }) {
                    DrawWaveforms(stage, Frame(layer, start + elapsed));
                    DrawOverlay(slot, *effect, Frame(layer, start + elapsed));
                }
                for (const tests::Segment& segment : layer.mSegments)
                    ASSERT_TRUE(std::isfinite(segment.x1) && std::isfinite(segment.y1))
                        << effect->name << start;
                for (const tests::Rect& rect : layer.mRects)
                    ASSERT_TRUE(std::isfinite(rect[0]) && std::isfinite(rect[1]) && std::isfinite(rect[2]))
                        << effect->name << start;
            }
        }
}

TEST_F(WholePicture, AFrameAllocatesNothing) {
    ZephorIndexLayer layer(5);
    layer.Resize(kWidth, kHeight);
    const Waveforms lists = WaveformLists();
    ZephorOverlaySet overlays;
    overlays.activeCount = 3;
    for (AsyncWaveFormFunctor* effect : All()) {
        WaveformStage stage;
        stage.PutOn(0, All()[0]);
        stage.PutOn(1, effect);
        const std::size_t before = tests::Allocations();
        for (int frame = 127; frame >= 0; frame -= 60) {
            stage.fadeFrames = frame;
            DrawWaveforms(stage, Frame(layer, kStart));
            UpdateOverlays(overlays, Frame(layer, kStart), {}, lists);
        }
        EXPECT_EQ(tests::Allocations(), before) << effect->name;
    }
}

} // namespace
} // namespace orvane::zephor
