#include "player/protocol/RequestWriter.h"

#include "records/StringBlock.h"
#include "shell/wire/FourCharacters.h"

#include <bit>

namespace orvane::player {

namespace {

constexpr std::uint32_t kStringKey = shell::FourCharacters("STR ");

} // namespace

RequestWriter::RequestWriter(std::uint32_t tag) {
    for (const int shift : { 24, 16, 8, 0 }) U8(std::uint8_t(tag >> shift));
}

RequestWriter& RequestWriter::U8(std::uint8_t value) {
    mBytes.push_back(value);
    return *this;
}

RequestWriter& RequestWriter::U16(std::uint16_t value) {
    return U8(std::uint8_t(value)).U8(std::uint8_t(value >> 8));
}

RequestWriter& RequestWriter::U32(std::uint32_t value) {
    return U16(std::uint16_t(value)).U16(std::uint16_t(value >> 16));
}

RequestWriter& RequestWriter::U64(std::uint64_t value) {
    return U32(std::uint32_t(value)).U32(std::uint32_t(value >> 32));
}

RequestWriter& RequestWriter::F32(float value) {
    return U32(std::bit_cast<std::uint32_t>(value));
}

RequestWriter& RequestWriter::Raw(std::span<const std::uint8_t> bytes) {
    mBytes.insert(mBytes.end(), bytes.begin(), bytes.end());
    return *this;
}

RequestWriter& RequestWriter::Raw(std::string_view text) {
    mBytes.insert(mBytes.end(), text.begin(), text.end());
    return *this;
}

RequestWriter& RequestWriter::Units(std::u16string_view text) {
    for (const char16_t unit : text) U16(unit);
    return *this;
}

RequestWriter& RequestWriter::String(std::u16string_view text) {
    const auto kept = text.substr(0, records::StringBlock::kCapacity);
    return U32(kStringKey).U16(std::uint16_t(kept.size())).Units(kept);
}

} // namespace orvane::player
