#include "visualizer/Visualizer.h"

#include "platform/Clock.h"
#include "platform/LogLine.h"
#include "records/PulseEvents.h"
#include "visualizer/ConstructionSites.h"
#include "visualizer/Pixels.h"

#include <algorithm>
#include <cstring>

namespace orvane::visualizer {

namespace {

// A frame never counts for less than about half a step or more than about one and a half, however the
// frames fall: after a stall the picture goes on instead of jumping.
constexpr double kShortestStep = 0.51, kLongestStep = 1.49;

constexpr double kShortestMeasuredFrame = 1e-5; // seconds
constexpr double kUnmeasuredFps = 1000.0;

constexpr double kWholeTexture[4] = { 0, 0, 1, 1 };

enum RenderMode : std::uint32_t { kFullRate = 0, kFullRateToo = 1, kHalfRate = 2 };

} // namespace

// KEEP: elapsed begins as the clock's time and not as 0. So a track info fade that is restarted before the
// first frame, as every creation does, counts from a moment that lies the clock's time ahead of the first
// frame: the track that was playing when the visualizer was opened is shown at full strength for as long as
// the clock had already been running, or until the next track restarts the fade. Whoever opens a visualizer
// wants to know what is playing. Pinned by
// FrameClock.ElapsedBeginsAsTheStartTimeSoThatAFadeRestartedBeforeTheFirstFrameBeginsThatMuchLater.
Visualizer::Visualizer(double startTime, Size minimumSize)
    : mMinimumSize(minimumSize)
    , mViewSize(minimumSize)
    , mStartTime(startTime)
    , mFrameDelay(mFrameInterval)
    , mNow(startTime)
    , mLastTime(startTime)
    , mInstantaneousFps(0.0)
    , mElapsed(startTime) {
    ResetAudioBlock();
}

Visualizer::~Visualizer() = default;

void Visualizer::Reshape(const double size[2]) {
    mViewSize = { size[0], size[1] };
    ReshapeRenderer();
}

void Visualizer::Draw(std::uint32_t) {
    DrawTrackInfo(WholePixels(mViewSize[0]), WholePixels(mViewSize[1]), mRenderer.get(), mDisplayScale);
}

bool Visualizer::HandleKeyInput(std::uint32_t, const char16_t*, std::uint32_t, IVisualizerCommandReceiver*) {
    return false;
}

void Visualizer::SetRenderMode(std::uint32_t mode) {
    if (mode == kFullRate || mode == kFullRateToo) mFrameDelay = mFrameInterval;
    if (mode == kHalfRate) mFrameDelay = 2 * mFrameInterval;
}

void Visualizer::ToggleConfigDisplay() {
    mDebugToggle = !mDebugToggle;
}

bool Visualizer::CreateFPSPanelTexture() {
    RestartTrackInfoFade();
    return true;
}

void Visualizer::ClearHold() {
    RestartTrackInfoFade();
    records::trackInfoDirty = true;
    mHold = false;
}

void Visualizer::TrackChanged() {
    RestartTrackInfoFade();
    records::trackInfoDirty = true;
}

void Visualizer::SetHold() {
    RestartTrackInfoFade();
    mHold = true;
}

std::uint32_t Visualizer::ClearTrackState(bool) {
    mTrackStartA = 0;
    return 0;
}

render::IRenderer* Visualizer::CreateXelRenderer() {
    platform::LogLine("override CreateXelRenderer\n");
    return nullptr;
}

render::TexturePtr Visualizer::CreateHelpTexture(const char*, bool) {
    return nullptr;
}

bool Visualizer::StepFrameClock() {
    ++mFrameCount;
    mNow = platform::NowSeconds();
    const double sinceLast = mNow - mLastTime;
    mElapsed = mNow - mStartTime;
    mInstantaneousFps = sinceLast > kShortestMeasuredFrame ? 1 / sinceLast : kUnmeasuredFps;
    mSmoothedFps = mSmoothedFps < 0 ? mInstantaneousFps
                                    : ((mFpsWindow - 1) * mSmoothedFps + mInstantaneousFps) / mFpsWindow;
    mFrameStep = std::clamp(sinceLast * mFrameStepRate, kShortestStep, kLongestStep);
    mLastTime = mNow;
    return true;
}

void Visualizer::StorePulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                            std::uint32_t pulsePosition) {
    if (pulseStamp != 0 && renderData) {
        std::memcpy(&mAudio, renderData, std::min(length, sizeof mAudio));
        mAudioValid = true;
    }
    mPulseStamp = pulseStamp;
    mPulsePosition = pulsePosition;
}

// The two counts of channels keep their values.
void Visualizer::ResetAudioBlock() {
    std::memset(mAudio.waveform, records::kWaveformSilence, sizeof mAudio.waveform);
    std::memset(mAudio.spectrum, 0, sizeof mAudio.spectrum);
    mAudioValid = true;
    mPulseStamp = 0;
}

render::IRenderer* Visualizer::CreateRenderer(const double frame[4], PlatformVisualizerDelegate* delegate) {
    constexpr std::uint32_t kQuadVertices = 4, kReserved = 1;
    mRenderer.reset();
    if (!delegate) return nullptr;
    mRenderer = MakeRenderer(WholePixels(frame[2]), WholePixels(frame[3]), delegate->GetWindowHandle());
    if (!mRenderer) return nullptr;
    const std::uint32_t quad =
        mRenderer->CreateVertexBuffer("TexturedQuad", render::kPrimitive_TriangleStrip,
                                      mRenderer->GetPipeline(render::kPos_TexCoord_SrcAlpha_DstAlphaOne),
                                      kQuadVertices, kReserved, nullptr);
    if (quad == render::kNoVertexBuffer)
        mRenderer.reset();
    else
        mQuadBufferId = quad;
    return mRenderer.get();
}

bool Visualizer::TakeClientSize(platform::NativeWindow window) {
    platform::PixelRect client;
    if (!ClientRectOf(window, client)) return false;
    mViewSize = { double(client.Width()), double(client.Height()) };
    return true;
}

void Visualizer::DrawWithSharedQuad(render::ITexture* texture, const double destination[4], float alpha,
                                    std::uint32_t colorMode) {
    mRenderer->DrawTexturedQuad(texture, int(mQuadBufferId), destination, kWholeTexture, alpha, colorMode);
}

} // namespace orvane::visualizer
