// What every test module registers, so that a test can find it again in the plug-in list: a different figure
// in each field, and what the modules answer.
#pragma once

#include "orvane_plugin.h"

#include <cstdint>

namespace orvane::tests {

constexpr std::uint32_t kRegisteredUnread = 0xEEEEEEEE;
constexpr std::uint32_t kRegisteredOtherOptions = 0x00010002; // beside the idle bit of the modes that ask
constexpr std::uint32_t kRegisteredWord0 = 0x01020304;
constexpr std::uint8_t kRegisteredBytes[4] = { 0xA1, 0xB2, 0xC3, 0xD4 };
constexpr std::uint32_t kRegisteredRate = 30;
constexpr std::uint32_t kRegisteredWord1 = 0x11121314;
constexpr std::uint32_t kRegisteredWord2 = 0x21222324;
// In the player's order, which isn't that of the registration record.
constexpr std::uint32_t kRegisteredLimits[4] = { 101, 102, 103, 104 };

constexpr std::uintptr_t kRegisterRefcon = 0x1111222233334444; // goes in with the registration
constexpr std::uintptr_t kHandlerRefcon = 0x5555666677778888;  // what the handler puts in its place

constexpr std::uint64_t kPulseResultBase = 1000; // a pulse's result is this plus its stamp

constexpr std::int32_t kEntryFailure = -101;    // of the entry itself
constexpr std::int32_t kInitFailure = -102;     // of the handler's 'init'
constexpr std::int32_t kActivateFailure = -103; // of 'Vact'

constexpr std::uint32_t kUnknownHostMessage = 0x7A7A7A7A; // 'zzzz'
constexpr std::uint16_t kClaimedUnits = 300;

} // namespace orvane::tests
