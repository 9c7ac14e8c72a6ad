// What the host tells the player in its reply to a pulse.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace orvane::player {

struct NoEvent {
    bool operator==(const NoEvent&) const = default;
};

// The user asked to close the visualizer.
struct CloseRequest {
    bool operator==(const CloseRequest&) const = default;
};

// A visualizer began or ended to show the track.
struct TrackDisplayChanged {
    bool operator==(const TrackDisplayChanged&) const = default;
};

// A character that no visualizer took.
struct CharacterLeftOver {
    std::uint32_t code = 0;   // UTF-16 unit
    std::uint32_t lParam = 0; // of the key message, low 32 bits
    bool operator==(const CharacterLeftOver&) const = default;
};

// An extended key went down. Which one isn't told: both words are 0, unless a character was waiting too.
struct ExtendedKey {
    std::uint32_t code = 0;
    std::uint32_t lParam = 0;
    bool operator==(const ExtendedKey&) const = default;
};

// Bytes that are no pulse reply, and what is wrong with them (a text that lives for ever).
struct MalformedPulseReply {
    std::string_view why;
    bool operator==(const MalformedPulseReply&) const = default;
};

using PulseEvent = std::variant<NoEvent, CloseRequest, TrackDisplayChanged, CharacterLeftOver, ExtendedKey,
                                MalformedPulseReply>;

[[nodiscard]] PulseEvent DecodePulseReply(std::span<const std::uint8_t> reply);

} // namespace orvane::player
