// A song ready to be played, with what the host is told of it.
#pragma once

#include "player/protocol/Outcome.h"
#include "player/session/PlayOptions.h"
#include "player/sound/SoundSource.h"
#include "records/TrackParam.h"

#include <cstdint>
#include <memory>
#include <string>

namespace orvane::player {

struct TrackTexts {
    std::u16string title;
    std::u16string artist;
    std::u16string album;

    bool operator==(const TrackTexts&) const = default;
};

struct Track {
    std::unique_ptr<ISoundSource> source; // null if it can't be played
    TrackTexts texts;
    Bytes cover;       // an image file's bytes; empty: none
    std::string error; // one line that says what to do, if there is no source
};

// Opens songs by the names that the command line gives them; the empty name is the built-in piece.
class ITrackOpener {
public:
    virtual ~ITrackOpener() = default;

    [[nodiscard]] virtual Track Open(const std::string& song) = 0;
};

// What the command line says of the track goes before what it says itself.
[[nodiscard]] TrackTexts TextsWithOptions(TrackTexts texts, const PlayOptions& options);

// The record that travels to the host: the texts, the sound's rate and the millisecond at which it starts.
[[nodiscard]] std::shared_ptr<records::TrackParamObj>
MakeTrackRecord(const TrackTexts& texts, std::uint32_t rate, double startSeconds);

// "Title - Artist (Album)", without the parts that are empty.
[[nodiscard]] std::string TrackLine(const TrackTexts& texts);

} // namespace orvane::player
