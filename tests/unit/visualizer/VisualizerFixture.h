// A test visualizer in a window of a set size, on a recording renderer, with a set clock and screen.
#pragma once

#include "render/ITextFormat.h"
#include "support/ChildWindow.h"
#include "support/SetClock.h"
#include "support/SetDpi.h"
#include "support/TestVisualizer.h"
#include "visualizer/recording/RecordingSites.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string_view>

namespace orvane::visualizer {

constexpr double kStart = 100.0; // the clock at the visualizer's construction

using Rect = std::array<double, 4>;

// The destination rectangle that DrawTexturedQuad was given: right bottom, right top, left bottom, left top,
// each x, y, z, u, v in clip space.
inline Rect DestinationOf(const render::DrawRecord& draw) {
    const auto leftBottom = draw.Vertex(2), rightTop = draw.Vertex(1);
    const auto unit = [](float clip) { return (double(clip) + 1) / 2; };
    const double x = unit(leftBottom[0]), y = unit(leftBottom[1]);
    return { x, y, unit(rightTop[0]) - x, unit(rightTop[1]) - y };
}

inline void ExpectRect(const Rect& actual, const Rect& expected) {
    for (std::size_t side = 0; side < expected.size(); ++side)
        EXPECT_NEAR(actual[side], expected[side], 1e-6) << "side " << side;
}

class VisualizerFixture : public testing::Test {
protected:
    VisualizerFixture() { SitesInForce() = RecordingSites(); }

    ~VisualizerFixture() override { SitesInForce() = RecordingSites(); }

    // A visualizer that was created and hasn't drawn yet.
    void Start(int width = 1000, int height = 500) {
        mWindow = std::make_unique<tests::ChildWindow>(width, height);
        mVisualizer = std::make_unique<tests::TestVisualizer>(mClock.Now());
        ASSERT_TRUE(mVisualizer->Start(mWindow->Window(), mHelp));
    }

    // The same behind its first frame, so that elapsed is 0.
    void StartAndDraw(int width = 1000, int height = 500) {
        Start(width, height);
        Frame();
    }

    void Frame() {
        Recorder().ForgetRecords();
        mVisualizer->StepFrameClock();
        mVisualizer->Draw(0);
    }

    void FrameAt(double elapsed) {
        mClock.SetTo(kStart + elapsed);
        Frame();
    }

    render::RecordingRenderer& Recorder() {
        return static_cast<render::RecordingRenderer&>(*mVisualizer->Renderer());
    }

    // The draw of the last frame that showed this texture; null if none did.
    const render::DrawRecord* DrawOf(const render::TexturePtr& texture) {
        if (texture)
            for (const auto& draw : Recorder().Draws())
                if (draw.texture == texture.get()) return &draw;
        return nullptr;
    }

    void PlayTrack(std::u16string_view name = u"Name", std::u16string_view artist = u"Artist",
                   std::u16string_view album = u"Album") {
        const auto track = records::MakeTrackParam();
        track->mTrackName.Assign(name);
        track->mTrackArtist.Assign(artist);
        track->mTrackAlbum.Assign(album);
        mVisualizer->StartExternalVisualPlayback(track.get(), &track->mAudioFormat, 7, 8);
    }

    [[nodiscard]] const render::DrawingLog& Drawn() const { return *SitesInForce().drawing; }

    tests::SetClock mClock{ kStart };
    tests::SetDpi mDpi{ 96 };
    records::LocalizedStrings mHelp;
    std::unique_ptr<tests::ChildWindow> mWindow;
    std::unique_ptr<tests::TestVisualizer> mVisualizer;
};

inline bool IsBlank(const render::RecordedImage& image) {
    for (const std::byte byte : image.bytes)
        if (byte != std::byte(0)) return false;
    return true;
}

} // namespace orvane::visualizer
