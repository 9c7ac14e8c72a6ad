// ID3v2.2, 2.3 and 2.4. https://id3.org/Developer%20Information
#include "player/tags/Id3Frames.h"
#include "player/tags/TagFormats.h"

#include <optional>
#include <utility>

namespace orvane::player {

namespace {

constexpr std::uint64_t kHeaderLength = 10;
constexpr FourBytes kMagic = { 'I', 'D', '3' }; // and the version
constexpr std::uint64_t kExtendedSizeLength = 4;

enum HeaderFlag : std::uint8_t {
    kUnsynchronised = 0x80,
    kExtendedHeader = 0x40, // in 2.2: compressed, in no way that was ever laid down
    kFooter = 0x10,
};

// An unsynchronised tag of the older versions is made readable in memory, at most this much of it.
constexpr std::uint64_t kLongestUnsynchronisedTag = 4 << 20;

struct Header {
    std::uint8_t version = 0; // 2, 3 or 4
    std::uint8_t flags = 0;
    std::uint64_t size = 0; // without the header and the footer
};

std::optional<Header> ReadHeader(Cursor& stretch) {
    if (stretch.Left() < kHeaderLength) return std::nullopt;
    FourBytes magic = stretch.Four();
    Header header;
    header.version = std::uint8_t(std::exchange(magic[3], '\0'));
    stretch.Skip(1); // revision
    header.flags = std::uint8_t(stretch.Big(1));
    const auto size = Id3SyncsafeSize(std::uint32_t(stretch.Big(4)));
    if (stretch.Failed() || magic != kMagic || !size) return std::nullopt;
    header.size = *size;
    return header;
}

void SkipExtendedHeader(Cursor& body, std::uint8_t version) {
    const auto size = std::uint32_t(body.Big(kExtendedSizeLength));
    if (version == 3) return body.Skip(size);
    const std::uint64_t whole = Id3SyncsafeSize(size).value_or(0); // of 2.4, with the size itself
    if (whole > kExtendedSizeLength) body.Skip(whole - kExtendedSizeLength);
}

void ReadBody(Cursor body, const Header& header, TagBuilder& tags) {
    if (header.flags & kExtendedHeader) {
        if (header.version == 2) return;
        SkipExtendedHeader(body, header.version);
    }
    const bool framesUnsynchronised = header.version == 4 && (header.flags & kUnsynchronised) != 0;
    ReadId3Frames(body, header.version, framesUnsynchronised, tags);
}

} // namespace

std::uint64_t ReadId3v2(Cursor stretch, TagBuilder& tags) {
    const auto header = ReadHeader(stretch);
    if (!header) return 0;
    Cursor body = stretch.Part(header->size);
    if (header->version == 4 || (header->version >= 2 && !(header->flags & kUnsynchronised))) {
        if (header->version <= 4) ReadBody(body, *header, tags);
    } else if (header->version == 2 || header->version == 3) {
        auto bytes = body.Bytes(kLongestUnsynchronisedTag);
        UndoId3Unsynchronisation(bytes);
        BytesSource undone(bytes);
        ReadBody(Cursor(undone), *header, tags);
    }
    return kHeaderLength + header->size + (header->flags & kFooter ? kHeaderLength : 0);
}

} // namespace orvane::player
