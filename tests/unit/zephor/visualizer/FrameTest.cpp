// A frame of the classic visualizer: its steps in order, and what it does without.
#include "ZephorFixture.h"

#include "render/PipelineKind.h"
#include "unit/zephor/layers/LayerPixels.h"
#include "zephor/effects/waveforms/WaveformLists.h"

#include <algorithm>

namespace orvane::zephor {
namespace {

using render::DeviceCall;
using render::Refusal;
using tests::LayerPixels;
using visualizer::DestinationOf;
using visualizer::ExpectRect;

constexpr std::string_view kImageName = "Zephor Indexed texture";

class ZephorFrame : public ZephorFixture {
protected:
    void StartRefusing(Refusal what) {
        Make();
        mZephor->onReshape = [what](auto& renderer) { renderer.Refuse(what); };
        ASSERT_TRUE(mZephor->Start(mWindow->Window(), mStrings));
    }

    // What the device did, without the states of blending.
    std::vector<DeviceCall> Calls() {
        std::vector<DeviceCall> calls;
        for (const auto& call : Recorder().Calls())
            if (call.call != DeviceCall::SetBlendState && call.call != DeviceCall::ClearBlendState)
                calls.push_back(call.call);
        return calls;
    }

    [[nodiscard]] LayerPixels Image() const { return LayerPixels(*mZephor->mLayers->targetLayer); }

    static std::vector<std::uint8_t> TexelsOf(const render::RecordedImage& image) {
        std::vector<std::uint8_t> texels;
        for (std::uint32_t y = 0; y < image.height; ++y)
            for (const std::byte texel : image.Row(y)) texels.push_back(std::to_integer<std::uint8_t>(texel));
        return texels;
    }

    // The image after a feedback step by the field in force, by the step's definition.
    [[nodiscard]] std::vector<std::uint8_t> FedBack(const LayerPixels& source) const {
        const auto width = std::size_t(source.width), height = std::size_t(source.height);
        std::vector<std::uint8_t> padded((width + 1) * height), target(width * height);
        for (std::size_t y = 0; y < height; ++y)
            std::copy_n(source.bytes.begin() + std::ptrdiff_t(y * width), width,
                        padded.begin() + std::ptrdiff_t(y * (width + 1)));
        FeedbackRows({ .source = padded.data(),
                       .sourceRowBytes = source.width + 1,
                       .target = target.data(),
                       .targetRowBytes = source.width,
                       .width = source.width,
                       .height = source.height },
                     mZephor->mLayers->nextDeltaField->Field(), { 0, source.height });
        return target;
    }

    static bool IsLit(const LayerPixels& image) {
        return std::ranges::any_of(image.bytes, [](std::uint8_t value) { return value != 0; });
    }
};

TEST_F(ZephorFrame, DrawsImageLogoConfigAndThePanelsBetweenBeginFrameAndPresent) {
    StartAndDraw(1000, 500);
    const auto track = records::MakeTrackParam();
    track->mTrackName.Assign(u"Name");
    mZephor->StartExternalVisualPlayback(track.get(), &track->mAudioFormat, 7, 8);
    for (const char16_t key : { u'C', u'F', u'H' }) Press(key);
    FrameAt(1);
    EXPECT_EQ(Calls(),
              (std::vector{ DeviceCall::BeginFrame, DeviceCall::Draw, DeviceCall::Draw, DeviceCall::Draw,
                            DeviceCall::Draw, DeviceCall::Draw, DeviceCall::Draw, DeviceCall::Present }));
    std::vector<const render::ITexture*> textures;
    for (const auto& draw : Recorder().Draws()) textures.push_back(draw.texture);
    EXPECT_EQ(textures, (std::vector<const render::ITexture*>{
                            mZephor->mIndexTexture.get(), mZephor->mLogoTexture.get(),
                            mZephor->mConfigTexture.get(), mZephor->mTrackTextTexture.get(),
                            mZephor->mHelpTexture.get(), mZephor->mFPSTexture.get() }));
    EXPECT_EQ(Recorder().ModelViewDepth(), 1u);
    EXPECT_EQ(Recorder().ProjectionDepth(), 1u);
}

TEST_F(ZephorFrame, TheImageFillsTheViewThroughTheColourTableWhichIsUnboundBehindIt) {
    StartAndDraw();
    const auto& image = Recorder().Draws().at(0);
    EXPECT_EQ(image.bufferId, int(mZephor->mImageQuadId));
    EXPECT_EQ(image.primitive, render::kPrimitive_TriangleStrip);
    EXPECT_EQ(image.blendMode, render::kBlendMode_Off);
    ExpectRect(DestinationOf(image), { 0, 0, 1, 1 });
    EXPECT_EQ(image.Vertex(1)[3], 1) << "right";
    EXPECT_EQ(image.Vertex(1)[4], 0) << "top";
    EXPECT_EQ(image.Vertex(2)[3], 0) << "left";
    EXPECT_EQ(image.Vertex(2)[4], 1) << "bottom";
    ASSERT_NE(image.unitImages[0], nullptr);
    EXPECT_EQ(image.unitImages[0]->pixelFormat, render::kPixelFormat_R8UInt);
    EXPECT_EQ(image.unitImages[0]->width, 66u);
    EXPECT_EQ(image.unitImages[0]->height, 50u);
    ASSERT_NE(image.unitImages[1], nullptr);
    EXPECT_EQ(image.unitImages[1]->width, 256u);
    const auto& logo = Recorder().Draws().at(1);
    EXPECT_EQ(logo.unitImages[1], nullptr);
}

TEST_F(ZephorFrame, TheImageIsUploadedInTheFrameThatMadeIt) {
    StartAndDraw();
    const auto resource = Recorder().FindResource(kImageName);
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(resource->fills, 0u) << "created with its bytes";
    for (int frame = 1; frame <= 3; ++frame) {
        MakeSound();
        FrameAt(frame * 0.025);
        EXPECT_TRUE(IsLit(Image()));
        EXPECT_EQ(TexelsOf(*Recorder().Draws().at(0).unitImages[0]), Image().bytes);
        EXPECT_EQ(resource->fills, std::uint32_t(frame));
    }
}

TEST_F(ZephorFrame, AnImageTextureThatIsRefusedIsTriedAgainWithTheNextFrame) {
    Start();
    Recorder().Refuse(Refusal::Texture);
    Frame();
    EXPECT_EQ(mZephor->mIndexTexture, nullptr);
    Recorder().Refuse(Refusal::Texture, false);
    Frame();
    EXPECT_NE(mZephor->mIndexTexture, nullptr);
}

TEST_F(ZephorFrame, SelectsFirstAndStepsTheImageByTheNewFieldInTheSameFrame) {
    StartAndDraw();
    for (int frame = 1; frame <= 5; ++frame) {
        MakeSound();
        FrameAt(frame * 0.025);
    }
    DrawNoMore();
    const LayerPixels before = Image();
    ASSERT_TRUE(IsLit(before));
    const auto version = mZephor->mLayers->nextDeltaField->Version();
    FrameAt(15.5);
    EXPECT_NE(mZephor->mLayers->nextDeltaField->Version(), version) << "the field changed";
    EXPECT_EQ(Image().bytes, FedBack(before));
    EXPECT_EQ(TexelsOf(*Recorder().Draws().at(0).unitImages[0]), Image().bytes);
}

TEST_F(ZephorFrame, TheWaveformIsDrawnOverTheFedBackImage) {
    StartAndDraw();
    MakeSound();
    FrameAt(0.025);
    const auto image = Image().bytes;
    EXPECT_GT(std::ranges::count_if(image, [](int value) { return value > kBrightestFedBack; }), 0)
        << "only what is drawn in this frame is that bright";
}

TEST_F(ZephorFrame, TheSoundLeavesAnEchoOf95PerCentForTheNextFrame) {
    StartAndDraw();
    MakeSound();
    mZephor->mConditioned.gatedSpectrum[0][9] = 200;
    const ZephorAudioState before = mZephor->mConditioned;
    FrameAt(0.025);
    for (int channel = 0; channel < kAudioChannels; ++channel)
        for (int i = 0; i < kAudioPoints; ++i) {
            EXPECT_EQ(mZephor->mConditioned.waveform[channel][i], before.waveform[channel][i] * 0.95f);
            EXPECT_EQ(mZephor->mConditioned.spectrum[channel][i], before.spectrum[channel][i] * 0.95f);
        }
    EXPECT_EQ(mZephor->mConditioned.gatedSpectrum[0][9], 200);
    FrameAt(0.05);
    EXPECT_EQ(mZephor->mConditioned.spectrum[1][0], before.spectrum[1][0] * 0.95f * 0.95f);
}

TEST_F(ZephorFrame, APulseIsConditionedStepsTheClockAndDrawsOneFrame) {
    Start();
    const std::vector<std::uint8_t> sound(sizeof(records::AudioRenderData), 255);
    mZephor->StorePulse(sound.data(), sound.size(), 4, 5);
    mClock.SetTo(kStart + 2);
    Recorder().ForgetRecords();
    EXPECT_EQ(mZephor->AudioDataArrived(4), 0u);
    EXPECT_EQ(mZephor->mElapsed, 2);
    EXPECT_EQ(Recorder().CountOf(DeviceCall::Present), 1u);
    // (255 - 127) * 0.0077, once echoed.
    EXPECT_NEAR(mZephor->mConditioned.waveform[0][100], 0.9856 * 0.95, 1e-6);
    EXPECT_EQ(mZephor->mConditioned.spectrumSum[0], 256u * 255);
}

TEST_F(ZephorFrame, TheConfigPanelNamesWaveformFieldAndColourMap) {
    StartAndDraw();
    Press(u'C');
    auto& texts = SitesInForce().drawing->texts;
    texts.clear();
    FrameAt(1);
    ASSERT_EQ(texts.size(), 3u);
    const std::string& field = mZephor->mDeltaFunctor->name;
    EXPECT_FALSE(field.empty());
    EXPECT_EQ(texts[0].text, u"Double Helix");
    EXPECT_EQ(texts[1].text, std::u16string(field.begin(), field.end()));
    EXPECT_EQ(texts[2].text, u"Firestorm");
    EXPECT_EQ(texts[0].colour, (std::array<float, 4>{ 1, 1, 1, 1 }));
    EXPECT_EQ(DrawOf(mZephor->mConfigTexture)->tint, (std::array<float, 4>{ 1, 1, 1, 1 }));
}

// The canvas lists no empty texts: the lines that are there show the rows of those that aren't.
TEST_F(ZephorFrame, WhatIsAbsentGivesAnEmptyLineInTheConfigPanel) {
    constexpr double kRow = 18; // pixels: 12 by 1.5
    StartAndDraw();
    Press(u'C');
    auto& texts = SitesInForce().drawing->texts;
    const auto rowsShown = [&](double seconds) {
        texts.clear();
        FrameAt(seconds);
        std::vector<double> rows;
        for (const auto& line : texts) rows.push_back(line.rect[1] / kRow);
        return rows;
    };
    EXPECT_EQ(rowsShown(1), (std::vector<double>{ 0, 1, 2 }));
    DrawNoMore();
    EXPECT_EQ(rowsShown(2), (std::vector<double>{ 1, 2 }));
    mZephor->mClut.currentSlot = 4; // of a fixed table, which has no name
    mZephor->mClut.fadeLevel = kFadeStart;
    EXPECT_EQ(rowsShown(3), (std::vector<double>{ 1 }));
    mZephor->mDeltaFunctor.reset();
    EXPECT_EQ(rowsShown(4), (std::vector<double>{}));
}

TEST_F(ZephorFrame, WithoutThePipelineTheFrameHasNoImageAndAllElse) {
    StartRefusing(Refusal::FragmentFunction);
    EXPECT_EQ(mZephor->mImageQuadId, render::kNoVertexBuffer);
    Frame();
    EXPECT_EQ(mZephor->mStage.fadeFrames, 127) << "the fade is counted in front of the question";
    EXPECT_EQ(mZephor->mClut.fadeLevel, kFadeStart) << "no colours";
    MakeSound();
    const float before = mZephor->mConditioned.waveform[0][1];
    FrameAt(0.025);
    EXPECT_EQ(mZephor->mConditioned.waveform[0][1], before) << "no echo";
    EXPECT_FALSE(IsLit(Image()));
    EXPECT_EQ(Calls(), (std::vector{ DeviceCall::BeginFrame, DeviceCall::Draw, DeviceCall::Present }));
    EXPECT_NE(DrawOf(mZephor->mLogoTexture), nullptr);
}

TEST_F(ZephorFrame, WithoutAClutBufferNothingIsUploadedAndNothingOfTheImageDrawn) {
    StartRefusing(Refusal::BufferTexture);
    Frame();
    MakeSound();
    FrameAt(0.025);
    EXPECT_TRUE(IsLit(Image())) << "it goes on unseen";
    EXPECT_EQ(Recorder().FindResource(kImageName), nullptr);
    const auto& quad = Recorder().Draws().at(0);
    EXPECT_EQ(quad.texture, nullptr);
    EXPECT_EQ(quad.unitImages[0], nullptr);
    EXPECT_EQ(quad.unitImages[1], nullptr);
    EXPECT_EQ(quad.blendMode, render::kBlendMode_Additive) << "nothing is added to what is there";
    EXPECT_NE(DrawOf(mZephor->mLogoTexture), nullptr);
}

TEST_F(ZephorFrame, UntilAFieldIsReadyThereAreOnlyLogoAndPanels) {
    Start();
    mZephor->mLayers->nextDeltaField->ready = false;
    MakeSound();
    const float before = mZephor->mConditioned.waveform[0][1];
    Press(u'F');
    for (int frame = 0; frame < 3; ++frame) FrameAt(frame * 0.025);
    EXPECT_FALSE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    EXPECT_EQ(mZephor->mConditioned.waveform[0][1], before);
    EXPECT_FALSE(IsLit(Image()));
    EXPECT_NE(DrawOf(mZephor->mLogoTexture), nullptr);
    EXPECT_NE(DrawOf(mZephor->mFPSTexture), nullptr);
    mZephor->mLayers->nextDeltaField->ready = true;
    FrameAt(0.1);
    EXPECT_TRUE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_TRUE(IsLit(Image()));
}

TEST_F(ZephorFrame, AZeroWidthMakesAFrameDoNothingAtAllNotEvenTheFade) {
    StartAndDraw();
    Press(u'R');
    FrameAt(0.025);
    ASSERT_EQ(mZephor->mDeltaFade.FramesLeft(), 39);
    MakeSound();
    const float before = mZephor->mConditioned.waveform[0][1];
    mZephor->mViewSize[0] = 0;
    FrameAt(0.05);
    EXPECT_TRUE(Recorder().Calls().empty());
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 39);
    EXPECT_EQ(mZephor->mConditioned.waveform[0][1], before);
    mZephor->mViewSize[0] = 64;
    FrameAt(0.075);
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 38);
}

TEST_F(ZephorFrame, AWindowOfNoSizeStartsAndDrawsNothing) {
    StartAndDraw(0, 0);
    EXPECT_TRUE(Recorder().Calls().empty());
    EXPECT_FALSE(mZephor->mDeltaFade.IsFieldInstalled());
}

TEST_F(ZephorFrame, AZeroHeightIsDrawnLikeAnyOther) {
    StartAndDraw(64, 0);
    EXPECT_EQ(Recorder().CountOf(DeviceCall::Present), 1u);
}

TEST_F(ZephorFrame, BeforeItsCreationAFrameAndAResizeDoNothing) {
    Make();
    mZephor->StepFrameClock();
    mZephor->Draw(0);
    const double size[2] = { 20, 10 };
    mZephor->Reshape(size);
    EXPECT_EQ(mZephor->mLayers->targetLayer->Width(), 22);
    EXPECT_EQ(mZephor->Renderer(), nullptr);
}

TEST_F(ZephorFrame, ThePresetPathDoesNotRunBecauseTheFieldIsReadyInEveryFrame) {
    StartAndDraw();
    mZephor->mChangeMode = 2;
    mZephor->mDeltaRequest = 0;
    for (int frame = 1; frame <= 80; ++frame) {
        FrameAt(frame * 0.5);
        EXPECT_TRUE(mZephor->mLayers->nextDeltaField->ready);
        EXPECT_NE(mZephor->mDeltaRequest, 4);
    }
}

// Waveform and hold flag agree when the flag is set for the first waveform and clear for any other.
TEST_F(ZephorFrame, AMismatchOfWaveformAndHoldFlagMakesAPresetDueBeforeItsTime) {
    for (const bool hold : { false, true })
        for (const std::int32_t index : { 0, 1, 105 }) {
            StartAndDraw();
            mZephor->mChangeMode = 2;
            mZephor->mDeltaRequest = 0;
            mZephor->mHold = hold;
            mZephor->mStage.waveformIndex = index;
            mZephor->mLayers->nextDeltaField->ready = false;
            mZephor->mDeltaChangeTime = mZephor->mNow;
            Frame();
            const bool agree = (index == 0) == hold;
            EXPECT_EQ(mZephor->mDeltaRequest, agree ? 0 : 4) << hold << " " << index;
        }
}

TEST_F(ZephorFrame, PastTheFieldsTimeAPresetIsDueInTheModeOfPresetsAlone) {
    for (const std::int32_t mode : { 0, 1, 2 }) {
        StartAndDraw();
        mZephor->mChangeMode = mode;
        mZephor->mDeltaRequest = 0;
        ASSERT_NE(mZephor->mStage.waveformIndex, 0) << "no mismatch";
        mZephor->mLayers->nextDeltaField->ready = false;
        FrameAt(15);
        EXPECT_EQ(mZephor->mDeltaRequest, 0) << "not past " << mode;
        FrameAt(15.25);
        EXPECT_EQ(mZephor->mDeltaRequest, mode == 2 ? 4 : 0) << mode;
    }
}

} // namespace
} // namespace orvane::zephor
