// A whole frame of the test visualizer, from the first call to Present.
#include "unit/visualizer/VisualizerFixture.h"

#include <vector>

namespace orvane::visualizer {
namespace {

using render::DeviceCall;

class WholeFrame : public VisualizerFixture {
protected:
    // Left edge of the bar in pixels from the view's left edge, by the matrix that it was drawn through.
    double BarLeft() {
        const auto& bar = Recorder().Draws().at(0);
        const double clip = double(bar.Vertex(2)[0]) * double((*bar.matrix)[0]) + double((*bar.matrix)[12]);
        return (clip + 1) / 2 * mVisualizer->mViewSize[0];
    }
};

TEST_F(WholeFrame, BeginsClearsDrawsThePictureThenThePanelsAndPresents) {
    StartAndDraw();
    PlayTrack();
    mVisualizer->ToggleHelpDisplay();
    mVisualizer->ToggleFPSDisplay();
    FrameAt(1);
    std::vector<DeviceCall> calls;
    for (const auto& call : Recorder().Calls())
        if (call.call != DeviceCall::SetBlendState && call.call != DeviceCall::ClearBlendState)
            calls.push_back(call.call);
    EXPECT_EQ(calls, (std::vector<DeviceCall>{ DeviceCall::BeginFrame, DeviceCall::Clear, DeviceCall::Draw,
                                               DeviceCall::Draw, DeviceCall::Draw, DeviceCall::Draw,
                                               DeviceCall::Present }));
    const auto& draws = Recorder().Draws();
    ASSERT_EQ(draws.size(), 4u);
    EXPECT_EQ(draws[0].texture, nullptr);
    EXPECT_EQ(draws[1].texture, mVisualizer->mTrackTextTexture.get());
    EXPECT_EQ(draws[2].texture, mVisualizer->mHelpTexture.get());
    EXPECT_EQ(draws[3].texture, mVisualizer->mFPSTexture.get());
    EXPECT_EQ(Recorder().BlendModeInForce(), render::kBlendMode_Off);
    EXPECT_EQ(Recorder().ModelViewDepth(), 1u);
    EXPECT_EQ(Recorder().ProjectionDepth(), 1u);
}

TEST_F(WholeFrame, TheBarWandersAcrossTheViewInFourSeconds) {
    StartAndDraw(800, 600);
    EXPECT_NEAR(BarLeft(), 0, 1e-3);
    FrameAt(1);
    EXPECT_NEAR(BarLeft(), 200, 1e-3);
    FrameAt(3);
    EXPECT_NEAR(BarLeft(), 600, 1e-3);
    FrameAt(4);
    EXPECT_NEAR(BarLeft(), 0, 1e-3);
}

TEST_F(WholeFrame, TheSameClockGivesTheSameFrame) {
    const auto vertices = [&] {
        StartAndDraw();
        PlayTrack();
        FrameAt(2.5);
        std::vector<float> all;
        for (const auto& draw : Recorder().Draws())
            all.insert(all.end(), draw.vertices.begin(), draw.vertices.end());
        mVisualizer.reset();
        mClock.SetTo(kStart);
        return all;
    };
    const auto first = vertices();
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(vertices(), first);
}

TEST_F(WholeFrame, CreationFailsWithoutAClientSizeAndWithoutARenderer) {
    tests::ChildWindow gone(100, 100);
    gone.Destroy();
    EXPECT_FALSE(tests::TestVisualizer(kStart).Start(gone.Window(), {}));
    EXPECT_FALSE(tests::TestVisualizer(kStart).Start({}, {}));
    SitesInForce().refuseRenderer = true;
    const tests::ChildWindow window(100, 100);
    EXPECT_FALSE(tests::TestVisualizer(kStart).Start(window.Window(), {}));
}

} // namespace
} // namespace orvane::visualizer
