// The order of the operations and of the fields is part of the contract.
#include "support/SlotOrder.h"

#include "plugins/internal/InternalVisualPlugIn.h"
#include "support/TestVisualizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace orvane::visualizer {
namespace {

using tests::ExpectSlotOrder;
using tests::SlotRow;

TEST(SlotOrder, VisualizerHasItsThirtyFourSlotsInOrder) {
    const std::vector<SlotRow> rows = {
        ORVANE_SLOT(1, Visualizer, Reshape),
        ORVANE_SLOT(2, Visualizer, StartExternalVisualPlayback),
        ORVANE_SLOT(3, Visualizer, Draw),
        ORVANE_SLOT(4, Visualizer, Idle),
        ORVANE_SLOT(5, Visualizer, HandleKeyInput),
        ORVANE_SLOT(6, Visualizer, Reserved6),
        ORVANE_SLOT(7, Visualizer, SetRenderMode),
        ORVANE_SLOT(8, Visualizer, Reserved8),
        ORVANE_SLOT(9, Visualizer, Reserved9),
        ORVANE_SLOT(10, Visualizer, ToggleHelpDisplay),
        ORVANE_SLOT(11, Visualizer, ToggleConfigDisplay),
        ORVANE_SLOT(12, Visualizer, ToggleFPSDisplay),
        ORVANE_SLOT(13, Visualizer, CreateFPSPanelTexture),
        ORVANE_SLOT(14, Visualizer, CreateConfigPanelTexture),
        ORVANE_SLOT(15, Visualizer, ReleaseResources),
        ORVANE_SLOT(16, Visualizer, ReshapeRenderer),
        ORVANE_SLOT(17, Visualizer, ClearHold),
        ORVANE_SLOT(18, Visualizer, TrackChanged),
        ORVANE_SLOT(19, Visualizer, SetHold),
        ORVANE_SLOT(20, Visualizer, AudioDataArrived),
        ORVANE_SLOT(21, Visualizer, Reserved21),
        ORVANE_SLOT(22, Visualizer, ClearTrackState),
        ORVANE_SLOT(23, Visualizer, CreateXelRenderer),
        ORVANE_SLOT(24, Visualizer, CreateTrackInfoTexture),
        ORVANE_SLOT(25, Visualizer, CreateHelpTexture),
        ORVANE_SLOT(26, Visualizer, DrawTrackInfo),
        ORVANE_SLOT(27, Visualizer, DrawPanelTexture),
        ORVANE_SLOT(28, Visualizer, TrackInfoDrawn),
        ORVANE_SLOT(29, Visualizer, ShowHelp),
        ORVANE_SLOT(30, TexturePanelVisualizer, DrawTextLines),
        ORVANE_SLOT(31, TexturePanelVisualizer, SetArtwork),
        ORVANE_SLOT(32, TexturePanelVisualizer, AddHelpString),
        ORVANE_SLOT(33, PlatformVisualizer, GetScaleFactor),
    };
    ASSERT_EQ(rows.size(), 33u);
    ExpectSlotOrder(rows, 1, 0);
}

TEST(SlotOrder, CommandReceiverHasFiveOperationsAndThenItsDestructor) {
    ExpectSlotOrder({ ORVANE_SLOT(0, IVisualizerCommandReceiver, ResetTrackChangeTime),
                      ORVANE_SLOT(1, IVisualizerCommandReceiver, SetTrackInfoToDisplayAlways),
                      ORVANE_SLOT(2, IVisualizerCommandReceiver, HelpToggled),
                      ORVANE_SLOT(3, IVisualizerCommandReceiver, ToggleConfigDisplay),
                      ORVANE_SLOT(4, IVisualizerCommandReceiver, FPSToggled) },
                    0, 5);
}

TEST(SlotOrder, DelegateHasItsWindowAtTwo) {
    ExpectSlotOrder({ ORVANE_SLOT(1, PlatformVisualizerDelegate, Reserved1),
                      ORVANE_SLOT(2, PlatformVisualizerDelegate, GetWindowHandle) },
                    1, 0);
}

TEST(SlotOrder, InternalPlugInAddsNoSlotToTheTwelve) {
    using plugins::VisualPlugIn;
    constexpr std::size_t kNoDestructor = 99;
    ExpectSlotOrder(
        { ORVANE_SLOT(0, VisualPlugIn, Initialize), ORVANE_SLOT(1, VisualPlugIn, ActivateInWindow),
          ORVANE_SLOT(2, VisualPlugIn, Deactivate), ORVANE_SLOT(3, VisualPlugIn, Reshape),
          ORVANE_SLOT(4, VisualPlugIn, Draw), ORVANE_SLOT(5, VisualPlugIn, Stop),
          ORVANE_SLOT(6, VisualPlugIn, Idle), ORVANE_SLOT(7, VisualPlugIn, SetArtwork),
          ORVANE_SLOT(8, VisualPlugIn, Pulse), ORVANE_SLOT(9, VisualPlugIn, StartExternalVisualPlayback),
          ORVANE_SLOT(10, VisualPlugIn, KeyInput), ORVANE_SLOT(11, VisualPlugIn, ParkLocalizedStrings) },
        0, kNoDestructor);
}

TEST(FieldOrder, FieldsStandInTheirDeclaredOrder) {
    const tests::TestVisualizer v(0);
    const std::vector<const void*> addresses = {
        &v.mTargetFrameRate, &v.mFrameInterval, &v.mHold, &v.mDisplayScale, &v.mFrameStepRate, &v.mFpsWindow,
        &v.mMinimumSize, &v.mMaximumSize, &v.mHelpState, &v.mOptionBytes, &v.mDebugToggle, &v.mSecondToggle,
        &v.mThirdToggle, &v.mTrackInfoAlways, &v.mViewSize, &v.mTrackStartA, &v.mTrackStartB, &v.mAudio,
        &v.mAudioValid, &v.mPulseStamp, &v.mPulsePosition, &v.mStartTime, &v.mRenderer, &v.mHelpStrings,
        &v.mAlternativeHelpStrings, &v.mFrameDelay, &v.mNow, &v.mLastTime, &v.mInstantaneousFps, &v.mElapsed,
        &v.mSmoothedFps, &v.mFrameStep, &v.mTrackChangeTime, &v.mFrameCount, &v.mQuadBufferId,
        // of TexturePanelVisualizer
        &v.mTrack, &v.mAudioFormat, &v.mHelpPanel, &v.mConfigPanel, &v.mFPSPanel, &v.mFPSTexture,
        &v.mConfigTexture, &v.mTrackTextTexture, &v.mArtworkTexture, &v.mHelpTexture,
        &v.mAlternativeHelpTexture
    };
    EXPECT_EQ(addresses.size(), 46u);
    EXPECT_TRUE(std::is_sorted(addresses.begin(), addresses.end()));
}

} // namespace
} // namespace orvane::visualizer
