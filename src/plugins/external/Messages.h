// The messages between the host and a module: their codes, their status values, and the three functions
// through which they go. All of it is a binary contract with modules built elsewhere.
#pragma once

#include "shell/wire/FourCharacters.h"

#include <cstdint>

namespace orvane::plugins {

constexpr std::uint32_t kOrvanePluginMajorMessageVersion = 10; // binding
constexpr std::uint32_t kOrvanePluginMinorMessageVersion = 9;  // told, not binding
constexpr std::uint32_t kHostVersion = 0x0080500C;

constexpr std::int32_t kNoErr = 0;
constexpr std::int32_t kUnimpErr = -4;
constexpr std::int32_t kParamErr = -50;

// From the host to the module.
namespace messages {
constexpr std::uint32_t kInit = shell::FourCharacters("init");       // EntryRecord or HandlerRecord
constexpr std::uint32_t kActivate = shell::FourCharacters("Vact");   // ActivateRecord
constexpr std::uint32_t kDeactivate = shell::FourCharacters("Vdct"); // no record
constexpr std::uint32_t kReshape = shell::FourCharacters("Vfrm");    // no record
constexpr std::uint32_t kDraw = shell::FourCharacters("Vdrw");       // no record
constexpr std::uint32_t kStop = shell::FourCharacters("vstp");       // no record
constexpr std::uint32_t kIdle = shell::FourCharacters("null");       // no record
constexpr std::uint32_t kArtwork = shell::FourCharacters("Vart");    // ArtworkMessageRecord
constexpr std::uint32_t kPulse = shell::FourCharacters("Vpls");      // PulseRecord
constexpr std::uint32_t kPlay = shell::FourCharacters("Vply");       // PlaybackRecord
} // namespace messages

// From the module to the host.
namespace callback_messages {
constexpr std::uint32_t kRegister = shell::FourCharacters("regv"); // RegistrationRecord
constexpr std::uint32_t kRequestArtwork = shell::FourCharacters("rart");
constexpr std::uint32_t kSetFullScreenOptions = shell::FourCharacters("sfop");
constexpr std::uint32_t kSetFullScreen = shell::FourCharacters("sful");
} // namespace callback_messages

// A module's exported entry; its third argument is null.
using PluginMain = std::int32_t (*)(std::uint32_t message, void* record, void* unused);

// What a module registers. `refCon` is the module's own cookie.
using MessageHandler = std::int32_t (*)(std::uint32_t message, void* record, void* refCon);

// What the host hands to a module. `hostCookie` is the host's, from the entry record.
using HostCallback = std::int32_t (*)(void* hostCookie, std::uint32_t message, void* record);

} // namespace orvane::plugins
