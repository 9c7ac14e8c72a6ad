#include "platform/Text.h"

#include <cstdint>

namespace orvane::platform {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondBmp = 0x10000;
constexpr char32_t kLastCodePoint = 0x10FFFF;

constexpr bool IsLeadSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsTrailSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// What a lead byte promises: how many bytes follow it, its own bits, and the least code point that may be
// written in that many bytes.
struct LeadByte {
    std::size_t following;
    char32_t bits;
    char32_t least;
};

std::optional<LeadByte> ReadLeadByte(std::uint8_t byte) {
    if (byte < 0x80) return LeadByte{ 0, byte, 0 };
    if (byte >> 5 == 0x06) return LeadByte{ 1, byte & 0x1Fu, 0x80 };
    if (byte >> 4 == 0x0E) return LeadByte{ 2, byte & 0x0Fu, 0x800 };
    if (byte >> 3 == 0x1E) return LeadByte{ 3, byte & 0x07u, kFirstBeyondBmp };
    return std::nullopt;
}

// The code point at the front of `text`, which it takes off.
std::optional<char32_t> TakeCodePoint(std::string_view& text) {
    const auto lead = ReadLeadByte(std::uint8_t(text.front()));
    if (!lead || text.size() <= lead->following) return std::nullopt;
    char32_t c = lead->bits;
    for (std::size_t i = 1; i <= lead->following; ++i) {
        const auto byte = std::uint8_t(text[i]);
        if (byte >> 6 != 2) return std::nullopt;
        c = c << 6 | (byte & 0x3Fu);
    }
    if (c < lead->least || c > kLastCodePoint || IsLeadSurrogate(c) || IsTrailSurrogate(c))
        return std::nullopt;
    text.remove_prefix(lead->following + 1);
    return c;
}

void AppendUtf8(std::string& out, char32_t c) {
    const auto tail = [c](int shift) { return char(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | c >> 6);
        out += tail(0);
    } else if (c < kFirstBeyondBmp) {
        out += char(0xE0 | c >> 12);
        out += tail(6);
        out += tail(0);
    } else {
        out += char(0xF0 | c >> 18);
        out += tail(12);
        out += tail(6);
        out += tail(0);
    }
}

} // namespace

std::optional<std::u16string> Utf16FromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto c = TakeCodePoint(text);
        if (!c) return std::nullopt;
        if (*c < kFirstBeyondBmp) {
            out += char16_t(*c);
        } else {
            out += char16_t(0xD800 + ((*c - kFirstBeyondBmp) >> 10));
            out += char16_t(0xDC00 + ((*c - kFirstBeyondBmp) & 0x3FF));
        }
    }
    return out;
}

std::string Utf8FromUtf16(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsLeadSurrogate(c) && i + 1 < text.size() && IsTrailSurrogate(text[i + 1])) {
            c = kFirstBeyondBmp + ((c & 0x3FF) << 10) + (text[i + 1] & 0x3FF);
            ++i;
        } else if (IsLeadSurrogate(c) || IsTrailSurrogate(c)) {
            c = kReplacement;
        }
        AppendUtf8(out, c);
    }
    return out;
}

} // namespace orvane::platform
