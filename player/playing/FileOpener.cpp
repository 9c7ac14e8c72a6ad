#include "player/playing/FileOpener.h"

#include "platform/Text.h"
#include "player/session/BuiltInPiece.h"
#include "player/session/Messages.h"
#include "player/sound/windows/MediaFile.h"
#include "player/tags/Tags.h"

#include <filesystem>

namespace orvane::player {

namespace {

std::filesystem::path PathOf(const std::string& name) {
    return platform::Utf16FromUtf8(name).value_or(u"");
}

} // namespace

Track FileOpener::Open(const std::string& song) {
    Track track;
    if (song.empty()) {
        track = OpenBuiltInPiece();
        track.cover = mArtwork;
        return track;
    }
    const std::filesystem::path path = PathOf(song);
    OpenedMediaFile opened = OpenMediaFile(path);
    switch (opened.problem) {
    case MediaFileProblem::kNoFile:
        track.error = messages::NoSuchFile(song);
        return track;
    case MediaFileProblem::kNoSound:
        track.error = messages::NoSound(song);
        return track;
    case MediaFileProblem::kNone:
        break;
    }
    Tags tags = ReadTagsOfFile(path);
    track.source = std::move(opened.source);
    track.texts = { std::move(tags.title), std::move(tags.artist), std::move(tags.album) };
    track.cover = mArtwork.empty() ? std::move(tags.cover) : mArtwork;
    return track;
}

PictureFile ReadPicture(const std::string& name) {
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(PathOf(name), unknown))
        return { {}, messages::NoSuchPicture(name) };
    FileSource file(PathOf(name));
    if (file.Size() > kLargestCover) return { {}, messages::PictureTooLarge(name) };
    PictureFile picture;
    picture.bytes.resize(std::size_t(file.Size()));
    if (!file.Read(0, picture.bytes)) return { {}, messages::NoSuchPicture(name) };
    return picture;
}

} // namespace orvane::player
