// The requests that a player sends, each made whole and ready to go out as one pipe message.
//
// Tags are those of shell/protocol/Requests.h. The ten requests without a payload ('SWND', 'HWND', 'NTFS',
// 'XTFS', 'DCTV', 'DRAW', 'IDLE', 'STOP', 'MOVW', 'NOAR') are made by PlainRequest.
#pragma once

#include "player/protocol/Outcome.h"
#include "records/TrackParam.h"
#include "shell/protocol/Requests.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orvane::player {

[[nodiscard]] Bytes PlainRequest(std::uint32_t tag);

// 'PULS'. `stamp` 0 means that there is no audio to take; `renderData` is a records::AudioRenderData, as bytes.
[[nodiscard]] Bytes PulseRequest(std::uint32_t stamp, std::uint32_t position,
                                 std::span<const std::uint8_t> renderData);

// 'KEYI'
[[nodiscard]] Bytes KeyInputRequest(std::uint32_t modifiers, std::u16string_view characters);

// 'STRT'
[[nodiscard]] Bytes StartRequest(const records::TrackParamObj& track);

// 'SWSV': shows the window with the visualizer of that display name, and starts `track` unless it is null.
[[nodiscard]] Bytes SelectRequest(std::u16string_view visualizer, const records::TrackParamObj* track);

// 'ACTV': the same without the window and without a track.
[[nodiscard]] Bytes ActivateRequest(std::u16string_view visualizer);

// 'RSHP'
[[nodiscard]] Bytes ReshapeRequest(const std::array<std::uint32_t, 4>& values);

// 'PM2C': sends the text and the zero byte that ends it. What stands behind a zero byte isn't shown.
[[nodiscard]] Bytes ConsoleRequest(std::string_view text);

enum class ArtworkFormat { k13, k14 };

// 'AR13', 'AR14'
[[nodiscard]] Bytes ArtworkRequest(ArtworkFormat format, std::span<const std::uint8_t> image);

// One text of a built-in visualizer, UTF-8. The last of a list is its display title, the others are help:
// what is shown and the key to press.
struct LocalizedText {
    std::string text; // the first 256 bytes count
    std::string key;  // the first 8 bytes count
};

// 'UPVM'. An empty list sends no group. A group holds at most 255 texts; ">" would end a text and is left out.
[[nodiscard]] Bytes LocalizedStringsRequest(std::span<const LocalizedText> quellspire,
                                            std::span<const LocalizedText> zephor);

} // namespace orvane::player
