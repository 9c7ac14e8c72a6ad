#include "shell/protocol/TrackBlock.h"

#include "support/LogCapture.h"
#include "support/Wire.h"
#include "unit/shell/protocol/TrackBlockOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

namespace orvane::shell {
namespace {

using records::TrackParamObj;
using records::TrackParamRef;
using tests::Bytes;
using tests::LogCapture;
using tests::TrackOutcome;
using tests::WireBuilder;

struct Parsed {
    TrackParamRef track = records::MakeTrackParam();
    TrackOutcome outcome;

    const TrackParamObj* operator->() const { return track.get(); }
};

// Parses a copy of `bytes` in a heap block of exactly their size.
Parsed Parse(const Bytes& bytes) {
    const LogCapture log;
    const Bytes exact(bytes.begin(), bytes.end());
    BufferReader reader = { exact.data(), exact.size(), 0 };
    Parsed result;
    result.outcome.parsed = ParseTrackBlock(reader, *result.track);
    result.outcome.values = tests::ValuesOf(*result.track);
    result.outcome.log = log.Text();
    result.outcome.position = reader.mPosition;
    return result;
}

// A short block: all texts empty but the first, which is `name` with the count that it says.
Bytes BlockWithName(std::uint16_t count, std::size_t units) {
    WireBuilder block;
    block.Raw("FNIT").U32(0).U32(0).Raw(" RTS").U16(count);
    for (std::size_t i = 0; i < units; ++i) block.U16(std::uint16_t('a' + i % 26));
    for (int i = 0; i < 7; ++i) block.String(u"");
    block.Zeros(4 + 4 + 2 + 2 + 11 * 4).String(u"").Zeros(2 + 3 * 2 + 2 * 4 + 2 * 2);
    block.String(u"").F32(0).String(u"").U64(0).Raw("MFUA").Zeros(9 * 4).U32(1).U32(2);
    return block.Get();
}

TEST(TrackBlock, EveryFieldArrivesInItsPlace) {
    const Bytes block = tests::SampleTrackBlock();
    const Parsed t = Parse(block);
    EXPECT_TRUE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "");
    EXPECT_EQ(t.outcome.position, block.size());
    EXPECT_EQ(t->mInfoWords1[0], 0x1000u);
    EXPECT_EQ(t->mInfoWords1[1], 0x1001u);
    EXPECT_EQ(t->mTrackName.View(), u"Name");
    EXPECT_EQ(t->mInfoString2.View(), u"Text 2");
    EXPECT_EQ(t->mTrackArtist.View(), u"Artist");
    EXPECT_EQ(t->mTrackAlbum.View(), u"Album");
    EXPECT_EQ(t->mInfoString5.View(), u"Text 5");
    EXPECT_EQ(t->mInfoString6.View(), u"Text 6");
    EXPECT_EQ(t->mInfoString7.View(), u"Text 7");
    EXPECT_EQ(t->mInfoString8.View(), u"Text 8");
    EXPECT_EQ(t->mInfoWords2[0], 0x1002u);
    EXPECT_EQ(t->mInfoWords2[1], 0x1003u);
    EXPECT_EQ(t->mInfoShorts1[0], -2);
    EXPECT_EQ(t->mInfoShorts1[1], 0x0102);
    for (std::uint32_t i = 0; i < 11; ++i) EXPECT_EQ(t->mInfoWords3[i], 0x1010 + i);
    EXPECT_EQ(t->mInfoString9.View(), u"Text 9");
    EXPECT_EQ(t->mInfoBytes[0], 0xA1);
    EXPECT_EQ(t->mInfoBytes[1], 0xA2);
    EXPECT_EQ(t->mInfoShorts2[0], 0x0201);
    EXPECT_EQ(t->mInfoShorts2[1], -32768);
    EXPECT_EQ(t->mInfoShorts2[2], 0x0203);
    EXPECT_EQ(t->mInfoWords4[0], 0x1020u);
    EXPECT_EQ(t->mInfoWords4[1], 0x1021u);
    EXPECT_EQ(t->mInfoShorts3[0], 0x0204);
    EXPECT_EQ(t->mInfoShorts3[1], 0x0205);
    EXPECT_EQ(t->mInfoString10.View(), u"Text 10");
    EXPECT_EQ(t->mInfoFloat, 1.5f);
    EXPECT_EQ(t->mInfoString11.View(), u"Text 11");
    EXPECT_EQ(t->mInfoLong, 0x1122334455667788u);
    EXPECT_EQ(t->mTrackStartA, -5);
    EXPECT_EQ(t->mTrackStartB, 0x1030u);
}

TEST(TrackBlock, TheAudioFormatLeavesOutTheWordAtOffset4) {
    const Parsed t = Parse(tests::SampleTrackBlock());
    EXPECT_EQ(t->mAudioFormat.word0, 0x2000u);
    EXPECT_EQ(t->mAudioFormat.zero, 0u);
    for (std::uint32_t i = 0; i < 7; ++i) EXPECT_EQ(t->mAudioFormat.words1[i], 0x2001 + i);
    EXPECT_EQ(t->mAudioFormat.word8, 0x2008u);
}

TEST(TrackBlock, CutOffAtEveryByteItKeepsWhatCameAndSaysWhatDidnt) {
    const Bytes whole = tests::SampleTrackBlock();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes cut(whole.begin(), whole.begin() + std::ptrdiff_t(length));
        const TrackOutcome got = Parse(cut).outcome, expected = tests::ExpectedOutcome(cut);
        EXPECT_FALSE(got.parsed) << length;
        EXPECT_EQ(got.values, expected.values) << length;
        EXPECT_EQ(got.log, expected.log) << length;
        EXPECT_EQ(got.position, expected.position) << length;
    }
    EXPECT_EQ(Parse(whole).outcome, tests::ExpectedOutcome(whole)) << "the oracle knows the whole block too";
}

TEST(TrackBlock, DamagedBlocksFareAsTheLayoutSays) {
    std::mt19937 random(20); // fixed, so that a failure repeats
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const Bytes whole = tests::SampleTrackBlock();
    for (int round = 0; round < 5000; ++round) {
        Bytes block = whole;
        for (std::size_t changes = 1 + below(4); changes > 0; --changes)
            block[below(block.size())] = std::uint8_t(below(3) == 0 ? below(256) : below(3));
        if (below(4) == 0) block.erase(block.begin() + std::ptrdiff_t(below(block.size())));
        if (below(4) == 0) block.resize(below(block.size()));
        ASSERT_EQ(Parse(block).outcome, tests::ExpectedOutcome(block)) << "round " << round;
    }
}

TEST(TrackBlock, WithoutTheTrackKeyTheReadGoesOnWithTheFormatsKey) {
    const Parsed t = Parse(WireBuilder().Raw("TINF").Raw("MFUA").U32(1).Zeros(28).U32(9).U32(4).U32(5).Get());
    EXPECT_TRUE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "");
    EXPECT_EQ(t->mAudioFormat.word0, 1u);
    EXPECT_EQ(t->mAudioFormat.word8, 9u);
    EXPECT_EQ(t->mTrackStartA, 4);
    EXPECT_EQ(t->mTrackStartB, 5u);
    EXPECT_EQ(t->mInfoWords1[0], 0u);
}

TEST(TrackBlock, WithoutTheFormatsKeyTheReadGoesOnWithTheStart) {
    const Parsed t = Parse(WireBuilder().Raw("xxxx").Raw("AUFM").U32(std::uint32_t(-4)).U32(5).U32(6).Get());
    EXPECT_TRUE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "");
    EXPECT_EQ(t->mAudioFormat.word0, 0u);
    EXPECT_EQ(t->mTrackStartA, -4);
    EXPECT_EQ(t->mTrackStartB, 5u);
    EXPECT_EQ(t.outcome.position, 16u) << "what stands behind the block is not read";
}

TEST(TrackBlock, KeysThatAreMissingAreSaidAndThenTheStartIsMissed) {
    const Parsed t = Parse({});
    EXPECT_FALSE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "Buffer underflow reading uint32_t"
                             "Buffer underflow reading uint32_t"
                             "Buffer underflow reading int32_t");
    EXPECT_EQ(t.outcome.position, 0u);
}

TEST(TrackBlock, WithoutThe64BitFieldNothingFurtherIsRead) {
    const Bytes whole = tests::SampleTrackBlock();
    const auto formatKey = std::search(whole.begin(), whole.end(), std::begin("MFUA"), std::end("MFUA") - 1);
    const Parsed t = Parse({ whole.begin(), formatKey - 1 }); // 7 bytes of the 8 are left
    EXPECT_FALSE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "Buffer underflow reading uint64_t");
    EXPECT_EQ(t->mInfoString11.View(), u"Text 11");
    EXPECT_EQ(t->mInfoLong, 0u);
}

TEST(TrackBlock, WithoutTheNinthWordOfTheFormatNothingFurtherIsRead) {
    const Bytes whole = tests::SampleTrackBlock();
    const Parsed t = Parse({ whole.begin(), whole.end() - 12 }); // without the ninth word and the start
    EXPECT_FALSE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "Buffer underflow reading uint32_t");
    EXPECT_EQ(t->mAudioFormat.words1[6], 0x2007u);
    EXPECT_EQ(t->mAudioFormat.word8, 0u);
}

TEST(TrackBlock, WithoutTheSecondStartValueTheFirstStays) {
    const Bytes whole = tests::SampleTrackBlock();
    const Parsed t = Parse({ whole.begin(), whole.end() - 4 });
    EXPECT_FALSE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "Buffer underflow reading uint32_t");
    EXPECT_EQ(t->mTrackStartA, -5);
    EXPECT_EQ(t->mTrackStartB, 0u);
}

TEST(TrackBlock, AStringOf255UnitsFillsItsBlockAndNotTheNext) {
    const Parsed t = Parse(BlockWithName(255, 255));
    EXPECT_TRUE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "");
    EXPECT_EQ(t->mTrackName.count, 255);
    EXPECT_EQ(t->mTrackName.units[0], u'a');
    EXPECT_EQ(t->mTrackName.units[254], u'u'); // 254 mod 26 = 20
    EXPECT_EQ(t->mInfoString2.count, 0);
    EXPECT_EQ(t->mTrackStartA, 1);
}

TEST(TrackBlock, AStringOf256UnitsOrMoreIsRefusedAndItsUnitsAreTakenForTheNextFields) {
    for (const std::uint16_t count : { std::uint16_t(256), std::uint16_t(65535) }) {
        const Bytes block = BlockWithName(count, 0); // the count lies: no units follow
        const Parsed t = Parse(block);
        EXPECT_TRUE(t.outcome.parsed);
        EXPECT_EQ(t.outcome.log, "stringCount > 255\n");
        EXPECT_EQ(t->mTrackName.count, 0);
        EXPECT_EQ(t->mTrackStartB, 2u);

        const Bytes withUnits = BlockWithName(count, 256);
        EXPECT_EQ(Parse(withUnits).outcome, tests::ExpectedOutcome(withUnits));
        EXPECT_EQ(Parse(withUnits).outcome.log.find("stringCount > 255\nKey 'STR ' failed\n"), 0u);
    }
}

TEST(TrackBlock, AWrongKeyOfOneTextIsSaidAndTheTextTaken) {
    Bytes block = BlockWithName(2, 2);
    block[12] = 'X'; // the first byte of the first text's key
    const Parsed t = Parse(block);
    EXPECT_TRUE(t.outcome.parsed);
    EXPECT_EQ(t.outcome.log, "Key 'STR ' failed\n");
    EXPECT_EQ(t->mTrackName.View(), u"ab");
}

} // namespace
} // namespace orvane::shell
