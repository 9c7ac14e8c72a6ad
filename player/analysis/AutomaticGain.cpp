#include "player/analysis/AutomaticGain.h"

#include <algorithm>
#include <cmath>

namespace orvane::player {

float AutomaticGain::Follow(float peak, double seconds) {
    if (seconds > 0) mPeak *= float(std::exp2(-seconds / kHalfLife));
    // No lower than the most that is made up for: so music after a long silence is not too loud for long.
    mPeak = std::max({ mPeak, peak, kTarget / kMost });
    return Factor();
}

float AutomaticGain::Factor() const {
    return std::max(kTarget / mPeak, 1.0f);
}

} // namespace orvane::player
