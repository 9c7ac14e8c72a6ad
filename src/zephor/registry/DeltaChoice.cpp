#include "zephor/registry/DeltaChoice.h"

namespace orvane::zephor {

// KEEP: the largest draw gives the first entry of the next list, list 4 included. It stays: once in 32,768
// draws, and every index that can come has an effect. The products are taken in the order that stands here;
// in another order a few draws round to the other side of a whole number.
// Pinned by DeltaChoice.TheLargestDrawLandsOnTheFirstEntryOfTheNextList.
std::size_t DrawDeltaIndex(const DeltaLengths& lengths, float band) {
    if (band >= kUpperBand) return static_cast<std::size_t>(DrawUnit() * float(lengths[0]));
    const bool middle = band >= kMiddleBand;
    const std::size_t length = middle ? lengths[1] : lengths[2];
    const std::size_t first = middle ? lengths[0] : lengths[0] + lengths[1];
    const float place = float(length) * float(platform::Rand()) * kRandUnit;
    return static_cast<std::size_t>(place + float(first));
}

} // namespace orvane::zephor
