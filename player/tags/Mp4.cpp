// MP4 and M4A: boxes of a big-endian size, a name and their content, some of them boxes again. The way to the
// tags is walked by name, so no depth of nesting costs anything.
#include "player/tags/TagFormats.h"
#include "player/tags/TagText.h"

#include <optional>

namespace orvane::player {

namespace {

constexpr FourBytes kMoov = { 'm', 'o', 'o', 'v' };
constexpr FourBytes kUdta = { 'u', 'd', 't', 'a' };
constexpr FourBytes kMeta = { 'm', 'e', 't', 'a' };
constexpr FourBytes kHdlr = { 'h', 'd', 'l', 'r' };
constexpr FourBytes kIlst = { 'i', 'l', 's', 't' };
constexpr FourBytes kData = { 'd', 'a', 't', 'a' };
constexpr FourBytes kCovr = { 'c', 'o', 'v', 'r' };

struct TextRow {
    FourBytes name;
    TagField field;
};

constexpr TextRow kTexts[] = {
    { { '\xA9', 'n', 'a', 'm' }, TagField::kTitle },
    { { '\xA9', 'A', 'R', 'T' }, TagField::kArtist },
    { { '\xA9', 'a', 'l', 'b' }, TagField::kAlbum },
};

constexpr std::uint64_t kSizeFollows = 1; // the size stands behind the name, in 8 bytes
constexpr std::uint64_t kToTheEnd = 0;
constexpr std::uint64_t kShortHeader = 8, kLongHeader = 16;

enum DataType : std::uint64_t { kUtf8Data = 1, kUtf16Data = 2 }; // pictures tell their type by themselves

constexpr std::uint64_t kLocale = 4; // bytes between a data box's type and its value

struct Box {
    FourBytes name;
    Cursor content;
};

// The next box; nothing at the end, or if its size is too small for its own header.
std::optional<Box> NextBox(Cursor& boxes) {
    std::uint64_t size = boxes.Big(4), header = kShortHeader;
    const FourBytes name = boxes.Four();
    if (size == kSizeFollows) {
        size = boxes.Big(8);
        header = kLongHeader;
    } else if (size == kToTheEnd) {
        size = header + boxes.Left();
    }
    if (boxes.Failed() || size < header) return std::nullopt;
    return Box{ name, boxes.Part(size - header) };
}

std::optional<Cursor> FindBox(Cursor boxes, const FourBytes& name) {
    while (const auto box = NextBox(boxes))
        if (box->name == name) return box->content;
    return std::nullopt;
}

// Four bytes of version and flags stand before the boxes in "meta", but not in files of the older kind.
Cursor BoxesOfMeta(Cursor content) {
    constexpr std::uint64_t versionAndFlags = 4;
    Cursor older = content;
    older.Skip(versionAndFlags); // the size of its first box, which tells what the others are
    if (older.Four() != kHdlr) content.Skip(versionAndFlags);
    return content;
}

std::optional<Cursor> FindItems(Cursor file) {
    const auto moov = FindBox(file, kMoov);
    const auto udta = moov ? FindBox(*moov, kUdta) : std::nullopt;
    const auto meta = udta ? FindBox(*udta, kMeta) : std::nullopt;
    return meta ? FindBox(BoxesOfMeta(*meta), kIlst) : std::nullopt;
}

void ReadText(Cursor data, TagField field, TagBuilder& tags) {
    const std::uint64_t type = data.Big(4);
    data.Skip(kLocale);
    const auto bytes = data.Bytes(kLongestEncodedText);
    if (type == kUtf8Data) tags.OfferText(field, TextOfUtf8(bytes));
    if (type == kUtf16Data) tags.OfferText(field, TextOfUtf16(bytes, Utf16Order::kBigEndian));
}

// The first of several is the front.
void ReadCover(Cursor data, TagBuilder& tags) {
    data.Skip(4 + kLocale);
    if (tags.WantsPicture(kFrontCover, data.Left())) tags.OfferPicture(kFrontCover, data.Bytes(data.Left()));
}

void ReadItem(const Box& item, TagBuilder& tags) {
    const auto data = FindBox(item.content, kData);
    if (!data) return;
    if (item.name == kCovr) ReadCover(*data, tags);
    for (const auto& row : kTexts)
        if (item.name == row.name) ReadText(*data, row.field, tags);
}

} // namespace

void ReadMp4(Cursor stretch, TagBuilder& tags) {
    auto items = FindItems(stretch);
    if (!items) return;
    while (const auto item = NextBox(*items)) ReadItem(*item, tags);
}

} // namespace orvane::player
