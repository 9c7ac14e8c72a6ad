// What a person can ask for while music plays, and by which keys: those of the console, and those of the host's
// window that come back because no visualizer took them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace orvane::player {

enum class Command {
    kNone,
    kPause, // or goes on
    kSeekBack,
    kSeekForward,
    kNextTrack,
    kPreviousTrack,
    kNextVisualizer,
    kFullScreen, // or back to the window
    kEnd,
};

// A key of the console: the character that it types, or one of these.
using ConsoleKey = std::uint32_t;
constexpr ConsoleKey kEscapeKey = 0x1B;
constexpr ConsoleKey kLeftKey = 0x110000; // beyond all characters
constexpr ConsoleKey kRightKey = 0x110001;

[[nodiscard]] Command CommandOfConsoleKey(ConsoleKey key);

// A character typed in the host's window. The built-in visualizers keep most letters for themselves.
[[nodiscard]] Command CommandOfWindowCharacter(std::uint32_t code);

// The keys in what a terminal sends: characters as they are, the arrows out of their escape sequences. Other
// sequences mean nothing. A lone escape character is the key.
[[nodiscard]] std::vector<ConsoleKey> KeysOfTerminal(std::string_view bytes);

} // namespace orvane::player
