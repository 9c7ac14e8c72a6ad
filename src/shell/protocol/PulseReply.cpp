#include "shell/protocol/PulseReply.h"

#include "records/PulseEvents.h"
#include "shell/wire/FourCharacters.h"

#include <cstring>
#include <initializer_list>

namespace orvane::shell {

namespace {

using namespace records;

// The codes as words in the machine's little-endian order. "WSLC" and "WTRA" travel as they are written;
// KEEP: the two key codes travel reversed ("XYEK", "CYEK"), since the protocol gives them as words.
// Pinned by PulseReply.KeyCodesTravelReversed.
constexpr std::uint32_t kCloseEvent = FourCharacters("CLSW");
constexpr std::uint32_t kTrackEvent = FourCharacters("ARTW");
constexpr std::uint32_t kExtendedKeyEvent = FourCharacters("KEYX");
constexpr std::uint32_t kCharacterEvent = FourCharacters("KEYC");

using Reply = std::array<std::uint8_t, kLongestPulseReply>;

std::size_t WriteWords(Reply& reply, std::initializer_list<std::uint32_t> words) {
    std::memcpy(reply.data(), words.begin(), words.size() * sizeof(std::uint32_t));
    return words.size() * sizeof(std::uint32_t);
}

} // namespace

std::size_t BuildPulseReply(Reply& reply) {
    if (sCloseRequested) {
        sCloseRequested = false;
        return WriteWords(reply, { 0, kCloseEvent });
    }
    if (trackInfoDirty) {
        trackInfoDirty = false;
        return WriteWords(reply, { 0, kTrackEvent });
    }
    if (sKeyEventState != kNoKeyEvent) {
        const std::uint32_t event = sKeyEventState == kExtendedKey ? kExtendedKeyEvent : kCharacterEvent;
        const std::size_t length = WriteWords(reply, { 0, event, sKeyEventCode, sKeyEventParam });
        sKeyEventState = kNoKeyEvent;
        sKeyEventCode = 0;
        sKeyEventParam = 0;
        return length;
    }
    return WriteWords(reply, { 0 });
}

} // namespace orvane::shell
