#include "player/console/ReplyText.h"

#include "platform/Text.h"
#include "player/protocol/PluginList.h"
#include "player/protocol/PulseEvent.h"

#include <algorithm>
#include <cstdio>

namespace orvane::player {

namespace {

using Span = std::span<const std::uint8_t>;

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kBytesPerGroup = 4;

std::string Hex(std::uint32_t value, int digits) {
    char text[16];
    std::snprintf(text, sizeof(text), "%0*X", digits, unsigned(value));
    return text;
}

char Shown(std::uint8_t byte) {
    return byte >= 0x20 && byte < 0x7F ? char(byte) : '.';
}

// Up to kBytesPerLine bytes: the hexadecimal digits, padded to `width` bytes, and the text.
std::string DumpLine(Span bytes, std::size_t width) {
    std::string hex;
    std::string text;
    for (std::size_t i = 0; i < width; ++i) {
        if (i != 0 && i % kBytesPerGroup == 0) hex += ' ';
        hex += i < bytes.size() ? Hex(bytes[i], 2) : "  ";
        if (i < bytes.size()) text += Shown(bytes[i]);
    }
    return hex + " " + text + "\n";
}

std::string Dump(Span bytes) {
    if (bytes.empty()) return "\n";
    if (bytes.size() <= kBytesPerLine) return "  " + DumpLine(bytes, bytes.size());
    std::string text = "\n";
    for (; !bytes.empty(); bytes = bytes.subspan(std::min(bytes.size(), kBytesPerLine)))
        text += "  " + DumpLine(bytes.first(std::min(bytes.size(), kBytesPerLine)), kBytesPerLine);
    return text;
}

std::string KeyText(const char* name, std::uint32_t code, std::uint32_t lParam) {
    return std::string(name) + ", code " + Hex(code, 4) + ", lParam " + Hex(lParam, 8);
}

struct DescribeEvent {
    std::string operator()(const NoEvent&) const { return "none"; }

    std::string operator()(const CloseRequest&) const { return "close request"; }

    std::string operator()(const TrackDisplayChanged&) const { return "track display changed"; }

    std::string operator()(const CharacterLeftOver& key) const {
        return KeyText("character left over", key.code, key.lParam);
    }

    std::string operator()(const ExtendedKey& key) const {
        return KeyText("extended key", key.code, key.lParam);
    }

    std::string operator()(const MalformedPulseReply& reply) const {
        return "malformed: " + std::string(reply.why);
    }
};

std::string PulseText(Span reply) {
    return "  event: " + std::visit(DescribeEvent(), DecodePulseReply(reply)) + "\n";
}

std::string PluginListText(Span reply) {
    const PluginList list = DecodePluginList(reply);
    std::string text = "  plug-ins: " + std::to_string(list.claimed) + (list.whole ? "\n" : " (malformed)\n");
    for (const auto& plugin : list.plugins)
        text += "    \"" + platform::Utf8FromUtf16(plugin.displayName) + "\" kind " +
                std::to_string(plugin.kind) + " path \"" + platform::Utf8FromUtf16(plugin.path) + "\"\n";
    return text;
}

struct DecoderRow {
    std::string_view tag;
    std::string (*decode)(Span reply);
};

constexpr DecoderRow kDecoders[] = {
    { "PULS", &PulseText },
    { "UPVM", &PluginListText },
};

} // namespace

std::string RequestText(const Request& request) {
    std::string tag;
    for (const char character : request.tag) tag += Shown(std::uint8_t(character));
    if (tag.empty()) tag = "\"\"";
    return "> " + tag + " " + std::to_string(request.bytes.size()) + " bytes\n";
}

std::string ReplyText(std::string_view tag, Span reply) {
    std::string text = "< " + std::to_string(reply.size()) + " bytes" + Dump(reply);
    for (const auto& row : kDecoders)
        if (row.tag == tag) text += row.decode(reply);
    return text;
}

} // namespace orvane::player
