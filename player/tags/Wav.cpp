// WAV: chunks of a name, a little-endian size and that many bytes, padded to an even count.
#include "player/tags/TagFormats.h"
#include "player/tags/TagText.h"

namespace orvane::player {

namespace {

constexpr std::uint64_t kRiffHeader = 12; // "RIFF", its size, "WAVE"
constexpr FourBytes kWave = { 'W', 'A', 'V', 'E' };
constexpr FourBytes kList = { 'L', 'I', 'S', 'T' };
constexpr FourBytes kInfo = { 'I', 'N', 'F', 'O' };
constexpr FourBytes kId3Names[] = { { 'i', 'd', '3', ' ' }, { 'I', 'D', '3', ' ' } };

struct InfoRow {
    FourBytes name;
    TagField field;
};

constexpr InfoRow kInfos[] = {
    { { 'I', 'N', 'A', 'M' }, TagField::kTitle },
    { { 'I', 'A', 'R', 'T' }, TagField::kArtist },
    { { 'I', 'P', 'R', 'D' }, TagField::kAlbum },
};

// Calls `visit` with the name and the stretch of each chunk.
template <typename Visit>
void ForEachChunk(Cursor chunks, Visit visit) {
    for (;;) {
        const FourBytes name = chunks.Four();
        const std::uint64_t size = chunks.Little(4);
        if (chunks.Failed()) return;
        visit(name, chunks.Part(size));
        chunks.Skip(size & 1);
    }
}

void ReadInfo(Cursor list, TagBuilder& tags) {
    if (list.Four() != kInfo) return;
    ForEachChunk(list, [&tags](const FourBytes& name, Cursor text) {
        for (const auto& row : kInfos)
            if (row.name == name) tags.OfferText(row.field, TextOfUtf8(text.Bytes(kLongestEncodedText)));
    });
}

} // namespace

void ReadWav(Cursor stretch, TagBuilder& tags) {
    Cursor header = stretch.Part(kRiffHeader);
    header.Skip(kRiffHeader - kWave.size());
    if (header.Four() != kWave) return;
    // An ID3v2 tag says more than the list, and may stand behind it.
    ForEachChunk(stretch, [&tags](const FourBytes& name, Cursor chunk) {
        for (const auto& id3 : kId3Names)
            if (name == id3) ReadId3v2(chunk, tags);
    });
    ForEachChunk(stretch, [&tags](const FourBytes& name, Cursor chunk) {
        if (name == kList) ReadInfo(chunk, tags);
    });
}

} // namespace orvane::player
