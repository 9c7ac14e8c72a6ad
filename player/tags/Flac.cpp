// FLAC: metadata blocks between "fLaC" and the sound. https://xiph.org/flac/format.html
#include "player/tags/TagFormats.h"
#include "player/tags/TagText.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace orvane::player {

namespace {

constexpr std::uint8_t kLastBlock = 0x80; // flag in a block's type byte

enum BlockType : std::uint8_t { kVorbisCommentBlock = 4, kPictureBlock = 6 };

struct CommentRow {
    std::string_view name; // with "=" behind it, in either case
    TagField field;
};

constexpr CommentRow kComments[] = {
    { "TITLE=", TagField::kTitle },
    { "ARTIST=", TagField::kArtist },
    { "ALBUM=", TagField::kAlbum },
};

bool StartsWithName(std::span<const std::uint8_t> comment, std::string_view name) {
    return comment.size() >= name.size() &&
           std::ranges::equal(comment.first(name.size()), name,
                              [](std::uint8_t a, char b) { return std::toupper(a) == b; });
}

void OfferComment(std::span<const std::uint8_t> comment, TagBuilder& tags) {
    for (const auto& row : kComments)
        if (StartsWithName(comment, row.name))
            tags.OfferText(row.field, TextOfUtf8(comment.subspan(row.name.size())));
}

// Little-endian, unlike everything around them.
void ReadComments(Cursor block, TagBuilder& tags) {
    block.Skip(block.Little(4)); // who wrote it
    for (std::uint64_t count = block.Little(4); count > 0 && !block.Failed(); --count) {
        Cursor comment = block.Part(block.Little(4));
        OfferComment(comment.Bytes(kLongestEncodedText), tags);
    }
}

void ReadPicture(Cursor block, TagBuilder& tags) {
    constexpr std::uint64_t dimensions = 4 * 4; // width, height, depth and colours
    const auto kind = std::uint32_t(block.Big(4));
    block.Skip(block.Big(4)); // media type
    block.Skip(block.Big(4)); // description
    block.Skip(dimensions);
    const std::uint64_t size = block.Big(4);
    if (size <= block.Left() && tags.WantsPicture(kind, size)) tags.OfferPicture(kind, block.Bytes(size));
}

} // namespace

void ReadFlac(Cursor stretch, TagBuilder& tags) {
    stretch.Skip(FourBytes{}.size());
    for (;;) {
        const auto type = std::uint8_t(stretch.Big(1));
        const Cursor block = stretch.Part(stretch.Big(3));
        if (stretch.Failed()) return;
        switch (type & ~kLastBlock) {
        case kVorbisCommentBlock:
            ReadComments(block, tags);
            break;
        case kPictureBlock:
            ReadPicture(block, tags);
            break;
        }
        if (type & kLastBlock) return;
    }
}

} // namespace orvane::player
