#include "support/TagFiles.h"

namespace orvane::tests {

std::string Join(std::initializer_list<std::string_view> parts) {
    std::string joined;
    for (const auto part : parts) joined.append(part);
    return joined;
}

std::string BigValue(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = bytes; i-- > 0;) text.push_back(char(std::uint8_t(value >> 8 * i)));
    return text;
}

std::string LittleValue(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(char(std::uint8_t(value >> 8 * i)));
    return text;
}

Bytes AsBytes(std::string_view text) {
    return { text.begin(), text.end() };
}

std::string Jpeg(std::size_t length, char fill) {
    std::string image = "\xFF\xD8\xFF\xE0";
    image.resize(length, fill);
    return image;
}

std::string Png(std::size_t length, char fill) {
    std::string image = "\x89PNG\r\n\x1A\n";
    image.resize(length, fill);
    return image;
}

std::string Syncsafe(std::uint32_t value) {
    std::string text;
    for (const int shift : { 21, 14, 7, 0 }) text.push_back(char(value >> shift & 0x7F));
    return text;
}

std::string Id3Tag(int version, std::string_view body, std::uint8_t flags) {
    return Join({ "ID3", LittleValue(std::uint64_t(version), 2), LittleValue(flags, 1),
                  Syncsafe(std::uint32_t(body.size())), body });
}

std::string Id3Frame(int version, std::string_view name, std::string_view data, std::uint8_t flags) {
    if (version == 2) return Join({ name, BigValue(data.size(), 3), data });
    const std::string size = version == 4 ? Syncsafe(std::uint32_t(data.size())) : BigValue(data.size(), 4);
    return Join({ name, size, BigValue(flags, 2), data });
}

std::string Id3Text(std::string_view text) {
    return Join({ std::string_view("\0", 1), text });
}

std::string Id3Picture(std::uint8_t kind, std::string_view image, std::string_view description) {
    return Join({ std::string_view("\0image/jpeg\0", 12), LittleValue(kind, 1), description,
                  std::string_view("\0", 1), image });
}

std::string Id3v1Tag(std::string_view title, std::string_view artist, std::string_view album) {
    std::string tag = "TAG";
    for (const auto text : { title, artist, album }) {
        tag.append(text);
        tag.append(30 - text.size(), '\0');
    }
    tag.append("2026");
    tag.append(31, ' '); // comment and kind of music
    return tag;
}

std::string FlacFile(std::initializer_list<FlacBlock> blocks) {
    constexpr std::uint8_t last = 0x80;
    std::string file = "fLaC";
    for (const auto& block : blocks) {
        const bool isLast = &block == blocks.end() - 1;
        file += char(isLast ? block.type | last : block.type);
        file += BigValue(block.content.size(), 3);
        file += block.content;
    }
    return file;
}

std::string VorbisComments(std::initializer_list<std::string_view> comments) {
    std::string block = Join({ LittleValue(4, 4), "test", LittleValue(comments.size(), 4) });
    for (const auto comment : comments) {
        block += LittleValue(comment.size(), 4);
        block += comment;
    }
    return block;
}

std::string FlacPicture(std::uint32_t kind, std::string_view image) {
    return Join({ BigValue(kind, 4), BigValue(10, 4), "image/jpeg", BigValue(5, 4), "cover", BigValue(1, 4),
                  BigValue(1, 4), BigValue(24, 4), BigValue(0, 4), BigValue(image.size(), 4), image });
}

std::string Box(std::string_view name, std::string_view content) {
    return Join({ BigValue(8 + content.size(), 4), name, content });
}

std::string Mp4Item(std::string_view name, std::uint32_t type, std::string_view value) {
    return Box(name, Box("data", Join({ BigValue(type, 4), BigValue(0, 4), value })));
}

std::string Mp4File(std::string_view items) {
    const std::string handler = Box("hdlr", std::string(25, '\0'));
    const std::string meta = Box("meta", Join({ BigValue(0, 4), handler, Box("ilst", items) }));
    const std::string moov = Box("moov", Join({ Box("mvhd", std::string(100, '\0')), Box("udta", meta) }));
    return Join({ Box("ftyp", "M4A mp42"), Box("mdat", std::string(64, 's')), moov });
}

std::string Chunk(std::string_view name, std::string_view content) {
    return Join(
        { name, LittleValue(content.size(), 4), content, std::string_view("\0", content.size() & 1) });
}

std::string InfoList(std::string_view chunks) {
    return Chunk("LIST", Join({ "INFO", chunks }));
}

std::string WavFile(std::string_view chunks) {
    const std::string content =
        Join({ "WAVE", Chunk("fmt ", std::string(16, '\1')), Chunk("data", std::string(33, 's')), chunks });
    return Join({ "RIFF", LittleValue(content.size(), 4), content });
}

} // namespace orvane::tests
