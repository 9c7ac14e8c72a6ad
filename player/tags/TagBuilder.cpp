#include "player/tags/TagBuilder.h"

#include <algorithm>
#include <array>

namespace orvane::player {

namespace {

constexpr std::array<std::uint8_t, 3> kJpegStart = { 0xFF, 0xD8, 0xFF };
constexpr std::array<std::uint8_t, 8> kPngStart = { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };

template <std::size_t N>
bool StartsWith(std::span<const std::uint8_t> image, const std::array<std::uint8_t, N>& start) {
    return image.size() > N && std::ranges::equal(image.first(N), start);
}

// The higher the better; of equals the first stays.
int RankOf(std::uint32_t kind) {
    switch (kind) {
    case kFrontCover:
        return 3;
    case kOtherPicture:
        return 2; // what programs write that don't ask for a kind
    case 1:
    case 2:
        return 0;
    default:
        return 1;
    }
}

} // namespace

void TagBuilder::OfferText(TagField field, std::u16string text) {
    std::u16string& kept = field == TagField::kTitle    ? mTags.title
                           : field == TagField::kArtist ? mTags.artist
                                                        : mTags.album;
    if (kept.empty()) kept = std::move(text);
}

bool TagBuilder::WantsPicture(std::uint32_t kind, std::uint64_t size) const {
    return size <= kLargestCover && RankOf(kind) > mCoverRank;
}

void TagBuilder::OfferPicture(std::uint32_t kind, std::vector<std::uint8_t> image) {
    if (!WantsPicture(kind, image.size())) return;
    if (!StartsWith(image, kJpegStart) && !StartsWith(image, kPngStart)) return;
    mTags.cover = std::move(image);
    mCoverRank = RankOf(kind);
}

ArtworkFormat CoverFormat(std::span<const std::uint8_t> cover) {
    return StartsWith(cover, kPngStart) ? ArtworkFormat::k14 : ArtworkFormat::k13;
}

} // namespace orvane::player
