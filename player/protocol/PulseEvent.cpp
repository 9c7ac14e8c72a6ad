#include "player/protocol/PulseEvent.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace orvane::player {

namespace {

using Span = std::span<const std::uint8_t>;

constexpr std::size_t kWord = 4;

std::uint32_t WordAt(Span reply, std::size_t index) {
    const auto word = reply.subspan(index * kWord, kWord);
    return std::uint32_t(word[0]) | std::uint32_t(word[1]) << 8 | std::uint32_t(word[2]) << 16 |
           std::uint32_t(word[3]) << 24;
}

// Each event as its code's bytes stand in the reply, and how long a reply that carries it is.
struct EventRow {
    char code[kWord + 1];
    std::size_t length;
    PulseEvent (*decode)(Span reply);
};

constexpr EventRow kEvents[] = {
    { "WSLC", 2 * kWord, [](Span) -> PulseEvent { return CloseRequest{}; } },
    { "WTRA", 2 * kWord, [](Span) -> PulseEvent { return TrackDisplayChanged{}; } },
    { "CYEK", 4 * kWord,
      [](Span reply) -> PulseEvent {
          return CharacterLeftOver{ WordAt(reply, 2), WordAt(reply, 3) };
      } },
    { "XYEK", 4 * kWord,
      [](Span reply) -> PulseEvent {
          return ExtendedKey{ WordAt(reply, 2), WordAt(reply, 3) };
      } },
};

} // namespace

PulseEvent DecodePulseReply(Span reply) {
    if (reply.size() < kWord) return MalformedPulseReply{ "shorter than 4 bytes" };
    if (WordAt(reply, 0) != 0) return MalformedPulseReply{ "the first word is not 0" };
    if (reply.size() == kWord) return NoEvent{};
    if (reply.size() < 2 * kWord) return MalformedPulseReply{ "the event code is cut off" };

    const auto* row = std::find_if(std::begin(kEvents), std::end(kEvents), [reply](const EventRow& event) {
        return std::memcmp(event.code, reply.data() + kWord, kWord) == 0;
    });
    if (row == std::end(kEvents)) return MalformedPulseReply{ "the event code is unknown" };
    if (reply.size() != row->length)
        return MalformedPulseReply{ "the length does not go with the event code" };
    return row->decode(reply);
}

} // namespace orvane::player
