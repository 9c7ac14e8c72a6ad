// A diagnostic: the beginning of a request as hexadecimal digits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::shell {

constexpr std::size_t kDumpedBytes = 64;

// Prints 64 bytes of `data`, whatever the request's length was: `data` must be readable that far, as the
// server's input buffer always is. Null prints nothing.
void DumpDataAsHex(const std::uint8_t* data);

} // namespace orvane::shell
