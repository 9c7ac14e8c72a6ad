#include "zephor/visualizer/ZephorVisualizer.h"

#include "platform/Cores.h"
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/layers/TextureFunctors.h"
#include "zephor/visualizer/Logo.h"
#include "zephor/visualizer/ZephorWinVizDelegate.h"
#include "zephor/waveforms/DrawWaveforms.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace orvane::zephor {

namespace {

constexpr double kWholeTexture[4] = { 0, 0, 1, 1 };
constexpr double kWholeView[4] = { 0, 0, 1, 1 };
constexpr auto kImagePipeline = render::kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF;
constexpr std::uint32_t kColourAsSet = 2; // any value that is no ColorMode
constexpr float kWhite[4] = { 1, 1, 1, 1 };

// The image reaches past the view by this many pixels each way: a field may name the last column and row as the
// source of the ones before.
constexpr double kImageMargin = 2;

constexpr float kAudioEcho = 0.95f;              // what is left of the sound for a frame without a new one
constexpr double kLogoShare = 0.699999988079071; // of its own size

// The threads that share a feedback step. More than these wait for memory, not for each other.
constexpr unsigned kMostThreads = 4;

int FeedbackThreads() {
    return int(std::clamp(platform::ProcessorCores(), 1u, kMostThreads));
}

// Those of entries `places` that the list has.
template <std::size_t Count>
void TakeEntries(const records::LocalizedStrings& list, const std::size_t (&places)[Count],
                 records::LocalizedStrings& taken) {
    for (const std::size_t place : places)
        if (place < list.size()) taken.push_back(list[place]);
}

} // namespace

ZephorVisualizer::ZephorVisualizer(double startTime)
    : PlatformVisualizer(startTime, { kMinimumSide, kMinimumSide })
    , mLogoShownAt(startTime)
    , mLayers(std::make_unique<ZephorLayerSet>(FeedbackThreads())) {}

// What the renderer made goes before the renderer, which a base holds.
ZephorVisualizer::~ZephorVisualizer() = default;

bool ZephorVisualizer::Start(platform::NativeWindow window, const records::LocalizedStrings& strings) {
    constexpr std::uint32_t kTableEntries = kColourEntries, kTableUnit = 1, kQuadVertices = 4, kReserved = 1;
    constexpr std::size_t kPrimaryHelp[] = { 0, 1, 2, 3, 4 }, kAlternativeHelp[] = { 0, 5, 6, 7 };
    if (!TakeClientSize(window)) return false;
    const double frame[4] = { 0, 0, mViewSize[0], mViewSize[1] };
    ZephorWinVizDelegate delegate(window);
    if (!CreateRenderer(frame, &delegate)) return false;
    const visualizer::Size size = mViewSize;
    Reshape(size.data());
    mStage.waveform = WaveformList1().front();

    mClut.Init();
    mClut.clutBuffer.reset(
        mRenderer->CreateBufferTexture(kTableEntries, "ZephorVisualizer clut buffer", kTableUnit));
    const auto kind = mClut.clutBuffer ? kImagePipeline : render::kPos_TexCoord_SrcAlpha_DstAlphaOne;
    mImageQuadId =
        mRenderer->CreateVertexBuffer("Main Zephor buffer", render::kPrimitive_TriangleStrip,
                                      mRenderer->GetPipeline(kind), kQuadVertices, kReserved, nullptr);
    SelectAll(mNow, kSelect_AllForced);

    TakeEntries(strings, kPrimaryHelp, mHelpStrings);
    TakeEntries(strings, kAlternativeHelp, mAlternativeHelpStrings);
    CreateConfigPanelTexture();
    mHelpTexture = CreateHelpTexture("Help Strings", false);
    mAlternativeHelpTexture = CreateHelpTexture("Alternative Help Strings", true);
    return CreateFPSPanelTexture();
}

std::uint32_t ZephorVisualizer::AudioDataArrived(std::uint32_t) {
    ConditionAudio(mConditioned, mAudio);
    StepFrameClock();
    Draw(0);
    return 0;
}

void ZephorVisualizer::Draw(std::uint32_t flag) {
    if (mViewSize[0] == 0 || !mRenderer) return;
    mDeltaFade.StartFrame(*mLayers);
    mRenderer->BeginFrame();
    if (PresetIsDue())
        StartPreset();
    else
        SelectAll(mNow, kSelect_AllTimed);
    if (mDeltaFade.IsFieldInstalled()) StepImage();
    if (mClut.clutBuffer) UploadIndexImage(*mLayers->targetLayer, *mRenderer, mIndexTexture);
    DrawImage();
    ShowLogo();
    DrawConfig();
    PlatformVisualizer::Draw(flag);
    mRenderer->Present();
}

// ---- The image.

void ZephorVisualizer::StepImage() {
    if (mStage.fadeFrames != 0 && --mStage.fadeFrames == 0) mWaveformChangeTime = mNow + mWaveformPeriod;
    if (!mRenderer->GetPipeline(kImagePipeline)) return;
    mClut.StepFade(mNow);
    mLayers->StepFeedback();
    DrawSound();
}

void ZephorVisualizer::DrawSound() {
    const WaveformFrame frame = { *mLayers->targetLayer, mConditioned, mNow,
                                  mDrawRect[2],          mDrawRect[3], mClut.table };
    DrawWaveforms(mStage, frame);
    const auto leaveEcho = [](auto& channels) {
        for (auto& channel : channels)
            for (float& value : channel) value *= kAudioEcho;
    };
    leaveEcho(mConditioned.spectrum);
    leaveEcho(mConditioned.waveform);
    UpdateOverlays(mOverlays, frame, { mChangeMode == kChangeMode_Held, mHold }, WaveformLists());
}

// The graphics processor looks each byte up in the table: colour costs no pass over the image.
void ZephorVisualizer::DrawImage() {
    if (mClut.clutBuffer) mClut.clutBuffer->Bind();
    mRenderer->DrawTexturedQuad(mIndexTexture.get(), int(mImageQuadId), kWholeView, kWholeTexture, 1.0f,
                                kColourAsSet);
    if (mClut.clutBuffer) mClut.clutBuffer->Unbind();
}

void ZephorVisualizer::DrawPanelTexture(render::ITexture* texture, const double destination[4], float alpha,
                                        std::uint32_t colorMode) {
    DrawWithSharedQuad(texture, destination, alpha, colorMode);
}

// ---- Size.

std::uint32_t ZephorVisualizer::ReshapeRenderer() {
    ResizeImage();
    return 0;
}

// The logo comes back at full strength, and a field that is under way ends: the first frame takes the new one at
// once.
void ZephorVisualizer::ResizeImage() {
    const double rect[4] = { 0, 0, mViewSize[0], mViewSize[1] };
    mIndexTexture.reset();
    if (mRenderer) mRenderer->ResizeRenderTarget(rect);
    mWaveformPeriod = kWaveformPeriod;
    mClut.changePeriod = kColourPeriod;
    mDeltaPeriod = kDeltaPeriod;
    mDrawRect = { 0, 0, mViewSize[0] + kImageMargin, mViewSize[1] + kImageMargin };
    mLayers->Resize(int(mDrawRect[2]), int(mDrawRect[3]));
    mLogoPending = true;
    mHelpState = 0;
    mDeltaFade.Resized();
    ComputeFieldIfReady();
}

// ---- Logo and config panel.

void ZephorVisualizer::CreateConfigPanelTexture() {
    PlatformVisualizer::CreateConfigPanelTexture();
    if (mRenderer) mLogoTexture = MakeLogoTexture(*mRenderer);
}

void ZephorVisualizer::ShowLogo() {
    if (mLogoPending) {
        if (!DrawLogo(1.0)) return;
        mLogoShownAt = mNow;
        mLogoPending = false;
        return;
    }
    const double age = mNow - mLogoShownAt;
    if (age < kLogoFadeSeconds) DrawLogo(1.0 - age / kLogoFadeSeconds);
}

bool ZephorVisualizer::DrawLogo(double alpha) {
    if (!mLogoTexture) return false;
    double logo[2], view[4];
    mLogoTexture->GetSize(logo);
    mRenderer->GetViewport(view);
    const double width = logo[0] * kLogoShare / view[2], height = logo[1] * kLogoShare / view[3];
    const double destination[4] = { (1 - width) * 0.5, (1 - height) * 0.5, width, height };
    mRenderer->PushIdentityProjection();
    mRenderer->PushIdentityModelView();
    mRenderer->DrawTexturedQuad(mLogoTexture.get(), int(mQuadBufferId), destination, kWholeTexture,
                                float(alpha), render::kColorMode_White);
    mRenderer->PopModelView();
    mRenderer->PopProjection();
    return true;
}

void ZephorVisualizer::DrawConfig() {
    if (!mConfigPanel) return;
    mRenderer->SetColor(kWhite, 1.0f);
    visualizer::DrawConfigPanel(*mConfigPanel, *this, *mRenderer, int(mQuadBufferId),
                                mStage.waveform ? mStage.waveform->name : std::string_view(),
                                mDeltaFunctor ? mDeltaFunctor->name : std::string_view(), mClut.MapName());
}

// ---- What a host may ask for.

void ZephorVisualizer::SetRenderMode(std::uint32_t mode) {
    constexpr std::uint32_t kModes = 3;
    if (mode >= kModes) return;
    mStepFlag = mode >= 1;
    mOptionFlag = mode == 2;
}

void ZephorVisualizer::Reserved21() {
    if (mPulsePosition == 0) RestartTrackInfoFade();
}

} // namespace orvane::zephor
