#include "player/tags/TagFormats.h"
#include "player/tags/TagText.h"

#include <algorithm>
#include <string_view>

namespace orvane::player {

namespace {

constexpr std::uint64_t kTagLength = 128;
constexpr std::string_view kMagic = "TAG";
constexpr std::uint64_t kTextLength = 30; // padded with zeros or blanks

// In the order in which they stand behind the magic.
constexpr TagField kFields[] = { TagField::kTitle, TagField::kArtist, TagField::kAlbum };

} // namespace

void ReadId3v1(Cursor stretch, TagBuilder& tags) {
    if (stretch.Left() < kTagLength) return;
    stretch.Skip(stretch.Left() - kTagLength);
    if (!std::ranges::equal(stretch.Bytes(kMagic.size()), kMagic)) return;
    for (const TagField field : kFields) tags.OfferText(field, TextOfLatin1(stretch.Bytes(kTextLength)));
}

} // namespace orvane::player
