#include "shell/wire/Flattener.h"

#include "shell/wire/BufferReader.h"
#include "support/LogCapture.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace orvane::shell {
namespace {

using tests::Bytes;
using tests::LogCapture;

constexpr char kNoSpace[] = "Insufficient space in the flattener.";

// A reply buffer of exactly `capacity` bytes, so that a write past its end is seen by the sanitizer.
class Reply {
public:
    explicit Reply(std::size_t capacity)
        : mBytes(capacity, 0xEE)
        , mFlattener(mBytes.data(), capacity) {}

    operator Flattener&() { return mFlattener; }

    Bytes Written() const { return { mBytes.begin(), mBytes.begin() + std::ptrdiff_t(mFlattener.Length()) }; }

    // What lies behind the reply is as it was.
    bool RestIsUntouched() const {
        return std::vector<std::uint8_t>(mBytes.begin() + std::ptrdiff_t(mFlattener.Length()),
                                         mBytes.end()) == Bytes(mBytes.size() - mFlattener.Length(), 0xEE);
    }

private:
    Bytes mBytes;
    Flattener mFlattener;
};

TEST(Flattener, PutsEveryTypeBigEndianOneAfterTheOther) {
    const LogCapture log;
    Reply reply(7);
    PutUInt32(reply, 0x01020384);
    PutUInt8(reply, 0xFE);
    PutUInt16(reply, 0x8A0B);
    EXPECT_EQ(reply.Written(), (Bytes{ 0x01, 0x02, 0x03, 0x84, 0xFE, 0x8A, 0x0B }));
    EXPECT_EQ(log.Text(), "");
}

TEST(Flattener, AValueReadLittleEndianComesOutBigEndian) {
    const Bytes request = { 0x04, 0x03, 0x02, 0x01 };
    BufferReader reader = { request.data(), request.size(), 0 };
    std::uint32_t value = 0;
    EXPECT_TRUE(Read(reader, value));
    EXPECT_EQ(value, 0x01020304u);
    Reply reply(4);
    PutUInt32(reply, value);
    EXPECT_EQ(reply.Written(), (Bytes{ 0x01, 0x02, 0x03, 0x04 }));
}

TEST(Flattener, AValueThatDoesntFitWritesNothingAndTheNextOneMay) {
    const LogCapture log;
    Reply reply(3);
    PutUInt32(reply, 0x01020304);
    EXPECT_EQ(reply.Written(), Bytes());
    PutUInt16(reply, 0x0506);
    PutUInt16(reply, 0x0708);
    PutUInt8(reply, 0x09);
    PutUInt8(reply, 0x0A);
    EXPECT_EQ(reply.Written(), (Bytes{ 0x05, 0x06, 0x09 }));
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ kNoSpace, kNoSpace, kNoSpace }));
}

TEST(Flattener, ABufferOfNoBytesTakesNothing) {
    const LogCapture log;
    Reply reply(0);
    PutUInt8(reply, 1);
    EXPECT_EQ(reply.Written(), Bytes());
    EXPECT_EQ(log.Text(), kNoSpace);
}

TEST(PutString, PutsCountAndUnitsWithoutAKey) {
    records::StringBlock block;
    block.Assign(u"Z\u00EB\u266A");
    Reply reply(64);
    PutString(reply, block, 255);
    EXPECT_EQ(reply.Written(), (Bytes{ 0, 3, 0, 'Z', 0, 0xEB, 0x26, 0x6A }));
    EXPECT_TRUE(reply.RestIsUntouched());
}

TEST(PutString, AnEmptyBlockIsACountOfZero) {
    Reply reply(64);
    PutString(reply, records::StringBlock(), 255);
    EXPECT_EQ(reply.Written(), (Bytes{ 0, 0 }));
}

TEST(PutString, PutsNoMoreThanTheLimit) {
    records::StringBlock block;
    block.Assign(u"abcdef");
    Reply reply(64);
    PutString(reply, block, 2);
    EXPECT_EQ(reply.Written(), (Bytes{ 0, 2, 0, 'a', 0, 'b' }));
}

Bytes CountAndUnits(std::uint16_t count, std::uint8_t unit) {
    Bytes bytes = { std::uint8_t(count / 256), std::uint8_t(count % 256) };
    for (std::uint16_t i = 0; i < count; ++i) bytes.insert(bytes.end(), { 0, unit });
    return bytes;
}

TEST(PutString, ABlockThatClaims300UnitsGives255) {
    const auto block = std::make_unique<records::StringBlock>();
    block->Assign(std::u16string(255, u'n'));
    block->count = 300;
    Reply reply(1024);
    PutString(reply, *block, 255);
    EXPECT_EQ(reply.Written(), CountAndUnits(255, 'n'));
}

TEST(PutString, NeverReadsBeyondTheBlockWhateverBlockAndLimitClaim) {
    const auto block = std::make_unique<records::PathBlock>();
    block->Assign(std::u16string(1027, u'p'));
    block->count = 65535;
    Reply reply(4096);
    PutString(reply, *block, 65535);
    EXPECT_EQ(reply.Written(), CountAndUnits(1027, 'p'));
}

TEST(PutString, UnitsThatDontFitAreLeftOutOneByOne) {
    const LogCapture log;
    records::StringBlock block;
    block.Assign(u"abcd");
    Reply reply(7); // the count, two units and one byte more
    PutString(reply, block, 255);
    EXPECT_EQ(reply.Written(), (Bytes{ 0, 4, 0, 'a', 0, 'b' }));
    EXPECT_TRUE(reply.RestIsUntouched());
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ kNoSpace, kNoSpace }));
}

TEST(PutString, ACountThatDoesntFitIsSaidAndTheUnitsAreTriedAllTheSame) {
    const LogCapture log;
    records::StringBlock block;
    block.Assign(u"ab");
    Reply reply(1);
    PutString(reply, block, 255);
    EXPECT_EQ(reply.Written(), Bytes());
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ kNoSpace, kNoSpace, kNoSpace }));
}

} // namespace
} // namespace orvane::shell
