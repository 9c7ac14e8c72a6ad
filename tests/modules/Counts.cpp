#include "Counts.h"

#include <atomic>

namespace orvane::tests {

namespace {

std::atomic<std::uint32_t> sCounts[std::size(kCountedMessages)];
std::atomic<std::uint32_t> sForeignSound;

bool IsSoundOf(const OrvanePulseRecord& pulse) {
    const auto low = std::uint8_t(pulse.stamp);
    return pulse.renderData->waveform[0][0] == low &&
           pulse.renderData->spectrum[ORVANE_CHANNELS - 1][ORVANE_SAMPLES - 1] == low;
}

} // namespace

void CountMessage(std::uint32_t message, const void* record) {
    const std::size_t index = IndexOfCount(message);
    if (index < std::size(sCounts)) ++sCounts[index];
    if (message == ORVANE_MSG_PULSE && !IsSoundOf(*static_cast<const OrvanePulseRecord*>(record)))
        ++sForeignSound;
}

CountsRecord CountsSoFar() {
    CountsRecord record = {};
    std::copy(std::begin(sCounts), std::end(sCounts), record.of);
    record.foreignSound = sForeignSound;
    return record;
}

} // namespace orvane::tests
