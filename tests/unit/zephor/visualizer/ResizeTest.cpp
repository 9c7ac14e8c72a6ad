// What a new size of the drawing area does.
#include "ZephorFixture.h"

namespace orvane::zephor {
namespace {

class ZephorResize : public ZephorFixture {
protected:
    void ResizeTo(double width, double height) {
        const double size[2] = { width, height };
        mZephor->Reshape(size);
    }

    // Whether the shadow field is the field in force.
    [[nodiscard]] bool ShadowIsTheField() const {
        const FeedbackField shadow = mZephor->mLayers->CurrentDeltaField().Field();
        const FeedbackField field = mZephor->mLayers->nextDeltaField->Field();
        if (shadow.width != field.width || shadow.height != field.height) return false;
        for (int y = 0; y < field.height; ++y)
            for (int x = 0; x < field.width; ++x) {
                const DeltaCell a = shadow.Row(y)[x], b = field.Row(y)[x];
                if (a.x != b.x || a.y != b.y) return false;
            }
        return true;
    }
};

TEST_F(ZephorResize, GivesTheRendererTheViewAndTheLayersTwoPixelsMore) {
    StartAndDraw();
    Recorder().ForgetRecords();
    ResizeTo(80, 30);
    EXPECT_EQ(Recorder().Targets(), (std::vector<render::TargetRecord>{ { 80, 30 } }));
    EXPECT_EQ(mZephor->mDrawRect, (std::array<double, 4>{ 0, 0, 82, 32 }));
    const ZephorLayerSet& layers = *mZephor->mLayers;
    const ZephorLayer* const sized[] = { layers.sourceLayer.get(), layers.targetLayer.get(),
                                         layers.nextDeltaField.get(),
                                         &mZephor->mLayers->CurrentDeltaField() };
    for (const ZephorLayer* layer : sized) {
        EXPECT_EQ(layer->Width(), 82);
        EXPECT_EQ(layer->Height(), 32);
    }
}

TEST_F(ZephorResize, OfAFractionLeavesWholePixels) {
    StartAndDraw();
    ResizeTo(80.75, 30.5);
    EXPECT_EQ(mZephor->mDrawRect[2], 82.75);
    EXPECT_EQ(mZephor->mLayers->targetLayer->Width(), 82);
    EXPECT_EQ(mZephor->mLayers->targetLayer->Height(), 32);
}

TEST_F(ZephorResize, ComputesTheSameFunctorsFieldAtTheNewSize) {
    StartAndDraw();
    const auto* functor = mZephor->mDeltaFunctor.get();
    const auto version = mZephor->mLayers->nextDeltaField->Version();
    ResizeTo(80, 30);
    EXPECT_EQ(mZephor->mDeltaFunctor.get(), functor);
    EXPECT_GT(mZephor->mLayers->nextDeltaField->Version(), version);
    EXPECT_TRUE(mZephor->mLayers->nextDeltaField->ready);
    const FeedbackField field = mZephor->mLayers->nextDeltaField->Field();
    float right = 0, bottom = 0;
    for (int y = 0; y < field.height; ++y)
        for (int x = 0; x < field.width; ++x) {
            right = std::max(right, field.Row(y)[x].x);
            bottom = std::max(bottom, field.Row(y)[x].y);
        }
    EXPECT_GT(right, 66) << "beyond the old width";
    EXPECT_LE(right, 81);
    EXPECT_LE(bottom, 31) << "within the new height";
}

TEST_F(ZephorResize, WithoutAReadyFieldComputesNone) {
    StartAndDraw();
    mZephor->mLayers->nextDeltaField->ready = false;
    ResizeTo(80, 30);
    EXPECT_FALSE(mZephor->mLayers->nextDeltaField->ready);
}

TEST_F(ZephorResize, TheReleasedTextureIsMadeAnewAndNotWritten) {
    StartAndDraw();
    FrameAt(0.025);
    const auto released = Recorder().FindResource("Zephor Indexed texture");
    ASSERT_EQ(released->fills, 1u);
    ResizeTo(80, 30);
    EXPECT_EQ(mZephor->mIndexTexture, nullptr);
    EXPECT_FALSE(released->alive);
    FrameAt(0.05);
    const auto made = Recorder().FindResource("Zephor Indexed texture");
    EXPECT_NE(made, released);
    EXPECT_EQ(released->fills, 1u);
    EXPECT_EQ(made->fills, 0u);
    EXPECT_EQ(made->image->width, 82u);
    EXPECT_EQ(made->image->height, 32u);
}

TEST_F(ZephorResize, InTheMiddleOfAFadeEndsItAndTheShadowFieldTakesTheNewFieldAtOnce) {
    StartAndDraw();
    Press(u'R');
    for (int frame = 1; frame <= 10; ++frame) FrameAt(frame * 0.025);
    ASSERT_EQ(mZephor->mDeltaFade.FramesLeft(), 30);
    EXPECT_FALSE(ShadowIsTheField());
    ResizeTo(80, 30);
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 0);
    EXPECT_FALSE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_FALSE(ShadowIsTheField()) << "with the next frame";
    FrameAt(1);
    EXPECT_TRUE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 0);
    EXPECT_TRUE(ShadowIsTheField());
}

TEST_F(ZephorResize, BringsTheLogoBackAtFullStrength) {
    StartAndDraw();
    FrameAt(20);
    EXPECT_EQ(DrawOf(mZephor->mLogoTexture), nullptr);
    ResizeTo(80, 30);
    EXPECT_TRUE(mZephor->mLogoPending);
    FrameAt(21);
    ASSERT_NE(DrawOf(mZephor->mLogoTexture), nullptr);
    EXPECT_EQ(DrawOf(mZephor->mLogoTexture)->tint[3], 1);
    FrameAt(26);
    EXPECT_EQ(DrawOf(mZephor->mLogoTexture)->tint[3], 0.5f);
}

TEST_F(ZephorResize, HidesNoHelpAndBeginsItsStatesAnew) {
    StartAndDraw();
    Press(u'H');
    Press(u'H');
    ResizeTo(80, 30);
    EXPECT_EQ(mZephor->mHelpState, 0u);
    EXPECT_NE(mZephor->mHelpPanel, nullptr);
    Press(u'H');
    EXPECT_EQ(mZephor->mHelpState, 1u);
}

TEST_F(ZephorResize, LeavesTimersAndRequestsAndTheSelection) {
    StartAndDraw();
    mZephor->mDeltaRequest = 5;
    const double due = mZephor->mDeltaChangeTime;
    const auto* waveform = mZephor->mStage.waveform;
    FrameAt(3);
    ResizeTo(80, 30);
    EXPECT_EQ(mZephor->mDeltaRequest, 5);
    EXPECT_EQ(mZephor->mDeltaChangeTime, due);
    EXPECT_EQ(mZephor->mStage.waveform, waveform);
}

TEST_F(ZephorResize, ToNothingAndBackGoesOn) {
    StartAndDraw();
    ResizeTo(0, 0);
    FrameAt(1);
    EXPECT_TRUE(Recorder().Calls().empty());
    ResizeTo(64, 48);
    FrameAt(2);
    EXPECT_TRUE(mZephor->mDeltaFade.IsFieldInstalled());
    EXPECT_EQ(Recorder().CountOf(render::DeviceCall::Present), 1u);
}

TEST_F(ZephorResize, WithoutMemoryForAnImageOfThatSizeTheFrameHasNone) {
    StartAndDraw();
    ResizeTo(20000, 1); // more than a canvas or a texture has
    FrameAt(1);
    EXPECT_EQ(mZephor->mLayers->targetLayer->Surface(), nullptr);
    EXPECT_EQ(mZephor->mIndexTexture, nullptr);
    EXPECT_EQ(Recorder().CountOf(render::DeviceCall::Present), 1u);
    ResizeTo(64, 48);
    FrameAt(2);
    EXPECT_NE(mZephor->mIndexTexture, nullptr);
}

} // namespace
} // namespace orvane::zephor
