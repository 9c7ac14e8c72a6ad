// The picture of the example module: what is heard as two traces, its spectrum, and what is playing.
// Not safe against two threads at once; the module's lock is around every call.
#pragma once

#include "Phosphor.h"
#include "Spectrum.h"
#include "Surface.h"
#include "orvane_plugin.h"

#include <array>
#include <string>
#include <vector>

namespace example {

class Oscilloscope {
public:
    Oscilloscope() = default;

    ~Oscilloscope() { Release(); }

    Oscilloscope(const Oscilloscope&) = delete;
    Oscilloscope& operator=(const Oscilloscope&) = delete;

    void SetSound(const OrvaneRenderData& sound);
    void SetTrack(const OrvaneTrack& track);
    void Stop(); // traces and bars sink, the text goes

    // Draws one frame into the window, at the size that the window has now. `now` is in seconds.
    void Draw(HWND window, double now);

    // Nothing would move if another frame were drawn.
    [[nodiscard]] bool IsAtRest() const;

    // Gives back bitmaps and fonts; the next frame makes them anew.
    void Release();

private:
    struct Layout {
        float margin;
        Box title, artist, lanes[ORVANE_CHANNELS], spectrum;
        float reflection;
        float thickness;
    };

    [[nodiscard]] bool Prepare(int width, int height);
    void LayOut(float width, float height);
    void MakeFonts();
    void ReleaseFonts();
    void MakeBackground();
    void DrawTraces();
    void DrawTexts();

    std::array<std::vector<float>, ORVANE_CHANNELS> mTraces; // -1 to 1, beginning at the trigger
    std::wstring mTitle;
    std::wstring mArtist;
    bool mPlays = false;
    float mTextLight = 0; // 0 to 1: a new track's text comes up softly
    float mLevel = 0;     // 0 to 1: the traces come up and sink softly
    double mThen = 0;

    Surface mSurface;
    Phosphor mPhosphor;
    Spectrum mSpectrum;
    Layout mLayout = {};
    std::vector<std::uint8_t> mBackground; // as the surface
    HFONT mTitleFont = nullptr;
    HFONT mArtistFont = nullptr;
    HFONT mLaneFont = nullptr;
};

} // namespace example
