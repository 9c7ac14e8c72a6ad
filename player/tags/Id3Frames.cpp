#include "player/tags/Id3Frames.h"

#include "player/tags/TagText.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace orvane::player {

namespace {

using Span = std::span<const std::uint8_t>;

// Frames by name, the three characters of version 2 with a zero behind them.
struct TextRow {
    FourBytes name2, name;
    TagField field;
};

constexpr TextRow kTexts[] = {
    { { 'T', 'T', '2' }, { 'T', 'I', 'T', '2' }, TagField::kTitle },
    { { 'T', 'P', '1' }, { 'T', 'P', 'E', '1' }, TagField::kArtist },
    { { 'T', 'A', 'L' }, { 'T', 'A', 'L', 'B' }, TagField::kAlbum },
};
constexpr FourBytes kPicture2 = { 'P', 'I', 'C' };
constexpr FourBytes kPicture = { 'A', 'P', 'I', 'C' };

// What the second byte of a frame's flags means: which fields stand before its data, and what is done to them.
struct FrameFlags {
    std::uint8_t unreadable;     // compressed or encrypted
    std::uint8_t group;          // one byte first
    std::uint8_t dataLength;     // then four
    std::uint8_t unsynchronised; // of this frame
};

constexpr FrameFlags kFlags3 = { 0x80 | 0x40, 0x20, 0, 0 };
constexpr FrameFlags kFlags4 = { 0x08 | 0x04, 0x40, 0x01, 0x02 };

enum Encoding : std::uint8_t { kLatin1 = 0, kUtf16 = 1, kUtf16Big = 2, kUtf8 = 3 };

// A picture's frame holds little more than the picture: its type and a description.
constexpr std::uint64_t kLargestPictureFrame = kLargestCover + 4096;
constexpr std::size_t kPictureFormat2 = 3; // bytes of a picture's type in version 2, "JPG" or "PNG"

struct Frame {
    FourBytes name = {};
    std::uint8_t flags = 0;
    Cursor content;
};

// The version's header of a frame and its content; nothing at the padding or the end.
std::optional<Frame> NextFrame(Cursor& body, std::uint8_t version) {
    constexpr std::size_t nameLength2 = 3;
    FourBytes name = {};
    std::uint32_t size = 0;
    std::uint8_t flags = 0;
    if (version == 2) {
        for (std::size_t i = 0; i < nameLength2; ++i) name[i] = char(body.Big(1));
        size = std::uint32_t(body.Big(3));
    } else {
        name = body.Four();
        size = std::uint32_t(body.Big(4));
        // Some programs write sizes of version 4 as version 3 does; where that shows, it is taken so.
        if (version == 4) size = Id3SyncsafeSize(size).value_or(size);
        body.Skip(1);
        flags = std::uint8_t(body.Big(1));
    }
    if (body.Failed() || name[0] == '\0' || size > body.Left()) return std::nullopt;
    return Frame{ name, flags, body.Part(size) };
}

// The frame's data as they were before unsynchronisation; nothing if they can't be had.
std::optional<std::vector<std::uint8_t>> DataOf(Frame frame, std::uint8_t version, bool unsynchronised,
                                                std::uint64_t limit) {
    const FrameFlags meaning = version == 4 ? kFlags4 : version == 3 ? kFlags3 : FrameFlags{};
    if (frame.flags & meaning.unreadable) return std::nullopt;
    if (frame.flags & meaning.group) frame.content.Skip(1);
    if (frame.flags & meaning.dataLength) frame.content.Skip(4);
    auto data = frame.content.Bytes(limit);
    if (unsynchronised || (frame.flags & meaning.unsynchronised)) UndoId3Unsynchronisation(data);
    return data;
}

std::u16string Decode(std::uint8_t encoding, Span text) {
    switch (encoding) {
    case kLatin1:
        return TextOfLatin1(text);
    case kUtf16:
        return TextOfUtf16(text, Utf16Order::kByMark);
    case kUtf16Big:
        return TextOfUtf16(text, Utf16Order::kBigEndian);
    case kUtf8:
        return TextOfUtf8(text);
    default:
        return {};
    }
}

// Behind the text that ends with a zero character; empty if none does.
Span BehindText(Span data, std::uint8_t encoding) {
    const std::size_t unit = encoding == kUtf16 || encoding == kUtf16Big ? 2 : 1;
    for (std::size_t i = 0; i + unit <= data.size(); i += unit)
        if (data[i] == 0 && data[i + unit - 1] == 0) return data.subspan(i + unit);
    return {};
}

void ReadPicture(Span data, std::uint8_t version, TagBuilder& tags) {
    if (data.empty()) return;
    const std::uint8_t encoding = data[0];
    data = data.subspan(1);
    data = version == 2 ? data.subspan(std::min(kPictureFormat2, data.size())) : BehindText(data, kLatin1);
    if (data.empty()) return;
    const std::uint8_t kind = data[0];
    const Span image = BehindText(data.subspan(1), encoding);
    if (tags.WantsPicture(kind, image.size())) tags.OfferPicture(kind, { image.begin(), image.end() });
}

void ReadFrame(const Frame& frame, std::uint8_t version, bool unsynchronised, TagBuilder& tags) {
    for (const auto& row : kTexts) {
        if (frame.name != (version == 2 ? row.name2 : row.name)) continue;
        const auto data = DataOf(frame, version, unsynchronised, kLongestEncodedText);
        if (data && !data->empty()) tags.OfferText(row.field, Decode(data->front(), Span(*data).subspan(1)));
    }
    if (frame.name != (version == 2 ? kPicture2 : kPicture) || frame.content.Left() > kLargestPictureFrame)
        return;
    if (const auto data = DataOf(frame, version, unsynchronised, kLargestPictureFrame))
        ReadPicture(*data, version, tags);
}

} // namespace

std::optional<std::uint32_t> Id3SyncsafeSize(std::uint32_t value) {
    constexpr std::uint32_t topBits = 0x80808080;
    if (value & topBits) return std::nullopt;
    return (value & 0x7F) | (value & 0x7F00) >> 1 | (value & 0x7F0000) >> 2 | (value & 0x7F000000) >> 3;
}

void UndoId3Unsynchronisation(std::vector<std::uint8_t>& bytes) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[kept++] = bytes[i];
        if (bytes[i] == 0xFF && i + 1 < bytes.size() && bytes[i + 1] == 0) ++i;
    }
    bytes.resize(kept);
}

void ReadId3Frames(Cursor body, std::uint8_t version, bool unsynchronised, TagBuilder& tags) {
    while (const auto frame = NextFrame(body, version)) ReadFrame(*frame, version, unsynchronised, tags);
}

} // namespace orvane::player
