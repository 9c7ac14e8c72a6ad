#include "Oscilloscope.h"

#include <algorithm>
#include <cmath>

namespace example {

namespace {

constexpr wchar_t kName[] = L"Orvane Oscilloscope";
constexpr wchar_t kNothingPlays[] = L"Nothing is playing";
constexpr wchar_t kFontName[] = L"Segoe UI";
constexpr const wchar_t* kLaneNames[ORVANE_CHANNELS] = { L"L", L"R" };

constexpr Colour kLaneColours[ORVANE_CHANNELS] = { { 0.10f, 0.86f, 1.00f }, { 1.00f, 0.34f, 0.66f } };
constexpr Colour kTitleColour = { 0.95f, 0.97f, 1.00f };
constexpr Colour kArtistColour = { 0.56f, 0.63f, 0.76f };
constexpr Colour kTopColour = { 0.055f, 0.063f, 0.098f };
constexpr Colour kBottomColour = { 0.016f, 0.018f, 0.032f };
constexpr Colour kLineColour = { 0.055f, 0.065f, 0.10f };

constexpr float kTextTime = 0.5f;     // seconds to 1/e of the way, both
constexpr float kLevelTime = 0.22f;   //
constexpr float kLongestStep = 0.25f; // seconds; after a longer pause things go on from where they were
constexpr float kStill = 0.004f;      // of 1: less than one step of 8 bits
constexpr int kTriggerSamples = 160;  // how far the trigger looks for a rising edge
constexpr int kShownSamples = ORVANE_SAMPLES - kTriggerSamples;
constexpr int kColumns = 12; // of the grid

// The first rise through the centre that comes from well below it: so a steady tone stands still.
int TriggerOf(const std::uint8_t* samples) {
    constexpr int kWellBelow = 4;
    bool armed = false;
    for (int i = 0; i < kTriggerSamples; ++i) {
        if (samples[i] < ORVANE_SILENCE - kWellBelow) armed = true;
        if (armed && samples[i] >= ORVANE_SILENCE) return i;
    }
    return 0;
}

std::wstring TextOf(const OrvaneString& string) {
    const auto count = std::min<std::size_t>(string.count, ORVANE_STRING_UNITS);
    const std::wstring text(string.units, string.units + count);
    return text.substr(0, text.find(L'\0'));
}

float Towards(float from, float to, float seconds, float time) {
    return to + (from - to) * std::exp(-seconds / time);
}

HFONT MakeFont(float height, int weight) {
    return CreateFontW(-int(std::lround(height)), 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                       VARIABLE_PITCH | FF_SWISS, kFontName);
}

} // namespace

void Oscilloscope::SetSound(const OrvaneRenderData& sound) {
    // One trigger for both traces, so that they keep their place to one another.
    const int trigger = TriggerOf(sound.waveform[0]);
    for (std::size_t channel = 0; channel < ORVANE_CHANNELS; ++channel) {
        const std::size_t source = channel < sound.waveformChannels ? channel : 0;
        auto& trace = mTraces[channel];
        trace.resize(kShownSamples);
        for (int i = 0; i < kShownSamples; ++i)
            trace[std::size_t(i)] = float(sound.waveform[source][trigger + i] - ORVANE_SILENCE) / 128.0f;
    }
    mSpectrum.SetSound(sound);
    mPlays = true;
}

void Oscilloscope::SetTrack(const OrvaneTrack& track) {
    const std::wstring title = TextOf(track.name);
    std::wstring artist = TextOf(track.artist);
    const std::wstring album = TextOf(track.album);
    if (!artist.empty() && !album.empty()) artist += L"   \u2022   ";
    artist += album;
    if (title != mTitle || artist != mArtist) mTextLight = 0;
    mTitle = title;
    mArtist = artist;
}

void Oscilloscope::Stop() {
    mPlays = false;
    mSpectrum.SetSilence();
    mTitle.clear();
    mArtist.clear();
    mTextLight = 0;
}

bool Oscilloscope::IsAtRest() const {
    return mSpectrum.IsAtRest() && 1 - mTextLight < kStill &&
           std::abs(mLevel - (mPlays ? 1.0f : 0.0f)) < kStill;
}

void Oscilloscope::Draw(HWND window, double now) {
    RECT client = {};
    GetClientRect(window, &client);
    if (!Prepare(client.right, client.bottom)) return;
    const float step = std::clamp(float(now - mThen), 0.0f, kLongestStep);
    mThen = now;
    mTextLight = Towards(mTextLight, 1, step, kTextTime);
    mLevel = Towards(mLevel, mPlays ? 1.0f : 0.0f, step, kLevelTime);
    mSpectrum.Step(step);
    mPhosphor.Fade(step);
    mSurface.Settle();
    DrawTraces();
    mPhosphor.Show(mBackground, mSurface);
    mSpectrum.Draw(mSurface, mLayout.spectrum, mLayout.reflection);
    DrawTexts();
    mSurface.CopyTo(window);
}

void Oscilloscope::Release() {
    mSurface.Release();
    ReleaseFonts();
}

bool Oscilloscope::Prepare(int width, int height) {
    if (width > 0 && width == mSurface.Width() && height == mSurface.Height()) return true;
    if (!mSurface.Resize(width, height)) return false;
    mPhosphor.Resize(width, height);
    LayOut(float(width), float(height));
    MakeFonts();
    MakeBackground();
    return true;
}

void Oscilloscope::LayOut(float width, float height) {
    const float unit = std::clamp(std::min(width / 1000, height / 700), 0.35f, 2.5f);
    const float margin = 34 * unit;
    const float right = width - margin;
    mLayout.margin = margin;
    mLayout.title = { margin, margin * 0.7f, right, margin * 0.7f + 42 * unit };
    mLayout.artist = { margin, mLayout.title.bottom, right, mLayout.title.bottom + 26 * unit };
    const float top = mLayout.artist.bottom + 16 * unit;
    mLayout.reflection = 38 * unit;
    const float floor = height - mLayout.reflection - 8 * unit;
    const float lane = std::max(8.0f, (floor - top) * 0.31f);
    mLayout.lanes[0] = { margin, top, right, top + lane };
    mLayout.lanes[1] = { margin, top + lane, right, top + lane * 2 };
    mLayout.spectrum = { margin, top + lane * 2 + 14 * unit, right, floor };
    mLayout.thickness = std::max(1.2f, 2.0f * unit);
}

void Oscilloscope::MakeFonts() {
    ReleaseFonts();
    mTitleFont = MakeFont(mLayout.title.Height() * 0.74f, FW_SEMIBOLD);
    mArtistFont = MakeFont(mLayout.artist.Height() * 0.68f, FW_NORMAL);
    mLaneFont = MakeFont(mLayout.artist.Height() * 0.52f, FW_SEMIBOLD);
}

void Oscilloscope::ReleaseFonts() {
    for (HFONT* font : { &mTitleFont, &mArtistFont, &mLaneFont }) {
        if (*font) DeleteObject(*font);
        *font = nullptr;
    }
}

// Drawn once for each size, on the surface, and then kept.
void Oscilloscope::MakeBackground() {
    mSurface.Settle();
    const int width = mSurface.Width(), height = mSurface.Height();
    const std::size_t rowBytes = std::size_t(width) * 4;
    for (int y = 0; y < height; ++y) std::fill_n(mSurface.Row(y), rowBytes, std::uint8_t(0));
    mSurface.AddBox({ 0, 0, float(width), float(height) }, kTopColour, kBottomColour);
    for (const Box& lane : mLayout.lanes) {
        const float middle = std::floor((lane.top + lane.bottom) * 0.5f);
        mSurface.AddBox({ lane.left, middle, lane.right, middle + 1 }, kLineColour * 1.6f,
                        kLineColour * 1.6f);
        for (int i = 0; i <= kColumns; ++i) {
            const float x = std::floor(lane.left + lane.Width() * float(i) / float(kColumns));
            const float inset = lane.Height() * 0.12f;
            mSurface.AddBox({ x, lane.top + inset, x + 1, middle }, kLineColour * 0.0f, kLineColour);
            mSurface.AddBox({ x, middle + 1, x + 1, lane.bottom - inset }, kLineColour, kLineColour * 0.0f);
        }
    }
    const Box& bars = mLayout.spectrum;
    mSurface.AddBox({ bars.left, bars.bottom, bars.right, bars.bottom + 1 }, kLineColour * 2.0f,
                    kLineColour * 2.0f);
    mBackground.resize(rowBytes * std::size_t(height));
    for (int y = 0; y < height; ++y)
        std::copy_n(mSurface.Row(y), rowBytes, mBackground.begin() + std::ptrdiff_t(rowBytes) * y);
}

void Oscilloscope::DrawTraces() {
    std::vector<float> scaled;
    for (std::size_t channel = 0; channel < ORVANE_CHANNELS; ++channel) {
        scaled.assign(kShownSamples, 0.0f);
        const auto& trace = mTraces[channel];
        std::transform(trace.begin(), trace.end(), scaled.begin(),
                       [&](float value) { return value * mLevel; });
        const Colour colour = kLaneColours[channel] * (0.35f + 0.65f * mLevel);
        mPhosphor.Sweep(mLayout.lanes[channel], scaled, colour, mLayout.thickness);
    }
}

void Oscilloscope::DrawTexts() {
    const bool hasTrack = !mTitle.empty() || !mArtist.empty();
    const wchar_t* title = hasTrack ? mTitle.c_str() : kName;
    const wchar_t* artist = hasTrack ? mArtist.c_str() : mPlays ? L"" : kNothingPlays;
    mSurface.Text(mLayout.title, title, mTitleFont, Mix(kTopColour, kTitleColour, mTextLight));
    mSurface.Text(mLayout.artist, artist, mArtistFont, Mix(kTopColour, kArtistColour, mTextLight));
    for (std::size_t channel = 0; channel < ORVANE_CHANNELS; ++channel) {
        const Box& lane = mLayout.lanes[channel];
        const Box place = { lane.left - mLayout.margin, lane.top, lane.left - 4, lane.bottom };
        mSurface.Text(place, kLaneNames[channel], mLaneFont, kLaneColours[channel] * 0.6f,
                      DT_RIGHT | DT_VCENTER);
    }
}

} // namespace example
