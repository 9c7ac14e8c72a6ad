// The reply to a pulse: the only channel on which the host tells the player anything unasked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvane::shell {

constexpr std::size_t kLongestPulseReply = 16;

// Four zero bytes, then at most one event, the first that is pending of: close request ("WSLC"), changed
// track display ("WTRA"), key event (code, key code, lParam). The flags of records/PulseEvents.h that it
// reports are cleared. Returns the length written: 4, 8 or 16 bytes.
[[nodiscard]] std::size_t BuildPulseReply(std::array<std::uint8_t, kLongestPulseReply>& reply);

} // namespace orvane::shell
