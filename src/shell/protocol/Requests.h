// The requests of the pipe protocol: tags, where their fields lie, and the limits of a message.
//
// One request is one pipe message: a tag of four characters and a payload. Payload values are little-endian.
// Offsets count from the first byte of the request, the tag included.
#pragma once

#include "shell/wire/FourCharacters.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orvane::shell {

constexpr std::uint32_t kMessageCapacity = 0x100000; // bytes: the largest request, and the largest reply
constexpr std::uint32_t kTagSize = 4;

namespace tags {

constexpr std::uint32_t kLocalizedStrings = FourCharacters("UPVM");
constexpr std::uint32_t kPulse = FourCharacters("PULS");
constexpr std::uint32_t kKeyInput = FourCharacters("KEYI");
constexpr std::uint32_t kShowWindow = FourCharacters("SWND");
constexpr std::uint32_t kShowWindowAndSelect = FourCharacters("SWSV");
constexpr std::uint32_t kHideWindow = FourCharacters("HWND");
constexpr std::uint32_t kEnterFullscreen = FourCharacters("NTFS");
constexpr std::uint32_t kExitFullscreen = FourCharacters("XTFS");
constexpr std::uint32_t kPostToConsole = FourCharacters("PM2C");
constexpr std::uint32_t kDeactivate = FourCharacters("DCTV");
constexpr std::uint32_t kStart = FourCharacters("STRT");
constexpr std::uint32_t kDraw = FourCharacters("DRAW");
constexpr std::uint32_t kIdle = FourCharacters("IDLE");
constexpr std::uint32_t kStop = FourCharacters("STOP");
constexpr std::uint32_t kMove = FourCharacters("MOVW");
constexpr std::uint32_t kReshape = FourCharacters("RSHP");
constexpr std::uint32_t kActivate = FourCharacters("ACTV");
constexpr std::uint32_t kNoArtwork = FourCharacters("NOAR");
constexpr std::uint32_t kArtwork13 = FourCharacters("AR13");
constexpr std::uint32_t kArtwork14 = FourCharacters("AR14");

} // namespace tags

// The tag of a request of at least kTagSize bytes: first byte most significant, each byte taken as signed, so
// a byte of 0x80 or more makes a value that no tag has.
[[nodiscard]] constexpr std::uint32_t ComposeTag(const std::uint8_t* request) {
    std::uint32_t tag = 0;
    for (std::uint32_t i = 0; i < kTagSize; ++i)
        tag |= std::uint32_t(std::int32_t(std::int8_t(request[i]))) << (24 - 8 * i);
    return tag;
}

// 'PULS': audio. The render data go on to a plug-in as a pointer (records/AudioRenderData.h).
namespace pulse_request {
constexpr std::uint32_t kStamp = 4;    // u32; 0: no audio data to take
constexpr std::uint32_t kPosition = 8; // u32
constexpr std::uint32_t kRenderData = 12;
} // namespace pulse_request

// 'KEYI': keys of the player's own window.
namespace key_request {
constexpr std::uint32_t kModifiers = 4; // u32
constexpr std::uint32_t kCount = 8;     // u32, number of characters
constexpr std::uint32_t kCharacters = 12;
} // namespace key_request

// 'RSHP': four u32.
namespace reshape_request {
constexpr std::uint32_t kValues = 4;
constexpr std::size_t kValueCount = 4;
} // namespace reshape_request

// 'ACTV': a string list whose key and bounds nobody checks.
namespace activate_request {
constexpr std::uint32_t kUnitCount = 8; // u16
constexpr std::uint32_t kUnits = 10;
} // namespace activate_request

// 'AR13', 'AR14': image bytes to the end of the request.
namespace artwork_request {
constexpr std::uint32_t kImage = 4;
}

// 'PM2C': text up to its first zero byte.
namespace console_request {
constexpr std::uint32_t kText = 4;
}

// A little-endian 32-bit value at `offset` of a message.
[[nodiscard]] inline std::uint32_t UInt32At(const std::uint8_t* message, std::uint32_t offset) {
    std::uint32_t value = 0;
    std::memcpy(&value, message + offset, sizeof(value));
    return value;
}

} // namespace orvane::shell
