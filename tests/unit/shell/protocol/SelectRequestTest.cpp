#include "shell/protocol/SelectRequest.h"

#include "support/LogCapture.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

using tests::Bytes;
using tests::LogCapture;
using tests::WireBuilder;

// The payload of a request in a heap block of exactly its size, read as the server reads it.
struct Selection {
    explicit Selection(Bytes payload)
        : bytes(std::move(payload))
        , reader{ bytes.data(), bytes.size(), 0 } {
        ReadVisualizerName(reader, name);
        SkipSelectionByte(reader);
        hasTrack = TakeTrackMarker(reader);
        log = capture.Text();
    }

    const LogCapture capture;
    const Bytes bytes;
    BufferReader reader;
    records::StringBlock name;
    bool hasTrack = false;
    std::string log;
};

TEST(SelectRequest, ANameAndAByteAreAllThatIsNeeded) {
    const Selection selection(WireBuilder().String(u"Zephor").U8(0x80).Get());
    EXPECT_EQ(selection.name.View(), u"Zephor");
    EXPECT_FALSE(selection.hasTrack);
    EXPECT_EQ(selection.reader.Remaining(), 0u);
    EXPECT_EQ(selection.log, "");
}

TEST(SelectRequest, WithoutTheByteItsUnderflowIsSaidAndTheRequestGoesOn) {
    const Selection selection(WireBuilder().String(u"Zephor").Get());
    EXPECT_EQ(selection.name.View(), u"Zephor");
    EXPECT_FALSE(selection.hasTrack);
    EXPECT_EQ(selection.log, "Buffer underflow reading uint8_t");
}

TEST(SelectRequest, TheMarkerIsTakenOffAndTheTrackStandsNext) {
    const Selection selection(WireBuilder().String(u"").U8(0).Raw("TALF").U8(0x5A).Get());
    EXPECT_TRUE(selection.hasTrack);
    EXPECT_EQ(selection.reader.Remaining(), 1u);
    EXPECT_EQ(selection.reader.mData[selection.reader.mPosition], 0x5A);
    EXPECT_EQ(selection.log, "");
}

TEST(SelectRequest, FourBytesAreNoMarkerEvenIfTheySayFlat) {
    const Selection selection(WireBuilder().String(u"").U8(0).Raw("TALF").Get());
    EXPECT_FALSE(selection.hasTrack);
    EXPECT_EQ(selection.reader.Remaining(), 4u);
    EXPECT_EQ(selection.log, "");
}

TEST(SelectRequest, FewerBytesAreLeftAloneInSilence) {
    for (std::size_t left = 0; left <= 4; ++left) {
        const Selection selection(WireBuilder().String(u"").U8(0).Zeros(left).Get());
        EXPECT_FALSE(selection.hasTrack);
        EXPECT_EQ(selection.reader.Remaining(), left);
        EXPECT_EQ(selection.log, "");
    }
}

TEST(SelectRequest, AnyOtherMarkerEndsTheRequest) {
    for (const char* marker : { "FLAT", "TALf", "\0\0\0\0" }) {
        const Selection selection(
            WireBuilder().String(u"").U8(0).Raw({ marker, 4 }).Raw(" and a track").Get());
        EXPECT_FALSE(selection.hasTrack);
        EXPECT_EQ(selection.log, "");
    }
}

TEST(SelectRequest, AnEmptyRequestSaysWhatIsMissingAndHasNoName) {
    const Selection selection(Bytes{});
    EXPECT_EQ(selection.name.count, 0);
    EXPECT_FALSE(selection.hasTrack);
    EXPECT_EQ(selection.log, "Buffer underflow reading uint32_tCould not read string key\n"
                             "Buffer underflow reading uint8_t");
}

TEST(SelectRequest, ANameThatIsCutOffLeavesWhatItLeft) {
    const Selection selection(WireBuilder().Raw(" RTS").U16(3).U16(u'a').U8(u'b').Get());
    EXPECT_EQ(selection.name.count, 3);
    EXPECT_EQ(selection.name.units[0], u'a');
    EXPECT_EQ(selection.name.units[1], u'\0');
    EXPECT_EQ(selection.reader.Remaining(), 0u) << "the odd byte was taken for the byte behind the name";
    EXPECT_EQ(selection.log, "Buffer underflow reading int16");
}

} // namespace
} // namespace orvane::shell
