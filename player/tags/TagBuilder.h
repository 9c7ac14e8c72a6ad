// Gathers what the readers of the formats find. A text that comes first stays; of the pictures the front cover
// is taken if there is one.
#pragma once

#include "player/tags/Tags.h"

#include <optional>

namespace orvane::player {

enum class TagField { kTitle, kArtist, kAlbum };

// The kinds of picture that ID3v2 and FLAC number alike; these two matter, and icons of files (1 and 2) don't.
constexpr std::uint32_t kOtherPicture = 0;
constexpr std::uint32_t kFrontCover = 3;

class TagBuilder {
public:
    void OfferText(TagField field, std::u16string text);

    // False if a picture of that kind and size wouldn't be taken: then it needn't be read.
    [[nodiscard]] bool WantsPicture(std::uint32_t kind, std::uint64_t size) const;

    // Takes a JPEG or PNG file that is wanted, and drops anything else.
    void OfferPicture(std::uint32_t kind, std::vector<std::uint8_t> image);

    [[nodiscard]] Tags Take() { return std::move(mTags); }

private:
    Tags mTags;
    int mCoverRank = 0; // of the picture taken; 0 none
};

} // namespace orvane::player
