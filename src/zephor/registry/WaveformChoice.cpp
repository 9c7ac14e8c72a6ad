#include "zephor/registry/WaveformChoice.h"

#include "zephor/registry/Selection.h"

#include <algorithm>

namespace orvane::zephor {

namespace {

std::int32_t DrawIndex(const WaveformLengths& lengths, float band) {
    std::size_t within = lengths[0];
    if (band < kUpperBand) within += lengths[1];
    if (band < kMiddleBand) within += lengths[2];
    // KEEP: the largest draw is exactly 1 and gives the index behind the band's last: the first of the next
    // list, or none. It stays since it happens once in 32,768 draws and the caller resolves any index.
    // Pinned by WaveformChoice.TheLargestDrawLandsBehindTheLastEntryOfTheBand.
    return static_cast<std::int32_t>(float(within) * DrawUnit());
}

} // namespace

std::int32_t ChooseWaveformIndex(const WaveformLengths& lengths, std::int32_t previousIndex,
                                 std::int32_t request) {
    const float band = DrawUnit();
    std::int32_t index = 0;
    do {
        index = DrawIndex(lengths, band);
        if (request != 0) {
            index = WrappingSum(request, previousIndex);
            previousIndex = kNoIndex;
        }
    } while (index == previousIndex);
    return index;
}

std::int32_t ChooseOverlayIndex(const WaveformLengths& lengths, std::span<const std::int32_t> recent) {
    const float band = DrawUnit();
    std::int32_t index = 0;
    do {
        index = DrawIndex(lengths, band);
    } while (std::ranges::find(recent, index) != recent.end());
    return index;
}

} // namespace orvane::zephor
