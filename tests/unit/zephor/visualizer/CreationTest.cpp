// How the classic visualizer comes about: what it makes, in which order and under which names, and what it does
// without.
#include "ZephorFixture.h"

#include "render/PipelineKind.h"
#include "support/LogCapture.h"
#include "zephor/effects/waveforms/WaveformLists.h"

#include <algorithm>
#include <tuple>

namespace orvane::zephor {
namespace {

using render::Refusal;
using Keys = std::vector<std::string>;

class ZephorCreation : public ZephorFixture {
protected:
    // Strings with the keys "0", "1" and so on.
    static records::LocalizedStrings Numbered(int count) {
        records::LocalizedStrings list;
        for (int i = 0; i < count; ++i) list.push_back(records::MakeLocalizedString(std::to_string(i), "k"));
        return list;
    }

    static Keys KeysOf(const records::LocalizedStrings& list) {
        Keys keys;
        for (const auto& entry : list) keys.emplace_back(records::KeyText(entry));
        return keys;
    }

    bool StartRefusing(Refusal what) {
        Make();
        mZephor->onReshape = [what](auto& renderer) { renderer.Refuse(what); };
        return mZephor->Start(mWindow->Window(), mStrings);
    }
};

TEST_F(ZephorCreation, MakesItsResourcesInOrderUnderTheirNames) {
    Start();
    using Row = std::tuple<std::string, std::uint32_t, bool>; // name, unit, dynamic
    std::vector<Row> made;
    for (const auto& resource : Recorder().Resources())
        made.emplace_back(resource->name, resource->textureUnit, resource->dynamic);
    EXPECT_EQ(made, (std::vector<Row>{ { "ZephorVisualizer clut buffer", 1u, true },
                                       { "Config texture", 0u, true },
                                       { "Kelbo Logo", 0u, false },
                                       { "Help Strings", 0u, true },
                                       { "Alternative Help Strings", 0u, true },
                                       { "FPSTexture", 0u, true } }));
    EXPECT_EQ(Recorder().FindResource("ZephorVisualizer clut buffer")->image->width, 256u);
    EXPECT_EQ(Recorder().BufferNames(), (Keys{ "TexturedQuad", "Main Zephor buffer" }));
    EXPECT_EQ(mZephor->mQuadBufferId, 1u);
    EXPECT_EQ(mZephor->mImageQuadId, 2u);
    EXPECT_EQ(Recorder().BufferBytes(2).size(), 4 * 5 * sizeof(float))
        << "four vertices of position and texture";
}

TEST_F(ZephorCreation, TakesTheWindowItsClientSizeAndTheClock) {
    Start(70, 50);
    EXPECT_EQ(SitesInForce().lastWindow, mWindow->Window());
    EXPECT_EQ(mZephor->mViewSize, (visualizer::Size{ 70, 50 }));
    EXPECT_EQ(mZephor->mMinimumSize, (visualizer::Size{ 64, 64 }));
    EXPECT_EQ(mZephor->mStartTime, kStart);
    EXPECT_EQ(mZephor->mLogoShownAt, kStart);
    EXPECT_EQ(mZephor->mLayers->targetLayer->Width(), 72);
    EXPECT_EQ(mZephor->mLayers->nextDeltaField->Height(), 52);
}

TEST_F(ZephorCreation, ChoosesAFieldAtOnceAndLeavesWaveformAndColoursToTheFirstFrame) {
    Start();
    EXPECT_NE(mZephor->mDeltaFunctor, nullptr);
    EXPECT_EQ(mZephor->mDeltaIndex, 2) << "0, and the request 2, which stays";
    EXPECT_EQ(mZephor->mDeltaRequest, 2);
    EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 15);
    EXPECT_FALSE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_EQ(mZephor->mStage.waveform, WaveformList1()[0]);
    EXPECT_EQ(mZephor->mWaveformRequest, 2);
    EXPECT_EQ(mZephor->mClut.request, 2);
    EXPECT_EQ(mZephor->mClut.sliceCount, 2) << "the colours were initialised";
    Frame();
    EXPECT_EQ(mZephor->mStage.waveformIndex, 6) << "row 0 of the presets";
    EXPECT_EQ(mZephor->mClut.currentSlot, 2);
}

TEST_F(ZephorCreation, FailsWithoutAWindowAndWithoutItsSizeAndPrintsNothing) {
    const tests::LogCapture log;
    Make();
    EXPECT_FALSE(mZephor->Start({}, {}));
    mWindow->Destroy();
    EXPECT_FALSE(mZephor->Start(mWindow->Window(), {}));
    EXPECT_EQ(mZephor->Renderer(), nullptr);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(ZephorCreation, FailsWithoutARendererAndPrintsNothing) {
    const tests::LogCapture log;
    SitesInForce().refuseRenderer = true;
    Make();
    EXPECT_FALSE(mZephor->Start(mWindow->Window(), {}));
    SitesInForce() = {};
    SitesInForce().refuseVertexBuffer = true;
    EXPECT_FALSE(mZephor->Start(mWindow->Window(), {})) << "no shared quad, no renderer";
    EXPECT_EQ(log.Text(), "");
}

TEST_F(ZephorCreation, ItsResultIsThatOfTheFpsPanel) {
    EXPECT_FALSE(StartRefusing(Refusal::Texture));
    EXPECT_EQ(mZephor->mFPSTexture, nullptr);
}

TEST_F(ZephorCreation, WithoutAClutBufferTheQuadIsOfPipeline5) {
    ASSERT_TRUE(StartRefusing(Refusal::BufferTexture));
    Frame();
    const auto& image = Recorder().Draws().at(0);
    EXPECT_EQ(image.bufferId, int(mZephor->mImageQuadId));
    EXPECT_EQ(image.kind, render::kPos_TexCoord_SrcAlpha_DstAlphaOne);
}

TEST_F(ZephorCreation, WithAClutBufferTheQuadIsOfPipeline16) {
    StartAndDraw();
    EXPECT_EQ(Recorder().Draws().at(0).kind, render::kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF);
}

TEST_F(ZephorCreation, TheHelpListsAreEntries0To4And0And5To7) {
    mStrings = Numbered(12);
    Start();
    EXPECT_EQ(KeysOf(mZephor->mHelpStrings), (Keys{ "0", "1", "2", "3", "4" }));
    EXPECT_EQ(KeysOf(mZephor->mAlternativeHelpStrings), (Keys{ "0", "5", "6", "7" }));
}

TEST_F(ZephorCreation, OfAShorterListTheHelpHasWhatIsThere) {
    const std::pair<Keys, Keys> expected[] = {
        { {}, {} },
        { { "0" }, { "0" } },
        { { "0", "1", "2" }, { "0" } },
        { { "0", "1", "2", "3", "4" }, { "0" } },
        { { "0", "1", "2", "3", "4" }, { "0", "5", "6" } },
    };
    for (std::size_t row = 0; const int count : { 0, 1, 3, 5, 7 }) {
        mStrings = Numbered(count);
        Start();
        EXPECT_EQ(KeysOf(mZephor->mHelpStrings), expected[row].first) << count;
        EXPECT_EQ(KeysOf(mZephor->mAlternativeHelpStrings), expected[row].second) << count;
        EXPECT_NE(mZephor->mHelpTexture, nullptr);
        EXPECT_NE(mZephor->mAlternativeHelpTexture, nullptr);
        ++row;
    }
}

TEST_F(ZephorCreation, TheHelpTexturesShowTheListsAsTheyWereMade) {
    mStrings = Numbered(8);
    Start();
    const auto showsText = [](const render::TexturePtr& texture) {
        return !visualizer::IsBlank(*static_cast<render::RecordingTexture&>(*texture).Image());
    };
    EXPECT_TRUE(showsText(mZephor->mHelpTexture));
    EXPECT_TRUE(showsText(mZephor->mAlternativeHelpTexture));
    EXPECT_FALSE(showsText(mZephor->mFPSTexture));
}

TEST_F(ZephorCreation, WhatItMadeGoesBeforeTheRenderer) {
    StartAndDraw();
    const auto resources = Recorder().Resources();
    EXPECT_TRUE(std::ranges::all_of(resources, [](const auto& resource) { return resource->alive; }));
    EXPECT_EQ(resources.back()->name, "Zephor Indexed texture");
    mZephor.reset();
    EXPECT_TRUE(std::ranges::none_of(resources, [](const auto& resource) { return resource->alive; }));
}

TEST_F(ZephorCreation, RenderModesSetFlagsAndLeaveTheFrameDelay) {
    Start();
    const double delay = mZephor->mFrameDelay;
    const auto flagsOf = [&](std::uint32_t mode) {
        mZephor->SetRenderMode(mode);
        return std::pair(mZephor->mStepFlag, mZephor->mOptionFlag);
    };
    EXPECT_EQ(flagsOf(3), std::pair(false, false)) << "as they were";
    EXPECT_EQ(flagsOf(1), std::pair(true, false));
    EXPECT_EQ(flagsOf(2), std::pair(true, true));
    EXPECT_EQ(flagsOf(3), std::pair(true, true));
    EXPECT_EQ(flagsOf(~0u), std::pair(true, true));
    EXPECT_EQ(flagsOf(1), std::pair(true, false));
    EXPECT_EQ(flagsOf(0), std::pair(false, false));
    EXPECT_EQ(mZephor->mFrameDelay, delay);
}

TEST_F(ZephorCreation, Slot21RestartsTheTrackInfosFadeWhileThePulsePositionIs0) {
    StartAndDraw();
    FrameAt(7);
    mZephor->mTrackChangeTime = 1;
    mZephor->mPulsePosition = 1;
    mZephor->Reserved21();
    EXPECT_EQ(mZephor->mTrackChangeTime, 1);
    mZephor->mPulsePosition = 0;
    mZephor->Reserved21();
    EXPECT_EQ(mZephor->mTrackChangeTime, 7);
}

} // namespace
} // namespace orvane::zephor
