#include "shell/protocol/PulseReply.h"

#include "records/PulseEvents.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::shell {
namespace {

using namespace records;
using namespace std::string_literals;

class PulseReply : public testing::Test {
protected:
    PulseReply() { Clear(); }

    ~PulseReply() override { Clear(); }

    static void Clear() {
        sCloseRequested = false;
        trackInfoDirty = false;
        SetKey(kNoKeyEvent, 0, 0);
    }

    static void SetKey(std::uint32_t state, std::uint32_t code, std::uint32_t param) {
        sKeyEventState = state;
        sKeyEventCode = code;
        sKeyEventParam = param;
    }

    // The bytes of the next reply, of which nothing behind its length is touched.
    static std::string Next() {
        std::array<std::uint8_t, kLongestPulseReply> reply;
        reply.fill(0xEE);
        const std::size_t length = BuildPulseReply(reply);
        const std::string bytes = tests::AsText(reply);
        EXPECT_EQ(bytes.substr(length), std::string(kLongestPulseReply - length, '\xEE'));
        return bytes.substr(0, length);
    }
};

TEST_F(PulseReply, WithNothingPendingItIsFourZeroBytes) {
    EXPECT_EQ(Next(), "\0\0\0\0"s);
    EXPECT_EQ(Next(), "\0\0\0\0"s);
}

TEST_F(PulseReply, CloseAndTrackTravelAsTheyAreWritten) {
    sCloseRequested = true;
    EXPECT_EQ(Next(), "\0\0\0\0WSLC"s);
    trackInfoDirty = true;
    EXPECT_EQ(Next(), "\0\0\0\0WTRA"s);
}

TEST_F(PulseReply, KeyCodesTravelReversed) {
    SetKey(kExtendedKey, 0, 0);
    EXPECT_EQ(Next(), "\0\0\0\0XYEK\0\0\0\0\0\0\0\0"s);
    SetKey(kCharacterLeftOver, 0x01020304, 0xF1F2F3F4);
    EXPECT_EQ(Next(), "\0\0\0\0CYEK\x04\x03\x02\x01\xF4\xF3\xF2\xF1"s);
}

TEST_F(PulseReply, AnyOtherKeyStateIsACharacter) {
    for (const std::uint32_t state : { 3u, 255u, 0xFFFFFFFFu }) {
        SetKey(state, 'x', 1);
        EXPECT_EQ(Next(), "\0\0\0\0CYEKx\0\0\0\x01\0\0\0"s) << state;
    }
}

TEST_F(PulseReply, AnExtendedKeyCarriesTheCodeOfACharacterThatWasWaiting) {
    SetKey(kCharacterLeftOver, 'k', 7);
    sKeyEventState = kExtendedKey; // it stores no code of its own
    EXPECT_EQ(Next(), "\0\0\0\0XYEKk\0\0\0\x07\0\0\0"s);
}

TEST_F(PulseReply, ClearsEachFlagByItself) {
    sCloseRequested = true;
    trackInfoDirty = true;
    SetKey(kCharacterLeftOver, 'a', 2);

    EXPECT_EQ(Next(), "\0\0\0\0WSLC"s);
    EXPECT_FALSE(sCloseRequested);
    EXPECT_TRUE(trackInfoDirty);
    EXPECT_EQ(sKeyEventState, kCharacterLeftOver);

    EXPECT_EQ(Next(), "\0\0\0\0WTRA"s);
    EXPECT_FALSE(trackInfoDirty);
    EXPECT_EQ(sKeyEventState, kCharacterLeftOver);
    EXPECT_EQ(sKeyEventCode, std::uint32_t('a'));
    EXPECT_EQ(sKeyEventParam, 2u);

    EXPECT_EQ(Next(), "\0\0\0\0CYEKa\0\0\0\x02\0\0\0"s);
    EXPECT_EQ(sKeyEventState, kNoKeyEvent);
    EXPECT_EQ(sKeyEventCode, 0u);
    EXPECT_EQ(sKeyEventParam, 0u);

    EXPECT_EQ(Next(), "\0\0\0\0"s);
}

TEST_F(PulseReply, WithCloseAndAKeyPendingTheCloseComesFirstAndTheKeyNext) {
    sCloseRequested = true;
    SetKey(kExtendedKey, 0, 0);
    EXPECT_EQ(Next(), "\0\0\0\0WSLC"s);
    EXPECT_EQ(Next(), "\0\0\0\0XYEK\0\0\0\0\0\0\0\0"s);
    EXPECT_EQ(Next(), "\0\0\0\0"s);
}

TEST_F(PulseReply, ACodeWithoutAKeyStateIsNotSentAndStaysWaiting) {
    SetKey(kNoKeyEvent, 'z', 9);
    EXPECT_EQ(Next(), "\0\0\0\0"s);
    EXPECT_EQ(sKeyEventCode, std::uint32_t('z'));
}

} // namespace
} // namespace orvane::shell
