#include "player/session/Commands.h"

#include <span>

namespace orvane::player {

namespace {

struct KeyRow {
    std::uint32_t key;
    Command command;
};

constexpr KeyRow kConsoleKeys[] = {
    { ' ', Command::kPause },      { kLeftKey, Command::kSeekBack }, { kRightKey, Command::kSeekForward },
    { 'n', Command::kNextTrack },  { 'p', Command::kPreviousTrack }, { 'v', Command::kNextVisualizer },
    { 'f', Command::kFullScreen }, { 'q', Command::kEnd },           { kEscapeKey, Command::kEnd },
};

// Neither built-in visualizer takes any of these. The window has a full-screen key of its own.
constexpr KeyRow kWindowKeys[] = {
    { ' ', Command::kPause },      { '[', Command::kSeekBack },      { ']', Command::kSeekForward },
    { '.', Command::kNextTrack },  { ',', Command::kPreviousTrack }, { 'v', Command::kNextVisualizer },
    { kEscapeKey, Command::kEnd },
};

std::uint32_t InLowerCase(std::uint32_t key) {
    return key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key;
}

Command Find(std::span<const KeyRow> rows, std::uint32_t key) {
    for (const KeyRow& row : rows)
        if (row.key == InLowerCase(key)) return row.command;
    return Command::kNone;
}

struct SequenceRow {
    std::string_view sequence;
    ConsoleKey key;
};

// A terminal has two ways to send an arrow, by its mode.
constexpr SequenceRow kSequences[] = {
    { "\x1B[D", kLeftKey },
    { "\x1BOD", kLeftKey },
    { "\x1B[C", kRightKey },
    { "\x1BOC", kRightKey },
};

// How long the escape sequence is that `bytes` begins with: up to its first letter or "~" behind the bracket. 1 if
// it is an escape character alone.
std::size_t SequenceLength(std::string_view bytes) {
    if (bytes.size() < 2 || (bytes[1] != '[' && bytes[1] != 'O')) return 1;
    const auto end = bytes.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz~", 2);
    return end == std::string_view::npos ? bytes.size() : end + 1;
}

} // namespace

Command CommandOfConsoleKey(ConsoleKey key) {
    return Find(kConsoleKeys, key);
}

Command CommandOfWindowCharacter(std::uint32_t code) {
    return Find(kWindowKeys, code);
}

std::vector<ConsoleKey> KeysOfTerminal(std::string_view bytes) {
    std::vector<ConsoleKey> keys;
    while (!bytes.empty()) {
        std::size_t length = 1;
        if (bytes.front() == char(kEscapeKey)) length = SequenceLength(bytes);
        if (length == 1) keys.push_back(std::uint8_t(bytes.front()));
        for (const SequenceRow& row : kSequences)
            if (row.sequence == bytes.substr(0, length)) keys.push_back(row.key);
        bytes.remove_prefix(length);
    }
    return keys;
}

} // namespace orvane::player
