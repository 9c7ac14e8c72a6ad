// A music file, decoded by the system: WAV, MP3, FLAC, and whatever else it has a decoder for.
#pragma once

#include "player/sound/SoundSource.h"

#include <filesystem>
#include <memory>

namespace orvane::player {

enum class MediaFileProblem {
    kNone,
    kNoFile,  // not there, a folder, or not to be read
    kNoSound, // nothing in it that the system decodes
};

struct OpenedMediaFile {
    std::unique_ptr<ISoundSource> source; // null if there is a problem
    MediaFileProblem problem = MediaFileProblem::kNone;
};

// Opens a file and finds its first sound. The first call starts the system's decoding for the process's life. The
// calling thread and whoever uses the source must be in the multi-threaded apartment (ComApartment.h).
[[nodiscard]] OpenedMediaFile OpenMediaFile(const std::filesystem::path& path);

} // namespace orvane::player
