#include "shell/protocol/SelectRequest.h"

#include "shell/wire/FourCharacters.h"

namespace orvane::shell {

namespace {

constexpr std::uint32_t kFlatTrackMarker = FourCharacters("FLAT");
constexpr std::uint64_t kLeastBytesWithTrack = 5;

} // namespace

void ReadVisualizerName(BufferReader& reader, records::StringBlock& name) {
    ReadString(reader, name);
}

void SkipSelectionByte(BufferReader& reader) {
    std::uint8_t ignored = 0;
    Read(reader, ignored);
}

bool TakeTrackMarker(BufferReader& reader) {
    if (reader.Remaining() < kLeastBytesWithTrack) return false;
    std::uint32_t marker = 0;
    Read(reader, marker);
    return marker == kFlatTrackMarker;
}

} // namespace orvane::shell
