#include "player/session/Track.h"

#include "platform/Text.h"

#include <bit>
#include <cmath>

namespace orvane::player {

namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
constexpr int kWordBits = 32;

void Replace(std::u16string& text, const std::string& option) {
    if (option.empty()) return;
    if (auto wide = platform::Utf16FromUtf8(option)) text = std::move(*wide);
}

} // namespace

TrackTexts TextsWithOptions(TrackTexts texts, const PlayOptions& options) {
    Replace(texts.title, options.title);
    Replace(texts.artist, options.artist);
    Replace(texts.album, options.album);
    return texts;
}

std::shared_ptr<records::TrackParamObj> MakeTrackRecord(const TrackTexts& texts, std::uint32_t rate,
                                                        double startSeconds) {
    auto track = records::MakeTrackParam();
    if (!track) return nullptr;
    track->mTrackName.Assign(texts.title);
    track->mTrackArtist.Assign(texts.artist);
    track->mTrackAlbum.Assign(texts.album);
    // The last two words of the format are the halves of a float: frames a second.
    const auto bits = std::bit_cast<std::uint64_t>(double(rate));
    track->mAudioFormat.words1[6] = std::uint32_t(bits);
    track->mAudioFormat.word8 = std::uint32_t(bits >> kWordBits);
    track->mTrackStartA = std::int32_t(std::lround(startSeconds * kMillisecondsPerSecond));
    return track;
}

std::string TrackLine(const TrackTexts& texts) {
    std::string line = platform::Utf8FromUtf16(texts.title);
    if (!texts.artist.empty())
        line.append(line.empty() ? "" : " - ").append(platform::Utf8FromUtf16(texts.artist));
    if (!texts.album.empty())
        line.append(line.empty() ? "(" : " (").append(platform::Utf8FromUtf16(texts.album)).append(")");
    return line;
}

} // namespace orvane::player
