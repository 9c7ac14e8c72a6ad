#include "support/TestVisualizer.h"

#include <cmath>
#include <cstring>

namespace orvane::tests {

using visualizer::IVisualizerCommandReceiver;

void TestVisualizer::Note(const char* operation) {
    mCalls.emplace_back(operation);
    if (sOnCall) sOnCall(operation);
}

bool TestVisualizer::Start(platform::NativeWindow window, const records::LocalizedStrings& help) {
    Note("Start");
    mHelpStrings = help;
    if (!TakeClientSize(window)) return false;
    const double frame[4] = { 0, 0, mViewSize[0], mViewSize[1] };
    TestVisualizerDelegate delegate(window);
    if (!CreateRenderer(frame, &delegate)) return false;
    mBarBufferId =
        mRenderer->CreateVertexBuffer("Bar", render::kPrimitive_TriangleStrip,
                                      mRenderer->GetPipeline(render::kPos_BlendingOFF), 4, 1, nullptr);
    mRenderer->SetContentScale(mDisplayScale);
    mRenderer->SetFullScreen(false);
    RestartTrackInfoFade();
    CreateConfigPanelTexture();
    mHelpTexture = CreateHelpTexture("Help Strings", false);
    mAlternativeHelpTexture = CreateHelpTexture("Alternative Help Strings", true);
    return CreateFPSPanelTexture();
}

// A rectangle of a quarter of the view's width and its whole height, whose left edge goes from the view's left
// edge to its right one.
void TestVisualizer::DrawBar() {
    constexpr float kColour[4] = { 0, 1, 0, 1 };
    const double width = mViewSize[0], height = mViewSize[1];
    const double phase = mElapsed / kBarSeconds - std::floor(mElapsed / kBarSeconds);
    mRenderer->PushOrthographicProjection(float(width), float(height));
    mRenderer->PushModelView();
    mRenderer->Translate(float((phase - 0.5) * width), 0, 0);
    mRenderer->AccessVertexBuffer(int(mBarBufferId), [&](void* vertices) {
        const float right = float(kBarWidth * width), top = float(height / 2);
        const float corners[4][3] = { { right, -top, 0 }, { right, top, 0 }, { 0, -top, 0 }, { 0, top, 0 } };
        std::memcpy(vertices, corners, sizeof corners);
    });
    mRenderer->SetColor(kColour, 1);
    mRenderer->DrawVertexBuffer(nullptr, int(mBarBufferId), 0, 4);
    mRenderer->PopModelView();
    mRenderer->PopProjection();
}

void TestVisualizer::Draw(std::uint32_t flag) {
    Note("Draw");
    if (!mRenderer) return;
    constexpr float kBlack[4] = { 0, 0, 0, 1 };
    mRenderer->BeginFrame();
    mRenderer->Clear(kBlack);
    DrawBar();
    if (mConfigPanel)
        visualizer::DrawConfigPanel(*mConfigPanel, *this, *mRenderer, int(mQuadBufferId), mConfigLines[0],
                                    mConfigLines[1], mConfigLines[2]);
    PlatformVisualizer::Draw(flag);
    mRenderer->Present();
}

bool TestVisualizer::HandleKeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t,
                                    IVisualizerCommandReceiver* receiver) {
    constexpr char16_t kCaseBit = 0x20;
    Note("HandleKeyInput");
    if (count != 1) return false;
    switch (char16_t(characters[0] & ~kCaseBit)) {
    case u'H':
        ToggleHelpDisplay();
        receiver->HelpToggled(mHelpPanel != nullptr);
        return true;
    case u'C':
        ToggleConfigDisplay();
        receiver->ToggleConfigDisplay();
        return true;
    case u'F':
        ToggleFPSDisplay();
        receiver->FPSToggled();
        return true;
    case u'I':
        RestartTrackInfoFade();
        receiver->ResetTrackChangeTime();
        return true;
    case u'L':
        mTrackInfoAlways = !mTrackInfoAlways;
        receiver->SetTrackInfoToDisplayAlways(mTrackInfoAlways);
        return true;
    default:
        return false;
    }
}

std::uint32_t TestVisualizer::ReshapeRenderer() {
    Note("ReshapeRenderer");
    const double rect[4] = { 0, 0, mViewSize[0], mViewSize[1] };
    if (mRenderer) mRenderer->ResizeRenderTarget(rect);
    return 0;
}

std::uint32_t TestVisualizer::AudioDataArrived(std::uint32_t pulseStamp) {
    Note("AudioDataArrived");
    mPulseStamps.push_back(pulseStamp);
    StepFrameClock();
    Draw(0);
    return 0;
}

void TestVisualizer::DrawPanelTexture(render::ITexture* texture, const double destination[4], float alpha,
                                      std::uint32_t colorMode) {
    DrawWithSharedQuad(texture, destination, alpha, colorMode);
}

void TestVisualizer::TrackChanged() {
    Note("TrackChanged");
    PlatformVisualizer::TrackChanged();
}

void TestVisualizer::SetArtwork(const void* image, std::uint64_t size, std::uint32_t format) {
    Note("SetArtwork");
    PlatformVisualizer::SetArtwork(image, size, format);
}

void TestVisualizer::AddHelpString(const char* key, const char* value) {
    Note("AddHelpString");
    mHelpStrings.push_back(records::MakeLocalizedString(key, value));
}

} // namespace orvane::tests
