#include "player/tags/TagText.h"

#include "platform/Text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace orvane::player {

namespace {

using Span = std::span<const std::uint8_t>;

bool IsControl(char16_t unit) {
    return unit < u' ' || (unit >= 0x7F && unit < 0xA0);
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

// A long UTF-8 text is cut to what is looked at, perhaps within a character: without that beginning of one.
std::string_view WithoutCutCharacter(std::string_view text) {
    constexpr std::size_t longestCharacter = 4;
    for (std::size_t back = 1; back <= std::min(longestCharacter, text.size()); ++back) {
        const auto byte = std::uint8_t(text[text.size() - back]);
        if ((byte & 0xC0) == 0x80) continue; // goes on with a character
        const std::size_t length = byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        return back < length ? text.substr(0, text.size() - back) : text;
    }
    return text;
}

} // namespace

std::u16string TidyText(std::u16string text) {
    text.resize(std::min(text.find(u'\0'), text.size()));
    std::ranges::replace_if(text, IsControl, u' ');
    text.erase(0, text.find_first_not_of(u' '));
    if (text.size() > kLongestText) text.resize(kLongestText);
    if (!text.empty() && IsHighSurrogate(text.back())) text.pop_back(); // its other half was cut off
    text.resize(text.find_last_not_of(u' ') + 1);
    return text;
}

std::u16string TextOfLatin1(Span bytes) {
    return TidyText(std::u16string(bytes.begin(), bytes.end()));
}

std::u16string TextOfUtf16(Span bytes, Utf16Order order) {
    const auto starts = [bytes](std::uint8_t first, std::uint8_t second) {
        return bytes.size() >= 2 && bytes[0] == first && bytes[1] == second;
    };
    const bool markedBig = starts(0xFE, 0xFF), markedLittle = starts(0xFF, 0xFE);
    const bool big = markedBig || (order == Utf16Order::kBigEndian && !markedLittle);
    if (markedBig || markedLittle) bytes = bytes.subspan(2);
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const std::uint8_t high = bytes[big ? i : i + 1], low = bytes[big ? i + 1 : i];
        text.push_back(char16_t(high << 8 | low));
    }
    return TidyText(std::move(text));
}

std::u16string TextOfUtf8(Span bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    text = text.substr(0, text.find('\0')); // what follows may be padding of any kind
    if (text.size() > kLongestText) text = WithoutCutCharacter(text); // a short one can't have been cut
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    if (auto units = platform::Utf16FromUtf8(text)) return TidyText(std::move(*units));
    return TextOfLatin1(bytes);
}

} // namespace orvane::player
