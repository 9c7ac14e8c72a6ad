#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

namespace orvane::platform {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondBmp = 0x10000;
constexpr char32_t kLastCodePoint = 0x10FFFF;

constexpr bool IsLeadSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsTrailSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// What a continuation byte adds; 0x40 or more if it is none.
constexpr char32_t TailBits(std::uint8_t byte) {
    return byte ^ 0x80u;
}

constexpr char32_t kTailLimit = 0x40;

// Reads the code point at the front of `text`, which isn't empty, and returns its length in bytes; 0 if no
// whole and valid one stands there. Each length refuses what a shorter one could have held.
std::size_t ReadCodePoint(Bytes text, char32_t& c) {
    const char32_t lead = text[0];
    if (lead < 0x80) {
        c = lead;
        return 1;
    }
    if (lead < 0xE0) {
        if (text.size() < 2 || lead < 0xC0) return 0;
        const char32_t tail = TailBits(text[1]);
        c = (lead & 0x1F) << 6 | tail;
        return tail < kTailLimit && c >= 0x80 ? 2 : 0;
    }
    if (lead < 0xF0) {
        if (text.size() < 3) return 0;
        const char32_t tail1 = TailBits(text[1]), tail2 = TailBits(text[2]);
        c = (lead & 0x0F) << 12 | tail1 << 6 | tail2;
        const bool isSurrogate = IsLeadSurrogate(c) || IsTrailSurrogate(c);
        return (tail1 | tail2) < kTailLimit && c >= 0x800 && !isSurrogate ? 3 : 0;
    }
    if (text.size() < 4 || lead >= 0xF8) return 0;
    const char32_t tail1 = TailBits(text[1]), tail2 = TailBits(text[2]), tail3 = TailBits(text[3]);
    c = (lead & 0x07) << 18 | tail1 << 12 | tail2 << 6 | tail3;
    return (tail1 | tail2 | tail3) < kTailLimit && c >= kFirstBeyondBmp && c <= kLastCodePoint ? 4 : 0;
}

// ASCII is gone through in blocks of this many bytes.
constexpr std::size_t kAsciiBlock = sizeof(std::uint64_t);

bool IsAscii(const std::uint8_t* block) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, block, kAsciiBlock);
    return (bytes & 0x8080808080808080) == 0;
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

std::optional<std::u16string> Utf16FromUtf8(std::string_view narrow) {
    Bytes text(reinterpret_cast<const std::uint8_t*>(narrow.data()), narrow.size());
    std::u16string out(text.size(), u'\0'); // no code point has more units than bytes
    char16_t* to = out.data();
    while (!text.empty()) {
        if (text.size() >= kAsciiBlock && IsAscii(text.data())) {
            to = std::copy_n(text.data(), kAsciiBlock, to);
            text = text.subspan(kAsciiBlock);
            continue;
        }
        char32_t c = 0;
        const std::size_t length = ReadCodePoint(text, c);
        if (length == 0) return std::nullopt;
        text = text.subspan(length);
        if (c < kFirstBeyondBmp) {
            *to++ = char16_t(c);
        } else {
            *to++ = char16_t(0xD800 + ((c - kFirstBeyondBmp) >> 10));
            *to++ = char16_t(0xDC00 + ((c - kFirstBeyondBmp) & 0x3FF));
        }
    }
    out.resize(std::size_t(to - out.data()));
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
