#include "shell/protocol/TrackBlock.h"

#include "shell/wire/FourCharacters.h"

#include <cstddef>

namespace orvane::shell {

namespace {

using records::AudioFormatBlock;
using records::TrackParamObj;

constexpr std::uint32_t kTrackInfoKey = FourCharacters("TINF");
constexpr std::uint32_t kAudioFormatKey = FourCharacters("AUFM");

enum class FieldType { kUInt8, kInt16, kUInt32, kFloat, kUInt64, kString };

// `count` values of one type, one after the other on the wire and in the record.
struct FieldRow {
    FieldType type;
    std::size_t offset; // in TrackParamObj
    int count;
};

// The track information behind its key, in wire order. The last row alone is required.
constexpr FieldRow kTrackInfoFields[] = {
    { FieldType::kUInt32, offsetof(TrackParamObj, mInfoWords1), 2 },
    { FieldType::kString, offsetof(TrackParamObj, mTrackName), 8 }, // up to mInfoString8
    { FieldType::kUInt32, offsetof(TrackParamObj, mInfoWords2), 2 },
    { FieldType::kInt16, offsetof(TrackParamObj, mInfoShorts1), 2 },
    { FieldType::kUInt32, offsetof(TrackParamObj, mInfoWords3), 11 },
    { FieldType::kString, offsetof(TrackParamObj, mInfoString9), 1 },
    { FieldType::kUInt8, offsetof(TrackParamObj, mInfoBytes), 2 },
    { FieldType::kInt16, offsetof(TrackParamObj, mInfoShorts2), 3 },
    { FieldType::kUInt32, offsetof(TrackParamObj, mInfoWords4), 2 },
    { FieldType::kInt16, offsetof(TrackParamObj, mInfoShorts3), 2 },
    { FieldType::kString, offsetof(TrackParamObj, mInfoString10), 1 },
    { FieldType::kFloat, offsetof(TrackParamObj, mInfoFloat), 1 },
    { FieldType::kString, offsetof(TrackParamObj, mInfoString11), 1 },
    { FieldType::kUInt64, offsetof(TrackParamObj, mInfoLong), 1 },
};

// Behind its own key: the nine words of the audio format, which leave out the word at offset 4.
constexpr FieldRow kAudioFormatFields[] = {
    { FieldType::kUInt32, offsetof(TrackParamObj, mAudioFormat) + offsetof(AudioFormatBlock, word0), 1 },
    { FieldType::kUInt32, offsetof(TrackParamObj, mAudioFormat) + offsetof(AudioFormatBlock, words1), 7 },
    { FieldType::kUInt32, offsetof(TrackParamObj, mAudioFormat) + offsetof(AudioFormatBlock, word8), 1 },
};

template <typename T>
bool ReadInto(BufferReader& reader, std::byte* target) {
    return Read(reader, *reinterpret_cast<T*>(target));
}

bool ReadValue(BufferReader& reader, FieldType type, std::byte* target) {
    switch (type) {
    case FieldType::kUInt8:
        return ReadInto<std::uint8_t>(reader, target);
    case FieldType::kInt16:
        return ReadInto<std::int16_t>(reader, target);
    case FieldType::kUInt32:
        return ReadInto<std::uint32_t>(reader, target);
    case FieldType::kFloat:
        return ReadInto<float>(reader, target);
    case FieldType::kUInt64:
        return ReadInto<std::uint64_t>(reader, target);
    case FieldType::kString:
        return ReadString(reader, *reinterpret_cast<records::StringBlock*>(target));
    }
    return false;
}

constexpr std::size_t SizeInRecord(FieldType type) {
    switch (type) {
    case FieldType::kUInt8:
        return 1;
    case FieldType::kInt16:
        return 2;
    case FieldType::kUInt32:
    case FieldType::kFloat:
        return 4;
    case FieldType::kUInt64:
        return 8;
    case FieldType::kString:
        return sizeof(records::StringBlock);
    }
    return 0;
}

// Reads the rows one after the other, whatever fails; true if the very last value was there.
template <std::size_t N>
bool ReadFields(BufferReader& reader, const FieldRow (&rows)[N], TrackParamObj& track) {
    bool lastWasThere = false;
    for (const auto& row : rows)
        for (int i = 0; i < row.count; ++i) {
            auto* target =
                reinterpret_cast<std::byte*>(&track) + row.offset + std::size_t(i) * SizeInRecord(row.type);
            lastWasThere = ReadValue(reader, row.type, target);
        }
    return lastWasThere;
}

// A key that is missing prints its line and counts as a wrong one.
bool ReadKey(BufferReader& reader, std::uint32_t expected) {
    std::uint32_t key = 0;
    Read(reader, key);
    return key == expected;
}

} // namespace

bool ParseTrackBlock(BufferReader& reader, TrackParamObj& track) {
    if (ReadKey(reader, kTrackInfoKey) && !ReadFields(reader, kTrackInfoFields, track)) return false;
    if (ReadKey(reader, kAudioFormatKey) && !ReadFields(reader, kAudioFormatFields, track)) return false;
    return Read(reader, track.mTrackStartA) && Read(reader, track.mTrackStartB);
}

} // namespace orvane::shell
