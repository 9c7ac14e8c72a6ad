// Four-character codes: tags, keys and message numbers.
#pragma once

#include <cstdint>

namespace orvane::shell {

// The code's value with its first character most significant: FourCharacters("STR ") is 0x53545220.
[[nodiscard]] constexpr std::uint32_t FourCharacters(const char (&text)[5]) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | std::uint8_t(text[i]);
    return value;
}

} // namespace orvane::shell
