#include "shell/wire/BufferReader.h"

#include "support/LogCapture.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::shell {
namespace {

using records::StringBlock;
using tests::LogCapture;
using tests::WireBuilder;

// A request in a heap block of exactly its size, so that a read past its end is seen by the sanitizer.
class Request {
public:
    explicit Request(const tests::Bytes& bytes)
        : mBytes(bytes)
        , mReader{ mBytes.data(), mBytes.size(), 0 } {}

    operator BufferReader&() { return mReader; }

    BufferReader* operator->() { return &mReader; }

private:
    const tests::Bytes mBytes;
    BufferReader mReader;
};

TEST(BufferReader, ReadsEveryTypeLittleEndianOneAfterTheOther) {
    const LogCapture log;
    Request request(WireBuilder()
                        .U8(0xFE)
                        .U16(0x8001)
                        .U32(0x01020304)
                        .U32(0xFFFFFFFD)
                        .F32(-2.5f)
                        .U64(0x1122334455667788)
                        .Get());
    std::uint8_t u8 = 0;
    std::int16_t i16 = 0;
    std::uint32_t u32 = 0;
    std::int32_t i32 = 0;
    float f32 = 0;
    std::uint64_t u64 = 0;
    EXPECT_TRUE(Read(request, u8) && Read(request, i16) && Read(request, u32) && Read(request, i32) &&
                Read(request, f32) && Read(request, u64));
    EXPECT_EQ(u8, 0xFE);
    EXPECT_EQ(i16, -32767);
    EXPECT_EQ(u32, 0x01020304u);
    EXPECT_EQ(i32, -3);
    EXPECT_EQ(f32, -2.5f);
    EXPECT_EQ(u64, 0x1122334455667788u);
    EXPECT_EQ(request->Remaining(), 0u);
    EXPECT_EQ(log.Text(), "");
}

TEST(BufferReader, FourByteReadWithThreeLeftKeepsValueAndPositionAndAOneByteReadStillSucceeds) {
    const LogCapture log;
    Request request({ 7, 8, 9 });
    std::uint32_t word = 0xAAAAAAAA;
    EXPECT_FALSE(Read(request, word));
    EXPECT_EQ(word, 0xAAAAAAAAu);
    EXPECT_EQ(request->mPosition, 0u);
    EXPECT_EQ(log.Text(), "Buffer underflow reading uint32_t");
    std::uint8_t byte = 0;
    EXPECT_TRUE(Read(request, byte));
    EXPECT_EQ(byte, 7);
}

TEST(BufferReader, OnlyTheFloatsLineEndsInANewline) {
    const LogCapture log;
    Request request(tests::Bytes{});
    std::uint8_t u8 = 1;
    std::int16_t i16 = 2;
    std::uint32_t u32 = 3;
    std::int32_t i32 = 4;
    float f32 = 5;
    std::uint64_t u64 = 6;
    EXPECT_FALSE(Read(request, u8) || Read(request, i16) || Read(request, u32) || Read(request, i32) ||
                 Read(request, f32) || Read(request, u64));
    const std::vector<std::string> expected = {
        "Buffer underflow reading uint8_t",   "Buffer underflow reading int16",
        "Buffer underflow reading uint32_t",  "Buffer underflow reading int32_t",
        "Buffer underflow reading float_t\n", "Buffer underflow reading uint64_t",
    };
    EXPECT_EQ(log.Lines(), expected);
    EXPECT_EQ(u8, 1);
    EXPECT_EQ(i16, 2);
    EXPECT_EQ(u32, 3u);
    EXPECT_EQ(i32, 4);
    EXPECT_EQ(f32, 5.0f);
    EXPECT_EQ(u64, 6u);
}

TEST(ReadString, ReadsCountAndUnits) {
    const LogCapture log;
    Request request(WireBuilder().String(u"Zo\u00EB").U8(9).Get());
    StringBlock block;
    EXPECT_TRUE(ReadString(request, block));
    EXPECT_EQ(block.View(), u"Zo\u00EB");
    EXPECT_EQ(request->Remaining(), 1u);
    EXPECT_EQ(log.Text(), "");
}

TEST(ReadString, AnEmptyStringIsGood) {
    const LogCapture log;
    Request request(WireBuilder().String(u"").Get());
    StringBlock block;
    block.count = 4;
    EXPECT_TRUE(ReadString(request, block));
    EXPECT_EQ(block.count, 0);
    EXPECT_EQ(log.Text(), "");
}

TEST(ReadString, CountOf255IsAcceptedAndHasNoTerminator) {
    const LogCapture log;
    Request request(WireBuilder().String(std::u16string(255, u'x')).Get());
    StringBlock block;
    EXPECT_TRUE(ReadString(request, block));
    EXPECT_EQ(block.count, 255);
    EXPECT_EQ(block.units[254], u'x');
    EXPECT_EQ(log.Text(), "");
}

TEST(ReadString, CountOf256IsRefusedAndTheReaderStandsInFrontOfTheUnits) {
    for (const std::uint16_t count : { std::uint16_t(256), std::uint16_t(65535) }) {
        const LogCapture log;
        Request request(WireBuilder().Raw(" RTS").U16(count).Zeros(512).Get());
        StringBlock block;
        block.Assign(u"old");
        EXPECT_FALSE(ReadString(request, block));
        EXPECT_EQ(block.View(), u"old");
        EXPECT_EQ(request->mPosition, 6u);
        EXPECT_EQ(log.Text(), "stringCount > 255\n");
    }
}

TEST(ReadString, AWrongKeyIsSaidAndTheTextIsReadAllTheSame) {
    const LogCapture log;
    Request request(WireBuilder().Raw("STR ").U16(2).U16(u'o').U16(u'k').Get());
    StringBlock block;
    EXPECT_TRUE(ReadString(request, block));
    EXPECT_EQ(block.View(), u"ok");
    EXPECT_EQ(log.Text(), "Key 'STR ' failed\n");
}

TEST(ReadString, AMissingKeyAndAMissingCountHaveTwoLinesEach) {
    StringBlock block;
    {
        const LogCapture log;
        Request request({ ' ', 'R', 'T' });
        EXPECT_FALSE(ReadString(request, block));
        EXPECT_EQ(log.Text(), "Buffer underflow reading uint32_tCould not read string key\n");
    }
    {
        const LogCapture log;
        Request request({ ' ', 'R', 'T', 'S', 1 });
        EXPECT_FALSE(ReadString(request, block));
        EXPECT_EQ(log.Text(), "Buffer underflow reading int16Could not read string stringCount\n");
    }
}

TEST(ReadString, UnitsThatRunOutLeaveTheCountAndTheUnitsThatCame) {
    const LogCapture log;
    Request request(WireBuilder().Raw(" RTS").U16(5).U16(u'a').U16(u'b').U8(0x63).Get());
    StringBlock block;
    EXPECT_FALSE(ReadString(request, block));
    EXPECT_EQ(block.count, 5);
    EXPECT_EQ(block.View(), std::u16string_view(u"ab\0\0\0", 5));
    EXPECT_EQ(log.Text(), "Buffer underflow reading int16");
}

} // namespace
} // namespace orvane::shell
