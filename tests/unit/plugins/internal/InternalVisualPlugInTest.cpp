#include "plugins/internal/InternalVisualPlugIn.h"

#include "unit/plugins/internal/PlugInFixture.h"

#include <string>

namespace orvane::plugins {
namespace {

using tests::LogCapture;

class InternalVisualPlugIn : public PlugInFixture {};

TEST_F(InternalVisualPlugIn, IsABuiltInWithoutAVisualizerAtFirst) {
    EXPECT_EQ(mPlugIn->Kind(), PlugInKind::kZephor);
    EXPECT_EQ(mPlugIn->Path().View(), u"Built-In");
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->Test(), nullptr);
    EXPECT_FALSE(mPlugIn->Window());
}

// Two of the lines say "not yet implemented": they are the host's own words for what is done by nobody, and stay.
TEST_F(InternalVisualPlugIn, WithoutAVisualizerEveryOperationHasItsLineOrNothing) {
    const auto linesOf = [&](auto&& operation) {
        const LogCapture log;
        operation();
        return log.Text();
    };
    EXPECT_EQ(linesOf([&] { mPlugIn->Reshape(); }),
              "InternalVisualPlugIn::Reshape called when there is no visualizer\n");
    EXPECT_EQ(linesOf([&] { mPlugIn->Draw(); }), "");
    EXPECT_EQ(linesOf([&] { mPlugIn->Stop(); }), "InternalVisualPlugIn::Stop not yet implemented\n");
    EXPECT_EQ(linesOf([&] { mPlugIn->Idle(); }), "");
    EXPECT_EQ(linesOf([&] { mPlugIn->SetArtwork(nullptr, 0, 0); }),
              "InternalVisualPlugIn::SetArtwork no mVisualizer.\n");
    EXPECT_EQ(linesOf([&] { EXPECT_EQ(Pulse(1), 0u); }), "");
    EXPECT_EQ(linesOf([&] { Play(); }),
              "InternalVisualPlugIn::StartExternalVisualPlayback(no mVisualizer) not yet implemented\n");
    EXPECT_EQ(linesOf([&] { EXPECT_FALSE(mPlugIn->KeyInput(1, u"h", 0)); }),
              "InternalVisualPlugIn::KeyInput mVisualizer is null.\n");
    EXPECT_EQ(linesOf([&] { EXPECT_TRUE(mPlugIn->Deactivate()); }), "");
}

TEST_F(InternalVisualPlugIn, ActivationMakesAVisualizerInTheWindowAndDeactivationDeletesIt) {
    Activate();
    ASSERT_NE(mPlugIn->Test(), nullptr);
    EXPECT_EQ(mPlugIn->Window(), mWindow.Window());
    EXPECT_EQ(visualizer::SitesInForce().lastWindow, mWindow.Window());
    EXPECT_EQ(Visualizer().mStartTime, 100.0);
    EXPECT_EQ(Visualizer().mViewSize, (visualizer::Size{ 320, 200 }));
    EXPECT_TRUE(mPlugIn->Deactivate());
    EXPECT_EQ(mPlugIn->Test(), nullptr);
    EXPECT_EQ(mPlugIn->Window(), mWindow.Window()) << "kept";
}

TEST_F(InternalVisualPlugIn, ActivationAfterActivationDeletesTheFirstVisualizerBeforeItMakesTheSecond) {
    Activate();
    std::vector<std::string> calls;
    tests::TestVisualizer::sOnCall = [&](const char* operation) { calls.emplace_back(operation); };
    Activate();
    EXPECT_EQ(calls, (std::vector<std::string>{ "~TestVisualizer", "Start" }));
}

TEST_F(InternalVisualPlugIn, AFailedActivationLeavesNoVisualizerAndKeepsTheWindow) {
    Activate();
    visualizer::SitesInForce().refuseRenderer = true;
    EXPECT_FALSE(mPlugIn->ActivateInWindow(mWindow.Window()));
    EXPECT_EQ(mPlugIn->Test(), nullptr);
    const LogCapture log;
    mPlugIn->Reshape();
    EXPECT_EQ(log.Text(), "InternalVisualPlugIn::Reshape called when there is no visualizer\n");
    visualizer::SitesInForce().refuseRenderer = false;
    Activate();
}

TEST_F(InternalVisualPlugIn, ReshapeHandsOnTheWindowsSize) {
    Activate();
    mWindow.Resize(640, 360);
    const LogCapture log;
    mPlugIn->Reshape();
    EXPECT_EQ(Visualizer().mViewSize, (visualizer::Size{ 640, 360 }));
    EXPECT_EQ(log.Text(), "");
}

TEST_F(InternalVisualPlugIn, ReshapeOfAWindowThatIsGoneHasItsLine) {
    Activate();
    mWindow.Destroy();
    const LogCapture log;
    mPlugIn->Reshape();
    EXPECT_EQ(log.Text(), "InternalVisualPlugIn::Reshape GetWindowRect returned false.\n");
    EXPECT_EQ(Visualizer().mViewSize, (visualizer::Size{ 320, 200 }));
}

TEST_F(InternalVisualPlugIn, DrawStepsTheFrameClockOnceAndDraws) {
    Activate();
    mClock.SetTo(101);
    mPlugIn->Draw();
    EXPECT_EQ(Visualizer().mFrameCount, 1u);
    EXPECT_EQ(Visualizer().mElapsed, 1.0);
    EXPECT_EQ(Visualizer().mCalls.back(), "Draw");
}

TEST_F(InternalVisualPlugIn, IdleAndArtworkAndPlaybackAreHandedOn) {
    Activate();
    const LogCapture log;
    mPlugIn->Idle();
    const std::uint8_t image[] = { 1, 2, 3 };
    mPlugIn->SetArtwork(image, 3, 14);
    Play();
    EXPECT_EQ(Visualizer().mCalls,
              (std::vector<std::string>{ "Start", "Idle", "SetArtwork", "TrackChanged" }));
    EXPECT_EQ(Visualizer().mTrackStartA, 0xFFFFFFFEu);
    EXPECT_EQ(Visualizer().mTrackStartB, 8u);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(InternalVisualPlugIn, StopOnAPlayingBuiltInPrintsItsLineAndTheAnimationGoesOn) {
    Activate();
    Play();
    Pulse(1);
    {
        const LogCapture log;
        mPlugIn->Stop();
        EXPECT_EQ(log.Text(), "InternalVisualPlugIn::Stop not yet implemented\n");
    }
    EXPECT_NE(Visualizer().mTrackTextTexture, nullptr);
    Pulse(2);
    mPlugIn->Draw();
    EXPECT_EQ(Visualizer().mFrameCount, 3u);
}

TEST_F(InternalVisualPlugIn, APulseIsStoredAndDrawn) {
    Activate();
    EXPECT_EQ(Pulse(9, 3, 44), 0u);
    EXPECT_EQ(Visualizer().mAudio.waveform[0][0], 3);
    EXPECT_EQ(Visualizer().mPulseStamp, 9u);
    EXPECT_EQ(Visualizer().mPulsePosition, 44u);
    EXPECT_EQ(Visualizer().mPulseStamps, std::vector<std::uint32_t>{ 9 });
    EXPECT_EQ(Visualizer().mFrameCount, 1u);
}

TEST_F(InternalVisualPlugIn, APulseWithAStampOf0StoresTheStampAndDrawsWithTheAudioBlockUntouched) {
    Activate();
    Pulse(9, 3);
    Visualizer().mAudioValid = false;
    Pulse(0, 8, 6);
    EXPECT_EQ(Visualizer().mPulseStamp, 0u);
    EXPECT_EQ(Visualizer().mPulsePosition, 6u);
    EXPECT_EQ(Visualizer().mAudio.waveform[0][0], 3);
    EXPECT_FALSE(Visualizer().mAudioValid);
    EXPECT_EQ(Visualizer().mPulseStamps, (std::vector<std::uint32_t>{ 9, 0 }));
}

TEST_F(InternalVisualPlugIn, WithTheTopLevelWindowMinimisedAPulseChangesNothingNotEvenTheStamp) {
    const tests::ChildWindow iconic(320, 200, tests::ChildWindow::Parent::Iconic);
    ASSERT_TRUE(mPlugIn->ActivateInWindow(iconic.Window()));
    EXPECT_EQ(Pulse(9), 0u);
    EXPECT_EQ(Visualizer().mPulseStamp, 0u);
    EXPECT_EQ(Visualizer().mPulsePosition, 0u);
    EXPECT_EQ(Visualizer().mAudio.waveform[0][0], 127);
    EXPECT_TRUE(Visualizer().mPulseStamps.empty());
    EXPECT_EQ(Visualizer().mFrameCount, 0u);
    mPlugIn->Deactivate(); // in a window that is still there
}

TEST_F(InternalVisualPlugIn, KeysGoToTheVisualizerAndItsCommandsAreHeardWithALine) {
    Activate();
    const std::string calling = "InternalVisualPlugIn::KeyInput calling mVisualizer->HandleKeyInput.\n";
    const std::string receiver = "InternalVisualPlugInCommandReceiver::";

    const struct {
        const char16_t* key;
        bool taken;
        std::string lines;
    } rows[] = {
        { u"h", true, calling },
        { u"F", true, calling },
        { u"c", true, calling + receiver + "ToggleConfigDisplay\n" },
        { u"I", true, calling + receiver + "ResetTrackChangeTime\n" },
        { u"l", true, calling + receiver + "SetTrackInfoToDisplayAlways\n" },
        { u"z", false, calling },
    };

    for (const auto& row : rows) {
        const LogCapture log;
        EXPECT_EQ(mPlugIn->KeyInput(1, row.key, 0), row.taken) << std::string(1, char(row.key[0]));
        EXPECT_EQ(log.Text(), row.lines);
    }
    EXPECT_NE(Visualizer().mHelpPanel, nullptr);
    EXPECT_TRUE(Visualizer().mTrackInfoAlways);
    const LogCapture log;
    EXPECT_FALSE(mPlugIn->KeyInput(2, u"hh", 0));
    EXPECT_EQ(log.Text(), calling);
}

class ParkLocalizedStrings : public PlugInFixture {
protected:
    // The display name once a list of one such entry has been parked.
    std::u16string NameFrom(std::string_view key, std::string_view value = "") {
        mPlugIn->ParkLocalizedStrings({ records::MakeLocalizedString(key, value) });
        return std::u16string(mPlugIn->DisplayName().View());
    }
};

TEST_F(ParkLocalizedStrings, TheLastEntrysKeyIsTheTitle) {
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"");
    mPlugIn->SetName(u"Own name");
    mPlugIn->ParkLocalizedStrings(
        { records::MakeLocalizedString("Help", "H"), records::MakeLocalizedString("T\xC3\xAFtle", "") });
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"T\u00EFtle");
    EXPECT_EQ(mPlugIn->DisplayName().count, 5);
    EXPECT_EQ(mPlugIn->Name().View(), u"Own name");
    EXPECT_EQ(mPlugIn->Parked().size(), 2u);
}

TEST_F(ParkLocalizedStrings, ALastKeyOfInvalidUtf8KeepsTheOldNameAndItsEntriesAreStillParked) {
    EXPECT_EQ(NameFrom("Old"), u"Old");
    mPlugIn->ParkLocalizedStrings(
        { records::MakeLocalizedString("Help", "H"), records::MakeLocalizedString("\xC3(", "") });
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"Old");
    ASSERT_EQ(mPlugIn->Parked().size(), 2u);
    EXPECT_EQ(records::KeyText(mPlugIn->Parked()[0]), "Help");
}

TEST_F(ParkLocalizedStrings, OneTo255UnitsMakeATitle) {
    EXPECT_EQ(NameFrom("x"), u"x");
    EXPECT_EQ(NameFrom(""), u"x") << "an empty one doesn't";
    EXPECT_EQ(NameFrom(std::string(255, 'y')), std::u16string(255, u'y'));
    EXPECT_EQ(NameFrom(std::string(256, 'z')), std::u16string(255, u'y')) << "and 256 don't";
}

TEST_F(ParkLocalizedStrings, AnEmptyListIsParkedAndKeepsTheName) {
    EXPECT_EQ(NameFrom("Old"), u"Old");
    mPlugIn->ParkLocalizedStrings({});
    EXPECT_TRUE(mPlugIn->Parked().empty());
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"Old");
}

TEST_F(ParkLocalizedStrings, AKeyOf256BytesRunsOnIntoItsOwnValueAndEndsThere) {
    std::string key;
    for (int i = 0; i < 128; ++i) key += "\xC3\xA9";
    ASSERT_EQ(key.size(), 256u);
    const std::u16string shown(128, u'\u00E9');
    EXPECT_EQ(NameFrom(key, "abc"), shown + u"abc");
    EXPECT_EQ(NameFrom(key, "abcdefgh"), shown + u"abcdefgh") << "264 bytes without any terminator";
    EXPECT_EQ(NameFrom(key, "\xC3"), shown + u"abcdefgh") << "the longer text is what must be valid";
}

TEST_F(ParkLocalizedStrings, ParkingTheParkedListItselfChangesNothing) {
    NameFrom("Title", "v");
    mPlugIn->ParkLocalizedStrings(mPlugIn->Parked());
    ASSERT_EQ(mPlugIn->Parked().size(), 1u);
    EXPECT_EQ(records::KeyText(mPlugIn->Parked()[0]), "Title");
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"Title");
}

TEST_F(ParkLocalizedStrings, TheLastListParkedIsHandedToTheVisualizerAtItsCreation) {
    NameFrom("Title", "v");
    Activate();
    ASSERT_EQ(Visualizer().mHelpStrings.size(), 1u);
    EXPECT_EQ(records::ValueText(Visualizer().mHelpStrings[0]), "v");
    mPlugIn->Deactivate();
    Activate();
    EXPECT_EQ(Visualizer().mHelpStrings.size(), 1u) << "kept over a deactivation";
}

} // namespace
} // namespace orvane::plugins
