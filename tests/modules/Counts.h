// What the module "counter" keeps in place of a log. Its log holds, beside each 'Vdct', a CountsRecord.
#pragma once

#include "orvane_plugin.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace orvane::tests {

constexpr std::uint32_t kCountedMessages[] = {
    ORVANE_MSG_INIT, ORVANE_MSG_ACTIVATE, ORVANE_MSG_DEACTIVATE, ORVANE_MSG_FRAME_CHANGED, ORVANE_MSG_DRAW,
    ORVANE_MSG_STOP, ORVANE_MSG_IDLE,     ORVANE_MSG_ARTWORK,    ORVANE_MSG_PULSE,         ORVANE_MSG_PLAY,
};

struct CountsRecord {
    std::uint32_t of[std::size(kCountedMessages)]; // in their order
    // Pulses whose first waveform byte or last spectrum byte isn't their stamp's lowest: sound that another pulse
    // brought, or that changed during the call.
    std::uint32_t foreignSound;
};

// The message's place in CountsRecord::of; its size for a message that isn't counted.
constexpr std::size_t IndexOfCount(std::uint32_t message) {
    return std::size_t(std::find(std::begin(kCountedMessages), std::end(kCountedMessages), message) -
                       std::begin(kCountedMessages));
}

// On any thread.
void CountMessage(std::uint32_t message, const void* record);
[[nodiscard]] CountsRecord CountsSoFar();

} // namespace orvane::tests
