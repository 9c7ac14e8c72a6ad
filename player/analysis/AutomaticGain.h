// The slow automatic gain in front of the analysis (Analyzer.h tells what for).
#pragma once

namespace orvane::player {

class AutomaticGain {
public:
    static constexpr float kTarget = 0.7f;   // where the loudest peak is brought, of full scale
    static constexpr float kMost = 8.0f;     // 18 dB
    static constexpr double kHalfLife = 6.0; // seconds in which a peak counts half: 1 dB a second

    // Takes the loudest sample of a moment, 0 to 1, and how many seconds passed since the last one. Returns the
    // factor for this moment, 1 to kMost.
    float Follow(float peak, double seconds);

    [[nodiscard]] float Factor() const;

private:
    float mPeak = kTarget / 3; // the loudest of the last seconds, as it fades
};

} // namespace orvane::player
