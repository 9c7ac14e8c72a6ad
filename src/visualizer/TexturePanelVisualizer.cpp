#include "visualizer/TexturePanelVisualizer.h"

#include "platform/Clock.h"
#include "visualizer/Pixels.h"

#include <cstddef>
#include <cstring>
#include <new>

namespace orvane::visualizer {

namespace {

constexpr std::size_t kPixelBytes = 4;

// KEEP: neither is scaled for the display, while the rows beside them are: on a display of many pixels the
// counter's text is cut at the right and the help's columns move together. Pinned by
// Panels.TexturesHaveTheirSizesAt96AndAt120Dpi and HelpTexture.TheSecondColumnBeginsAt30WhateverTheDisplay.
constexpr std::uint32_t kFPSPanelWidth = 80;
constexpr double kHelpSecondColumn = 30.0;

constexpr double kConfigPanelWidth = 200.0, kHelpPanelWidth = 256.0; // pixels at 96 DPI

// The track panel's layout, in pixels at a scale of 1.
constexpr double kTrackMargin = 20.0, kArtworkSide = 64.0;
constexpr double kTextBesideArtwork = 74.0; // from the margin

constexpr double kTrackFadeBegins = 10.0, kTrackSeconds = 20.0; // seconds after the fade's restart
constexpr double kTrackFadePerSecond = 0.1;

constexpr float kWhite[4] = { 1, 1, 1, 1 };
constexpr std::uint32_t kColorModeAsSet = 2; // of DrawTexturedQuad: leaves the colour

template <typename Record>
std::unique_ptr<Record> TogglePanel(std::unique_ptr<Record> shown, render::ITexture* texture) {
    if (shown || !texture) return nullptr;
    return std::make_unique<Record>(Record{ texture, float(PanelTextSize()) });
}

} // namespace

TexturePanelVisualizer::~TexturePanelVisualizer() {
    mFPSTexture.reset();
    mFPSPanel.reset();
    mConfigTexture.reset();
    mHelpTexture.reset();
    mAlternativeHelpTexture.reset();
    mTrackTextTexture.reset();
    mArtworkTexture.reset();
    mConfigPanel.reset();
    mHelpPanel.reset();
}

void TexturePanelVisualizer::StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                                         const records::AudioFormatBlock* audioFormat,
                                                         std::uint32_t trackStartA,
                                                         std::uint32_t trackStartB) {
    std::memcpy(static_cast<void*>(&mTrack), trackParam, offsetof(records::TrackParamObj, mAudioFormat));
    mAudioFormat = *audioFormat;
    mTrackStartA = trackStartA;
    mTrackStartB = trackStartB;
    TrackChanged();
}

void TexturePanelVisualizer::Draw(std::uint32_t) {
    DrawTrackInfo(WholePixels(mViewSize[0]), WholePixels(mViewSize[1]), mRenderer.get(), mDisplayScale);
    DrawShownHelp();
    if (mFPSPanel) DrawFPSPanel(*mFPSPanel, *this, *mRenderer, int(mQuadBufferId), int(mSmoothedFps));
}

void TexturePanelVisualizer::DrawShownHelp() {
    if (!mHelpPanel) return;
    if (mNow - mHelpPanel->startTime > kHelpSeconds)
        mHelpPanel.reset();
    else
        visualizer::DrawHelpPanel(*mHelpPanel, *mRenderer, int(mQuadBufferId), mNow);
}

void TexturePanelVisualizer::MakeHelpPanel(render::ITexture* texture) {
    mHelpPanel.reset();
    if (!texture) return;
    mHelpPanel =
        std::make_unique<HelpPanel>(HelpPanel{ { texture, float(PanelTextSize()) }, platform::NowSeconds() });
}

void TexturePanelVisualizer::ToggleHelpDisplay() {
    MakeHelpPanel(mHelpPanel ? nullptr : mHelpTexture.get());
}

void TexturePanelVisualizer::ShowHelp() {
    constexpr std::uint32_t kPrimary = 1, kAlternative = 2;
    render::ITexture* texture = nullptr;
    if (mHelpState == kPrimary) texture = mHelpTexture.get();
    if (mHelpState == kAlternative) texture = mAlternativeHelpTexture.get();
    MakeHelpPanel(texture);
}

void TexturePanelVisualizer::ToggleConfigDisplay() {
    mConfigPanel = TogglePanel(std::move(mConfigPanel), mConfigTexture.get());
}

void TexturePanelVisualizer::ToggleFPSDisplay() {
    mFPSPanel = TogglePanel(std::move(mFPSPanel), mFPSTexture.get());
}

render::TexturePtr TexturePanelVisualizer::MakeBlankTexture(std::uint32_t width, std::uint32_t height,
                                                            const char* label) {
    if (!mRenderer) return nullptr;
    const std::unique_ptr<std::byte[]> pixels(new (std::nothrow)
                                                  std::byte[std::size_t(width) * height * kPixelBytes]());
    if (!pixels) return nullptr;
    return render::TexturePtr(mRenderer->CreateTexture(pixels.get(), width, height, width * kPixelBytes, 0,
                                                       render::kPixelFormat_BGRA8, label, 0, true));
}

bool TexturePanelVisualizer::CreateFPSPanelTexture() {
    RestartTrackInfoFade();
    mFPSTexture = MakeBlankTexture(kFPSPanelWidth, WholePixels(PanelTextSize() * kRowHeight), "FPSTexture");
    return mFPSTexture != nullptr;
}

void TexturePanelVisualizer::CreateConfigPanelTexture() {
    mConfigTexture =
        MakeBlankTexture(std::uint32_t(ScaleForDisplay(kConfigPanelWidth)),
                         WholePixels(PanelTextSize() * (kConfigRows * kRowHeight)), "Config texture");
}

// A text that doesn't convert drops out of its column alone. The columns then differ in length, and only the
// first one is drawn.
render::TexturePtr TexturePanelVisualizer::CreateHelpTexture(const char* name, bool alternative) {
    const records::LocalizedStrings& list = alternative ? mAlternativeHelpStrings : mHelpStrings;
    const int textSize = PanelTextSize();
    auto texture = MakeBlankTexture(std::uint32_t(ScaleForDisplay(kHelpPanelWidth)),
                                    WholePixels(textSize * (kHelpRows * kRowHeight)), name);
    if (!texture || list.empty()) return texture;
    TextColumn values, keys;
    for (const records::LocalizedString& entry : list) {
        AppendPanelText(values, records::ValueText(entry));
        AppendPanelText(keys, records::KeyText(entry));
    }
    DrawTextLines(values, 0, keys, kHelpSecondColumn, 0, textSize, int(textSize * kRowHeight), texture.get(),
                  false, false, false);
    return texture;
}

void TexturePanelVisualizer::TrackChanged() {
    CreateTrackInfoTexture(1.0);
    WVisualizer::TrackChanged();
}

std::uint32_t TexturePanelVisualizer::ClearTrackState(bool keepTextures) {
    if (!keepTextures) {
        mTrackTextTexture.reset();
        mArtworkTexture.reset();
    }
    mTrackStartA = 0;
    mTrackStartB = 0;
    return 0;
}

// y grows upward, so the panel stands in the lower left corner.
void TexturePanelVisualizer::DrawTrackInfo(std::uint32_t width, std::uint32_t height,
                                           render::IRenderer* renderer, double scale) {
    if (!mTrackTextTexture && !mArtworkTexture) return;
    float alpha = 1.0f;
    if (!mTrackInfoAlways) {
        const double age = mElapsed - mTrackChangeTime;
        if (age > kTrackSeconds) return;
        if (age > kTrackFadeBegins) alpha = float(1 - (age - kTrackFadeBegins) * kTrackFadePerSecond);
    }
    const int margin = int(scale * kTrackMargin), side = int(scale * kArtworkSide);
    const double viewWidth = width, viewHeight = height;
    int textX = margin, textY = margin;
    renderer->SetColor(kWhite, alpha);
    renderer->PushIdentityModelView();
    double text[2] = { 0, 0 };
    if (mTrackTextTexture) mTrackTextTexture->GetSize(text);
    if (mArtworkTexture) {
        const double destination[4] = { margin / viewWidth, margin / viewHeight, side / viewWidth,
                                        side / viewHeight };
        DrawPanelTexture(mArtworkTexture.get(), destination, alpha, kColorModeAsSet);
        textX = margin + int(scale * kTextBesideArtwork);
        textY = (side >> 1) - (int(text[1] - 1) >> 1) + margin; // beside the middle of the artwork
    }
    if (mTrackTextTexture) {
        const double destination[4] = { textX / viewWidth, textY / viewHeight, text[0] / viewWidth,
                                        text[1] / viewHeight };
        renderer->BindTexture(mTrackTextTexture.get());
        DrawPanelTexture(mTrackTextTexture.get(), destination, alpha, kColorModeAsSet);
    }
    renderer->PopModelView();
    TrackInfoDrawn();
}

void TexturePanelVisualizer::SetArtwork(const void*, std::uint64_t, std::uint32_t) {
    mArtworkTexture.reset();
}

void TexturePanelVisualizer::ReplaceHelpStrings(const records::LocalizedStrings& list) {
    mHelpStrings.clear();
    mAlternativeHelpStrings.clear();
    for (const records::LocalizedString& entry : list) {
        const std::string key(records::KeyText(entry)), value(records::ValueText(entry));
        AddHelpString(key.c_str(), value.c_str());
    }
}

} // namespace orvane::visualizer
