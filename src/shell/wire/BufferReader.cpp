#include "shell/wire/BufferReader.h"

#include "platform/LogLine.h"
#include "shell/wire/FourCharacters.h"

#include <bit>
#include <cstring>
#include <string_view>

namespace orvane::shell {

namespace {

using platform::LogLine;

static_assert(std::endian::native == std::endian::little, "requests are read in the machine's own order");

constexpr std::uint32_t kStringKey = FourCharacters("STR ");
constexpr std::uint16_t kMaximumUnits = records::StringBlock::kCapacity;

template <typename T>
bool ReadOrLog(BufferReader& reader, T& value, std::string_view underflowLine) {
    if (reader.Remaining() < sizeof(T)) {
        LogLine(underflowLine);
        return false;
    }
    std::memcpy(&value, reader.mData + reader.mPosition, sizeof(T));
    reader.mPosition += sizeof(T);
    return true;
}

} // namespace

// KEEP: only the float's line ends in a newline; the others run on into whatever line follows. They stay so
// because the console's text is compared as a whole. Pinned by BufferReader.OnlyTheFloatsLineEndsInANewline.
bool Read(BufferReader& reader, std::uint8_t& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading uint8_t");
}

bool Read(BufferReader& reader, std::int16_t& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading int16");
}

bool Read(BufferReader& reader, std::uint32_t& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading uint32_t");
}

bool Read(BufferReader& reader, std::int32_t& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading int32_t");
}

bool Read(BufferReader& reader, float& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading float_t\n");
}

bool Read(BufferReader& reader, std::uint64_t& value) {
    return ReadOrLog(reader, value, "Buffer underflow reading uint64_t");
}

bool ReadString(BufferReader& reader, records::StringBlock& block) {
    std::uint32_t key = 0;
    if (!Read(reader, key)) {
        LogLine("Could not read string key\n");
        return false;
    }
    // KEEP: a wrong key is said and then ignored, so the text behind it is still read. Old players wrote
    // other keys. Pinned by ReadString.AWrongKeyIsSaidAndTheTextIsReadAllTheSame.
    if (key != kStringKey) LogLine("Key 'STR ' failed\n");

    std::int16_t signedCount = 0;
    if (!Read(reader, signedCount)) {
        LogLine("Could not read string stringCount\n");
        return false;
    }
    const auto count = std::uint16_t(signedCount);
    if (count > kMaximumUnits) {
        LogLine("stringCount > 255\n");
        return false;
    }
    block.count = count;
    for (std::uint16_t i = 0; i < count; ++i) {
        std::int16_t unit = 0;
        if (!Read(reader, unit)) return false;
        block.units[i] = char16_t(unit);
    }
    return true;
}

} // namespace orvane::shell
