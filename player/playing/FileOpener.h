// Songs from files, with what their tags say.
#pragma once

#include "player/session/Track.h"

namespace orvane::player {

class FileOpener final : public ITrackOpener {
public:
    // `artwork` takes the place of every song's own cover, unless it is empty.
    explicit FileOpener(Bytes artwork)
        : mArtwork(std::move(artwork)) {}

    [[nodiscard]] Track Open(const std::string& song) override;

private:
    const Bytes mArtwork;
};

// A picture's bytes, or why they can't be had: one line that says what to do.
struct PictureFile {
    Bytes bytes;
    std::string error;
};

[[nodiscard]] PictureFile ReadPicture(const std::string& name);

} // namespace orvane::player
