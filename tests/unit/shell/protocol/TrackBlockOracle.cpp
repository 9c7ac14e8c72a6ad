#include "unit/shell/protocol/TrackBlockOracle.h"

#include <bit>
#include <cstdio>
#include <initializer_list>

namespace orvane::tests {

namespace {

// One letter for each value: b 8 bits, h signed 16, w 32, i signed 32, f float, l 64, s string.
constexpr char kTrackPart[] = "ww"
                              "ssssssss"
                              "ww"
                              "hh"
                              "wwwwwwwwwww"
                              "s"
                              "bb"
                              "hhh"
                              "ww"
                              "hh"
                              "s"
                              "f"
                              "s"
                              "l";
constexpr char kFormatPart[] = "wwwwwwwww";

struct Kind {
    char letter;
    std::size_t width;
    const char* underflow;
};

constexpr Kind kKinds[] = {
    { 'b', 1, "Buffer underflow reading uint8_t" },   { 'h', 2, "Buffer underflow reading int16" },
    { 'w', 4, "Buffer underflow reading uint32_t" },  { 'i', 4, "Buffer underflow reading int32_t" },
    { 'f', 4, "Buffer underflow reading float_t\n" }, { 'l', 8, "Buffer underflow reading uint64_t" },
};

std::string Hexadecimal(std::uint64_t value) {
    char text[20];
    std::snprintf(text, sizeof(text), "%llx", static_cast<unsigned long long>(value));
    return text;
}

std::string StringText(std::size_t count, const std::vector<std::uint64_t>& units) {
    std::string text = std::to_string(count) + ":";
    for (std::size_t i = 0; i < count; ++i) text += (i < units.size() ? Hexadecimal(units[i]) : "0") + " ";
    return text;
}

class Walk {
public:
    explicit Walk(const Bytes& block)
        : mBlock(block) {}

    TrackOutcome Outcome() {
        mOutcome.parsed = Part("FNIT", kTrackPart) && Part("MFUA", kFormatPart) && Value('i') && Value('w');
        // What was never come to stays zero.
        const TrackValues zeros = ValuesOf(*records::MakeTrackParam());
        for (std::size_t i = mOutcome.values.size(); i < zeros.size(); ++i)
            mOutcome.values.push_back(zeros[i]);
        return mOutcome;
    }

private:
    bool Take(char letter, std::uint64_t& value) {
        for (const auto& kind : kKinds) {
            if (kind.letter != letter) continue;
            if (mOutcome.position + kind.width > mBlock.size()) {
                mOutcome.log += kind.underflow;
                return false;
            }
            value = 0;
            for (std::size_t i = kind.width; i > 0; --i)
                value = value * 256 + mBlock[mOutcome.position + i - 1];
            mOutcome.position += kind.width;
            return true;
        }
        return false;
    }

    // A key as its bytes on the wire, then the values up to the last, which must be there.
    bool Part(std::string_view key, std::string_view letters) {
        std::uint64_t word = 0;
        const bool came = Take('w', word);
        const std::size_t start = mOutcome.position;
        if (!came || AsText(mBlock).substr(start - 4, 4) != key) {
            for (const char letter : letters) mOutcome.values.push_back(letter == 's' ? "0:" : "0");
            return true;
        }
        bool last = false;
        for (const char letter : letters) last = letter == 's' ? String() : Value(letter);
        return last;
    }

    bool Value(char letter) {
        std::uint64_t value = 0;
        const bool came = Take(letter, value);
        mOutcome.values.push_back(Hexadecimal(value));
        return came;
    }

    bool String() {
        std::uint64_t key = 0, count = 0;
        std::vector<std::uint64_t> units;
        std::string& log = mOutcome.log;
        TrackValues& values = mOutcome.values;
        values.push_back("0:");
        if (!Take('w', key)) return log += "Could not read string key\n", false;
        if (AsText(mBlock).substr(mOutcome.position - 4, 4) != " RTS") log += "Key 'STR ' failed\n";
        if (!Take('h', count)) return log += "Could not read string stringCount\n", false;
        if (count >= 256) return log += "stringCount > 255\n", false;
        std::uint64_t unit = 0;
        while (units.size() < count && Take('h', unit)) units.push_back(unit);
        values.back() = StringText(count, units);
        return units.size() == count;
    }

    const Bytes& mBlock;
    TrackOutcome mOutcome;
};

std::string TextOf(const records::StringBlock& block) {
    return StringText(block.count, { block.units, block.units + 255 });
}

} // namespace

TrackOutcome ExpectedOutcome(const Bytes& block) {
    return Walk(block).Outcome();
}

TrackValues ValuesOf(const records::TrackParamObj& t) {
    TrackValues values;
    const auto words = [&values](const auto& list) {
        for (const std::uint32_t word : list) values.push_back(Hexadecimal(word));
    };
    const auto shorts = [&values](const auto& list) {
        for (const std::int16_t number : list) values.push_back(Hexadecimal(std::uint16_t(number)));
    };
    words(t.mInfoWords1);
    for (const auto* block : { &t.mTrackName, &t.mInfoString2, &t.mTrackArtist, &t.mTrackAlbum,
                               &t.mInfoString5, &t.mInfoString6, &t.mInfoString7, &t.mInfoString8 })
        values.push_back(TextOf(*block));
    words(t.mInfoWords2);
    shorts(t.mInfoShorts1);
    words(t.mInfoWords3);
    values.push_back(TextOf(t.mInfoString9));
    words(t.mInfoBytes);
    shorts(t.mInfoShorts2);
    words(t.mInfoWords4);
    shorts(t.mInfoShorts3);
    values.push_back(TextOf(t.mInfoString10));
    values.push_back(Hexadecimal(std::bit_cast<std::uint32_t>(t.mInfoFloat)));
    values.push_back(TextOf(t.mInfoString11));
    values.push_back(Hexadecimal(t.mInfoLong));
    words(std::initializer_list<std::uint32_t>{ t.mAudioFormat.word0 });
    words(t.mAudioFormat.words1);
    words(std::initializer_list<std::uint32_t>{ t.mAudioFormat.word8 });
    values.push_back(Hexadecimal(std::uint32_t(t.mTrackStartA)));
    values.push_back(Hexadecimal(t.mTrackStartB));
    return values;
}

} // namespace orvane::tests
