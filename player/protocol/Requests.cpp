#include "player/protocol/Requests.h"

#include "player/protocol/RequestWriter.h"
#include "records/LocalizedString.h"

#include <algorithm>

namespace orvane::player {

namespace {

using records::TrackParamObj;
using shell::FourCharacters;

constexpr std::uint32_t kTrackInfoKey = FourCharacters("TINF");
constexpr std::uint32_t kAudioFormatKey = FourCharacters("AUFM");
constexpr std::uint32_t kFlatTrackMarker = FourCharacters("FLAT");
constexpr std::uint8_t kSelectionByte = 0; // the host ignores it
constexpr std::size_t kLongestGroup = 255; // its count is one byte

template <std::size_t N>
void WriteWords(RequestWriter& writer, const std::uint32_t (&words)[N]) {
    for (const std::uint32_t word : words) writer.U32(word);
}

template <std::size_t N>
void WriteShorts(RequestWriter& writer, const std::int16_t (&shorts)[N]) {
    for (const std::int16_t value : shorts) writer.U16(std::uint16_t(value));
}

void WriteTrackInfo(RequestWriter& writer, const TrackParamObj& track) {
    writer.U32(kTrackInfoKey);
    WriteWords(writer, track.mInfoWords1);
    for (const auto* block :
         { &track.mTrackName, &track.mInfoString2, &track.mTrackArtist, &track.mTrackAlbum,
           &track.mInfoString5, &track.mInfoString6, &track.mInfoString7, &track.mInfoString8 })
        writer.String(block->View());
    WriteWords(writer, track.mInfoWords2);
    WriteShorts(writer, track.mInfoShorts1);
    WriteWords(writer, track.mInfoWords3);
    writer.String(track.mInfoString9.View());
    writer.Raw(std::span(track.mInfoBytes));
    WriteShorts(writer, track.mInfoShorts2);
    WriteWords(writer, track.mInfoWords4);
    WriteShorts(writer, track.mInfoShorts3);
    writer.String(track.mInfoString10.View());
    writer.F32(track.mInfoFloat);
    writer.String(track.mInfoString11.View());
    writer.U64(track.mInfoLong);
}

void WriteTrackBlock(RequestWriter& writer, const TrackParamObj& track) {
    WriteTrackInfo(writer, track);
    // Nine words: the one at offset 4 of the block doesn't travel.
    writer.U32(kAudioFormatKey).U32(track.mAudioFormat.word0);
    WriteWords(writer, track.mAudioFormat.words1);
    writer.U32(track.mAudioFormat.word8);
    writer.U32(std::uint32_t(track.mTrackStartA)).U32(track.mTrackStartB);
}

void WriteBracketed(RequestWriter& writer, std::string_view text, std::size_t limit) {
    std::string kept(text.substr(0, limit));
    std::erase(kept, '>');
    writer.Raw("<").Raw(kept).Raw(">");
}

void WriteGroup(RequestWriter& writer, std::string_view letter, std::span<const LocalizedText> texts) {
    if (texts.empty()) return; // a group that claims no text would never end
    const auto kept = texts.first(std::min(texts.size(), kLongestGroup));
    writer.Raw(letter).U8(std::uint8_t(kept.size()));
    for (const auto& [text, key] : kept) {
        WriteBracketed(writer, text, sizeof(records::LocalizedString::key));
        WriteBracketed(writer, key, sizeof(records::LocalizedString::value));
    }
}

} // namespace

Bytes PlainRequest(std::uint32_t tag) {
    return RequestWriter(tag).Take();
}

Bytes PulseRequest(std::uint32_t stamp, std::uint32_t position, std::span<const std::uint8_t> renderData) {
    return RequestWriter(shell::tags::kPulse).U32(stamp).U32(position).Raw(renderData).Take();
}

Bytes KeyInputRequest(std::uint32_t modifiers, std::u16string_view characters) {
    return RequestWriter(shell::tags::kKeyInput)
        .U32(modifiers)
        .U32(std::uint32_t(characters.size()))
        .Units(characters)
        .Take();
}

Bytes StartRequest(const TrackParamObj& track) {
    RequestWriter writer(shell::tags::kStart);
    WriteTrackBlock(writer, track);
    return writer.Take();
}

Bytes SelectRequest(std::u16string_view visualizer, const TrackParamObj* track) {
    RequestWriter writer(shell::tags::kShowWindowAndSelect);
    writer.String(visualizer).U8(kSelectionByte);
    if (track) {
        writer.U32(kFlatTrackMarker);
        WriteTrackBlock(writer, *track);
    }
    return writer.Take();
}

Bytes ActivateRequest(std::u16string_view visualizer) {
    return RequestWriter(shell::tags::kActivate).String(visualizer).Take();
}

Bytes ReshapeRequest(const std::array<std::uint32_t, 4>& values) {
    RequestWriter writer(shell::tags::kReshape);
    for (const std::uint32_t value : values) writer.U32(value);
    return writer.Take();
}

Bytes ConsoleRequest(std::string_view text) {
    return RequestWriter(shell::tags::kPostToConsole).Raw(text).U8(0).Take();
}

Bytes ArtworkRequest(ArtworkFormat format, std::span<const std::uint8_t> image) {
    const bool is13 = format == ArtworkFormat::k13;
    return RequestWriter(is13 ? shell::tags::kArtwork13 : shell::tags::kArtwork14).Raw(image).Take();
}

Bytes LocalizedStringsRequest(std::span<const LocalizedText> quellspire,
                              std::span<const LocalizedText> zephor) {
    RequestWriter writer(shell::tags::kLocalizedStrings);
    WriteGroup(writer, "Q", quellspire);
    WriteGroup(writer, "Z", zephor);
    return writer.Take();
}

} // namespace orvane::player
