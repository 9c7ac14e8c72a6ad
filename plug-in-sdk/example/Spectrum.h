// The spectrum as bars that rise at once and fall slowly, each with a peak that is held for a moment.
#pragma once

#include "Surface.h"
#include "orvane_plugin.h"

#include <vector>

namespace example {

class Spectrum {
public:
    // Takes the magnitudes of a pulse. Deep tones have narrow bars, high ones wide ones, in bins.
    void SetSound(const OrvaneRenderData& sound);
    void SetSilence();

    // Moves bars and peaks on by `seconds`.
    void Step(float seconds);

    // Stands the bars on the bottom of `box`, with a reflection of `reflection` pixels below it.
    void Draw(Surface& surface, const Box& box, float reflection) const;

    [[nodiscard]] bool IsAtRest() const;

private:
    static constexpr int kBars = 72;

    struct Bar {
        float target = 0; // 0 to 1, all of them
        float level = 0;
        float peak = 0;
        float held = 0;  // seconds that the peak still stays
        float speed = 0; // of the falling peak, heights a second
    };

    std::vector<Bar> mBars = std::vector<Bar>(kBars);
};

} // namespace example
