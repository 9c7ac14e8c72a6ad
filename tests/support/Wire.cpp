#include "support/Wire.h"

#include <bit>

namespace orvane::tests {

WireBuilder& WireBuilder::U8(std::uint8_t value) {
    mBytes.push_back(value);
    return *this;
}

WireBuilder& WireBuilder::U16(std::uint16_t value) {
    return U8(std::uint8_t(value)).U8(std::uint8_t(value >> 8));
}

WireBuilder& WireBuilder::U32(std::uint32_t value) {
    return U16(std::uint16_t(value)).U16(std::uint16_t(value >> 16));
}

WireBuilder& WireBuilder::U64(std::uint64_t value) {
    return U32(std::uint32_t(value)).U32(std::uint32_t(value >> 32));
}

WireBuilder& WireBuilder::F32(float value) {
    return U32(std::bit_cast<std::uint32_t>(value));
}

WireBuilder& WireBuilder::Raw(std::string_view bytes) {
    mBytes.insert(mBytes.end(), bytes.begin(), bytes.end());
    return *this;
}

WireBuilder& WireBuilder::Zeros(std::size_t count) {
    mBytes.insert(mBytes.end(), count, 0);
    return *this;
}

WireBuilder& WireBuilder::String(std::u16string_view text) {
    Raw(" RTS").U16(std::uint16_t(text.size()));
    for (const char16_t unit : text) U16(unit);
    return *this;
}

Bytes SampleTrackBlock() {
    return TrackBlock(u"Name", u"Artist", u"Album");
}

Bytes TrackBlock(std::u16string_view name, std::u16string_view artist, std::u16string_view album) {
    WireBuilder block;
    block.Raw("FNIT").U32(0x1000).U32(0x1001);
    block.String(name).String(u"Text 2").String(artist).String(album);
    block.String(u"Text 5").String(u"Text 6").String(u"Text 7").String(u"Text 8");
    block.U32(0x1002).U32(0x1003).U16(0xFFFE).U16(0x0102);
    for (std::uint32_t i = 0; i < 11; ++i) block.U32(0x1010 + i);
    block.String(u"Text 9").U8(0xA1).U8(0xA2);
    block.U16(0x0201).U16(0x8000).U16(0x0203).U32(0x1020).U32(0x1021).U16(0x0204).U16(0x0205);
    block.String(u"Text 10").F32(1.5f).String(u"Text 11").U64(0x1122334455667788);
    block.Raw("MFUA");
    for (std::uint32_t i = 0; i < 9; ++i) block.U32(0x2000 + i);
    block.U32(std::uint32_t(-5)).U32(0x1030);
    return block.Get();
}

std::string AsText(std::span<const std::uint8_t> bytes) {
    return { reinterpret_cast<const char*>(bytes.data()), bytes.size() };
}

} // namespace orvane::tests
