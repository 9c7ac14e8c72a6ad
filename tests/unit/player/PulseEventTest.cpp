#include "player/protocol/PulseEvent.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvane::player {
namespace {

using namespace std::string_view_literals;
using tests::Bytes;

// In a heap block of exactly its size, so that a read past its end is seen by the sanitizer.
PulseEvent Decode(std::string_view reply) {
    return DecodePulseReply(Bytes(reply.begin(), reply.end()));
}

TEST(PulseEvent, FourZeroBytesMeanNothingToTell) {
    EXPECT_EQ(Decode("\0\0\0\0"sv), PulseEvent(NoEvent{}));
}

TEST(PulseEvent, CloseRequestAndTrackDisplayTravelAsTheyAreWritten) {
    EXPECT_EQ(Decode("\0\0\0\0WSLC"sv), PulseEvent(CloseRequest{}));
    EXPECT_EQ(Decode("\0\0\0\0WTRA"sv), PulseEvent(TrackDisplayChanged{}));
}

TEST(PulseEvent, KeyCodesTravelReversedAndTheirWordsLittleEndian) {
    EXPECT_EQ(Decode("\0\0\0\0CYEK\x41\0\0\0\x01\0\x1E\x80"sv),
              PulseEvent(CharacterLeftOver{ 0x41, 0x801E0001 }));
    EXPECT_EQ(Decode("\0\0\0\0XYEK\0\0\0\0\0\0\0\0"sv), PulseEvent(ExtendedKey{ 0, 0 }));
    EXPECT_EQ(Decode("\0\0\0\0XYEK\x02\x01\0\0\x04\x03\0\0"sv), PulseEvent(ExtendedKey{ 0x0102, 0x0304 }));
}

TEST(PulseEvent, AReplyCutOffAnywhereIsMalformed) {
    for (const auto whole : { "\0\0\0\0WSLC"sv, "\0\0\0\0WTRA"sv, "\0\0\0\0CYEK\1\0\0\0\2\0\0\0"sv,
                              "\0\0\0\0XYEK\0\0\0\0\0\0\0\0"sv })
        for (std::size_t length = 0; length < whole.size(); ++length) {
            if (length == 4) continue; // that much is a reply without an event
            EXPECT_TRUE(std::holds_alternative<MalformedPulseReply>(Decode(whole.substr(0, length))))
                << "length " << length << " of " << whole.substr(4);
        }
}

TEST(PulseEvent, SaysWhatIsWrong) {
    EXPECT_EQ(Decode("OK"), PulseEvent(MalformedPulseReply{ "shorter than 4 bytes" }));
    EXPECT_EQ(Decode("\0\0\0\1"sv), PulseEvent(MalformedPulseReply{ "the first word is not 0" }));
    EXPECT_EQ(Decode("\0\0\0\0WSL"sv), PulseEvent(MalformedPulseReply{ "the event code is cut off" }));
    EXPECT_EQ(Decode("\0\0\0\0CLSW"sv), PulseEvent(MalformedPulseReply{ "the event code is unknown" }));
    EXPECT_EQ(Decode("\0\0\0\0WSLC\0"sv),
              PulseEvent(MalformedPulseReply{ "the length does not go with the event code" }));
}

} // namespace
} // namespace orvane::player
