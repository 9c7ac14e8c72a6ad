#include "player/tags/Tags.h"

#include "player/tags/TagFormats.h"
#include "player/tags/TagText.h"

#include <algorithm>
#include <iterator>

namespace orvane::player {

namespace {

// A format by the four bytes that stand `at` bytes into the file.
struct FormatRow {
    FourBytes magic;
    std::uint64_t at;
    void (*read)(Cursor stretch, TagBuilder& tags);
};

constexpr FormatRow kFormats[] = {
    { { 'f', 'L', 'a', 'C' }, 0, ReadFlac },
    { { 'R', 'I', 'F', 'F' }, 0, ReadWav },
    { { 'f', 't', 'y', 'p' }, 4, ReadMp4 },
};

bool IsFormat(Cursor stretch, const FormatRow& format) {
    stretch.Skip(format.at);
    return stretch.Four() == format.magic;
}

// A path is UTF-16 on Windows and bytes elsewhere, UTF-8 as a rule; neither need be valid.
template <typename Unit>
std::u16string TextOfPath(const std::basic_string<Unit>& path) {
    if constexpr (sizeof(Unit) == 1)
        return TextOfUtf8({ reinterpret_cast<const std::uint8_t*>(path.data()), path.size() });
    else
        return TidyText(std::u16string(path.begin(), path.end()));
}

} // namespace

Tags ReadTags(IByteSource& source, const std::filesystem::path& fileName) {
    TagBuilder tags;
    BoundedSource bounded(source, kMostReads, kMostBytes);
    Cursor stretch(bounded);
    stretch.Skip(ReadId3v2(stretch, tags));
    const auto* format = std::ranges::find_if(
        kFormats, [&stretch](const FormatRow& candidate) { return IsFormat(stretch, candidate); });
    (format == std::end(kFormats) ? ReadId3v1 : format->read)(stretch, tags);
    tags.OfferText(TagField::kTitle, TextOfPath(fileName.stem().native()));
    return tags.Take();
}

Tags ReadTagsOfFile(const std::filesystem::path& path) {
    FileSource file(path);
    return ReadTags(file, path);
}

} // namespace orvane::player
