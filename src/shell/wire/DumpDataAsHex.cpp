#include "shell/wire/DumpDataAsHex.h"

#include "platform/LogLine.h"

namespace orvane::shell {

void DumpDataAsHex(const std::uint8_t* data) {
    if (!data) return;
    static constexpr char kDigits[] = "0123456789ABCDEF";
    char digits[2 * kDumpedBytes + 1] = {};
    for (std::size_t i = 0; i < kDumpedBytes; ++i) {
        digits[2 * i] = kDigits[data[i] >> 4];
        digits[2 * i + 1] = kDigits[data[i] & 0xF];
    }
    platform::LogFormat("DumpDataAsHex:  data is\"%s\"\n", digits);
}

} // namespace orvane::shell
