// What the host has to tell the player: flags that the reply to the next pulse reads and clears.
//
// KEEP: plain variables. They are written on the main thread and read and cleared one by one on the service
// thread, with no lock and no atomic access, so a key that arrives between the reading and the clearing is
// lost. A lost key is harmless and a lock would couple the window to a pulse that takes a whole frame.
// Pinned by PulseReply.ClearsEachFlagByItself.
#pragma once

#include <cstdint>

namespace orvane::records {

enum KeyEventState : std::uint32_t {
    kNoKeyEvent = 0,
    kCharacterLeftOver = 1, // a character that no visualizer took
    kExtendedKey = 2,       // an extended key went down; it carries no code
};

inline bool sCloseRequested = false; // the user asked to close the visualizer
inline bool trackInfoDirty = false;  // a visualizer's track display changed
inline std::uint32_t sKeyEventState = kNoKeyEvent;
inline std::uint32_t sKeyEventCode = 0;
inline std::uint32_t sKeyEventParam = 0; // the key message's lParam, low 32 bits

} // namespace orvane::records
