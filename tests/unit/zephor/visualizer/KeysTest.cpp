// The keys of the classic visualizer, and what the receiver hears.
#include "ZephorFixture.h"

#include "support/ScriptedRand.h"
#include "zephor/effects/waveforms/WaveformLists.h"

#include <string_view>

namespace orvane::zephor {
namespace {

using Calls = std::vector<std::string>;

constexpr std::u16string_view kTaken = u"/HhAaSsQqWwZzXxCcFfIiLlMmOoRrTt";
constexpr std::int32_t kTimedRequest = -795755682; // what a timed change of the field leaves

class ZephorKeys : public ZephorFixture {
protected:
    // Both cases of a letter do the same; each is pressed once, behind a new start.
    template <typename Check>
    void InBothCases(char16_t upper, Check&& check) {
        for (const char16_t key : { upper, char16_t(upper - u'A' + u'a') }) {
            StartAndDraw();
            mReceiver.mCalls.clear();
            check(key);
        }
    }

    // Without pending requests, and nothing due.
    void Rest() {
        OpenZephor& z = *mZephor;
        z.mDeltaRequest = z.mWaveformRequest = z.mClut.request = 0;
        z.mStage.fadeFrames = 0;
        z.mClut.fadeLevel = 0;
        z.mWaveformChangeTime = z.mDeltaChangeTime = z.mClut.changeTime = kNever;
    }
};

TEST_F(ZephorKeys, ExactlyItsOwnAreTakenInEitherCase) {
    StartAndDraw();
    for (char16_t key = 0; key < 128; ++key)
        EXPECT_EQ(Press(key), kTaken.find(key) != kTaken.npos) << int(key);
}

TEST_F(ZephorKeys, CharactersOf128AndMoreAreNot) {
    StartAndDraw();
    const auto field = mZephor->mLayers->nextDeltaField->Version();
    for (int key = 128; key <= 0xFFFF; ++key) ASSERT_FALSE(Press(char16_t(key))) << key;
    EXPECT_TRUE(mReceiver.mCalls.empty());
    EXPECT_EQ(mZephor->mLayers->nextDeltaField->Version(), field);
}

TEST_F(ZephorKeys, ACountOtherThan1IsNotTaken) {
    StartAndDraw();
    EXPECT_FALSE(mZephor->HandleKeyInput(0, nullptr, 0, &mReceiver));
    EXPECT_FALSE(mZephor->HandleKeyInput(2, u"CC", 0, &mReceiver));
    EXPECT_FALSE(mZephor->HandleKeyInput(~0u, u"C", 0, &mReceiver));
    EXPECT_EQ(mZephor->mConfigPanel, nullptr);
    EXPECT_TRUE(mReceiver.mCalls.empty());
}

TEST_F(ZephorKeys, ModifiersDoNotMatter) {
    StartAndDraw();
    EXPECT_TRUE(mZephor->HandleKeyInput(1, u"c", ~0u, &mReceiver));
    EXPECT_NE(mZephor->mConfigPanel, nullptr);
}

TEST_F(ZephorKeys, SlashAndHGoThroughTheHelpTextures) {
    for (const char16_t key : { u'/', u'H', u'h' }) {
        StartAndDraw();
        Press(key);
        EXPECT_EQ(mZephor->mHelpState, 1u);
        EXPECT_EQ(mZephor->mHelpPanel->texture, mZephor->mHelpTexture.get());
        Press(key);
        EXPECT_EQ(mZephor->mHelpState, 2u);
        EXPECT_EQ(mZephor->mHelpPanel->texture, mZephor->mAlternativeHelpTexture.get());
        Press(key);
        EXPECT_EQ(mZephor->mHelpState, 0u);
        EXPECT_EQ(mZephor->mHelpPanel, nullptr);
    }
}

TEST_F(ZephorKeys, TheReceiverHearsThatHelpIsShownInEveryState) {
    StartAndDraw();
    for (int press = 0; press < 3; ++press) Press(u'H');
    EXPECT_EQ(mReceiver.mCalls, (Calls{ "HelpShown", "HelpShown", "HelpShown" }));
    EXPECT_EQ(mZephor->mHelpPanel, nullptr) << "though the last press hid it";
}

TEST_F(ZephorKeys, CTogglesTheConfigPanelAndTellsIt) {
    InBothCases(u'C', [&](char16_t key) {
        Press(key);
        EXPECT_NE(mZephor->mConfigPanel, nullptr);
        Press(key);
        EXPECT_EQ(mZephor->mConfigPanel, nullptr);
        EXPECT_EQ(mReceiver.mCalls, (Calls{ "ToggleConfigDisplay", "ToggleConfigDisplay" }));
    });
}

TEST_F(ZephorKeys, FTogglesTheCounterAndTellsIt) {
    InBothCases(u'F', [&](char16_t key) {
        Press(key);
        EXPECT_NE(mZephor->mFPSPanel, nullptr);
        Press(key);
        EXPECT_EQ(mZephor->mFPSPanel, nullptr);
        EXPECT_EQ(mReceiver.mCalls, (Calls{ "FPSToggled", "FPSToggled" }));
    });
}

TEST_F(ZephorKeys, IRestartsTheTrackInfosFadeAndTellsIt) {
    InBothCases(u'I', [&](char16_t key) {
        FrameAt(33);
        Press(key);
        EXPECT_EQ(mZephor->mTrackChangeTime, 33);
        EXPECT_EQ(mReceiver.mCalls, (Calls{ "ResetTrackChangeTime" }));
    });
}

TEST_F(ZephorKeys, LFlipsTheTrackInfosAlwaysAndTellsTheNewValue) {
    InBothCases(u'L', [&](char16_t key) {
        Press(key);
        EXPECT_TRUE(mZephor->mTrackInfoAlways);
        Press(key);
        EXPECT_FALSE(mZephor->mTrackInfoAlways);
        EXPECT_EQ(mReceiver.mCalls, (Calls{ "Always", "NotAlways" }));
    });
}

TEST_F(ZephorKeys, MGoesThroughTheChangeModesAndClearsTheRequests) {
    InBothCases(u'M', [&](char16_t key) {
        for (const std::int32_t mode : { 2, 0, 1 }) {
            mZephor->mDeltaRequest = mZephor->mWaveformRequest = mZephor->mClut.request = 7;
            Press(key);
            EXPECT_EQ(mZephor->mChangeMode, mode);
            EXPECT_EQ(mZephor->mDeltaRequest, 0);
            EXPECT_EQ(mZephor->mWaveformRequest, 0);
            EXPECT_EQ(mZephor->mClut.request, 2);
        }
        EXPECT_TRUE(mReceiver.mCalls.empty());
    });
}

TEST_F(ZephorKeys, OIsTakenAndDoesNothing) {
    InBothCases(u'O', [&](char16_t key) {
        const auto field = mZephor->mLayers->nextDeltaField->Version();
        EXPECT_TRUE(Press(key));
        EXPECT_TRUE(mReceiver.mCalls.empty());
        EXPECT_EQ(mZephor->mLayers->nextDeltaField->Version(), field);
        EXPECT_EQ(mZephor->mChangeMode, 1);
        EXPECT_TRUE(mZephor->mThemeFlag);
    });
}

TEST_F(ZephorKeys, TFlipsTheThemeFlag) {
    InBothCases(u'T', [&](char16_t key) {
        Press(key);
        EXPECT_FALSE(mZephor->mThemeFlag);
        Press(key);
        EXPECT_TRUE(mZephor->mThemeFlag);
        EXPECT_TRUE(mReceiver.mCalls.empty());
    });
}

// ---- The field.

TEST_F(ZephorKeys, AAndSChangeTheStoredIndexAndDrawTheFunctorAtRandom) {
    const std::pair<char16_t, std::int32_t> rows[] = { { u'A', -1 }, { u'S', 1 } };
    for (const auto& [upper, step] : rows)
        InBothCases(upper, [&, by = step](char16_t key) {
            Rest();
            mZephor->mDeltaIndex = 20;
            tests::ScriptRand({ tests::Exactly(30000), { 12000, 20000 } });
            mClock.SetTo(kStart + 3);
            Press(key);
            EXPECT_EQ(mZephor->mDeltaIndex, 20 + by);
            EXPECT_EQ(mZephor->mDeltaFunctor->name, "Scattered Flow out") << "index 1, by the draw";
            EXPECT_EQ(mZephor->mDeltaRequest, by);
            EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 3 + 15) << "by the clock of the press";
            EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 40);
        });
}

TEST_F(ZephorKeys, PressesOfAAndSAddUpUntilATimedChangeReplacesTheRequest) {
    StartAndDraw();
    Rest();
    mZephor->mDeltaIndex = 0;
    for (const std::int32_t expected : { 1, 3, 6, 10 }) { // by 1, 2, 3, 4
        Press(u'S');
        EXPECT_EQ(mZephor->mDeltaIndex, expected);
    }
    EXPECT_EQ(mZephor->mDeltaRequest, 4);
    Press(u'A');
    EXPECT_EQ(mZephor->mDeltaIndex, 13);
    FrameAt(100);
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest);
    Press(u'S');
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest + 1) << "and they count on from there";
}

TEST_F(ZephorKeys, ARequestThatAPressBringsTo0IsATimedChange) {
    StartAndDraw();
    Rest();
    mZephor->mDeltaRequest = 1;
    Press(u'A');
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest);
    Rest();
    mZephor->mChangeMode = 0;
    mZephor->mDeltaRequest = 1;
    const auto field = mZephor->mLayers->nextDeltaField->Version();
    Press(u'A');
    EXPECT_EQ(mZephor->mDeltaRequest, 0);
    EXPECT_EQ(mZephor->mLayers->nextDeltaField->Version(), field) << "held";
}

// ---- The waveform.

TEST_F(ZephorKeys, QAndWStepTheWaveform) {
    const std::pair<char16_t, std::int32_t> rows[] = { { u'Q', -1 }, { u'W', 1 } };
    for (const auto& [upper, step] : rows)
        InBothCases(upper, [&, by = step](char16_t key) {
            Rest();
            Press(key);
            EXPECT_EQ(mZephor->mStage.waveformIndex, 6 + by);
            EXPECT_EQ(mZephor->mWaveformRequest, 0);
            EXPECT_EQ(mZephor->mWaveformChangeTime, 0);
            EXPECT_EQ(mZephor->mStage.fadeFrames, 128);
        });
}

TEST_F(ZephorKeys, QAtTheFirstWaveformAddsUpAndWHasToMakeUpForIt) {
    StartAndDraw();
    Rest();
    mZephor->mStage.waveformIndex = 0;
    Press(u'Q');
    Press(u'Q');
    EXPECT_EQ(mZephor->mWaveformRequest, -2);
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
    Press(u'W');
    EXPECT_EQ(mZephor->mWaveformRequest, -1);
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
}

TEST_F(ZephorKeys, WalkingUpWithWEndsAtTheLastWaveform) {
    StartAndDraw();
    Rest();
    for (int press = 0; press < 200; ++press) Press(u'W');
    EXPECT_EQ(mZephor->mStage.waveform, WaveformList3().back());
    EXPECT_EQ(mZephor->mWaveformRequest, 0) << "each press past it is used up";
}

// ---- The colours.

TEST_F(ZephorKeys, ZAlwaysAsksForTheFirstPreset) {
    InBothCases(u'Z', [&](char16_t key) {
        for (const std::int32_t pending : { 0, 1, 2, -5, INT32_MIN + 1 }) {
            Rest();
            mZephor->mClut.currentSlot = mZephor->mClut.lastSlot = 30;
            mZephor->mClut.request = pending;
            Press(key);
            EXPECT_EQ(mZephor->mClut.currentSlot, 2) << "of row 0, from " << pending;
            EXPECT_EQ(mZephor->mClut.request, 0) << "used up";
            EXPECT_EQ(mZephor->mClut.fadeLevel, kFadeStart);
            EXPECT_EQ(mZephor->mClut.changeTime, 0);
        }
    });
}

TEST_F(ZephorKeys, XStepsToTheNextSlotAndFromTheLastToTheFirst) {
    InBothCases(u'X', [&](char16_t key) {
        Rest();
        for (const auto& [from, to] : { std::pair(2, 3), std::pair(30, 31), std::pair(63, 0) }) {
            mZephor->mClut.currentSlot = mZephor->mClut.lastSlot = from;
            Press(key);
            EXPECT_EQ(mZephor->mClut.currentSlot, to);
            EXPECT_EQ(mZephor->mClut.request, 0);
            EXPECT_EQ(mZephor->mClut.changeTime, 0);
        }
    });
}

// ---- All at once.

TEST_F(ZephorKeys, RDrawsAllThreeAnew) {
    InBothCases(u'R', [&](char16_t key) {
        const auto field = mZephor->mLayers->nextDeltaField->Version();
        mZephor->mDeltaIndex = 20;
        mZephor->mWaveformRequest = mZephor->mClut.request = 0;
        mZephor->mClut.lastSlot = mZephor->mClut.currentSlot = 30;
        mZephor->mChangeMode = 0;
        mClock.SetTo(kStart + 1);
        Press(key);
        EXPECT_EQ(mZephor->mDeltaIndex, 19);
        EXPECT_EQ(mZephor->mDeltaRequest, -1);
        EXPECT_GT(mZephor->mLayers->nextDeltaField->Version(), field);
        EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 1 + 15);
        EXPECT_NE(mZephor->mStage.waveformIndex, 6);
        EXPECT_EQ(mZephor->mStage.previousWaveformIndex, 6);
        EXPECT_EQ(mZephor->mStage.fadeFrames, 128) << "in the midst of another fade";
        EXPECT_EQ(mZephor->mWaveformChangeTime, 0);
        EXPECT_NE(mZephor->mClut.currentSlot, 30);
        EXPECT_EQ(mZephor->mClut.fadeLevel, kFadeStart);
        EXPECT_EQ(mZephor->mClut.changeTime, 0);
    });
}

// ---- Before a field is installed.

TEST_F(ZephorKeys, UntilAFieldIsInstalledWaveformsAndColoursOnlyRememberTheirRequests) {
    Start();
    for (const char16_t key : { u'W', u'W', u'Q' }) Press(key);
    EXPECT_EQ(mZephor->mWaveformRequest, 3);
    Press(u'Z');
    EXPECT_EQ(mZephor->mClut.request, 2);
    Press(u'X');
    EXPECT_EQ(mZephor->mClut.request, 3);
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    Press(u'R');
    EXPECT_EQ(mZephor->mDeltaRequest, 2) << "no step";
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    Frame();
    EXPECT_EQ(mZephor->mStage.waveformIndex, 1) << "row 1";
    EXPECT_EQ(mZephor->mClut.currentSlot, 6);
}

TEST_F(ZephorKeys, AKeyPressedForEverPassesTheEndsOfTheRequests) {
    Start();
    OpenZephor& z = *mZephor;
    z.mDeltaRequest = z.mWaveformRequest = z.mClut.request = INT32_MAX;
    for (const char16_t key : { u'S', u'W', u'X' }) Press(key);
    EXPECT_EQ(z.mDeltaRequest, INT32_MIN);
    EXPECT_EQ(z.mWaveformRequest, INT32_MIN);
    EXPECT_EQ(z.mClut.request, INT32_MIN);
    for (const char16_t key : { u'A', u'Q' }) Press(key);
    EXPECT_EQ(z.mDeltaRequest, INT32_MAX);
    EXPECT_EQ(z.mWaveformRequest, INT32_MAX);
    Frame();
    EXPECT_EQ(z.mWaveformRequest, 0) << "there is no such row";
    EXPECT_EQ(z.mStage.waveformIndex, 0);
}

} // namespace
} // namespace orvane::zephor
