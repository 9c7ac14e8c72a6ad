#include "player/protocol/Requests.h"

#include "shell/protocol/LocalizedGroups.h"
#include "shell/protocol/SelectRequest.h"
#include "shell/protocol/TrackBlock.h"
#include "shell/wire/BufferReader.h"
#include "support/LogCapture.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvane::player {
namespace {

using namespace std::string_view_literals;
using records::TrackParamObj;
using tests::AsText;
using tests::LogCapture;
using tests::WireBuilder;

// The track whose wire form the sample is, field by field.
TrackParamObj SampleTrack() {
    TrackParamObj track = {};
    track.mInfoWords1[0] = 0x1000;
    track.mInfoWords1[1] = 0x1001;
    track.mTrackName.Assign(u"Name");
    track.mInfoString2.Assign(u"Text 2");
    track.mTrackArtist.Assign(u"Artist");
    track.mTrackAlbum.Assign(u"Album");
    track.mInfoString5.Assign(u"Text 5");
    track.mInfoString6.Assign(u"Text 6");
    track.mInfoString7.Assign(u"Text 7");
    track.mInfoString8.Assign(u"Text 8");
    track.mInfoWords2[0] = 0x1002;
    track.mInfoWords2[1] = 0x1003;
    track.mInfoShorts1[0] = -2;
    track.mInfoShorts1[1] = 0x0102;
    for (std::uint32_t i = 0; i < 11; ++i) track.mInfoWords3[i] = 0x1010 + i;
    track.mInfoString9.Assign(u"Text 9");
    track.mInfoBytes[0] = 0xA1;
    track.mInfoBytes[1] = 0xA2;
    track.mInfoShorts2[0] = 0x0201;
    track.mInfoShorts2[1] = -0x8000;
    track.mInfoShorts2[2] = 0x0203;
    track.mInfoWords4[0] = 0x1020;
    track.mInfoWords4[1] = 0x1021;
    track.mInfoShorts3[0] = 0x0204;
    track.mInfoShorts3[1] = 0x0205;
    track.mInfoString10.Assign(u"Text 10");
    track.mInfoFloat = 1.5f;
    track.mInfoString11.Assign(u"Text 11");
    track.mInfoLong = 0x1122334455667788;
    track.mAudioFormat.word0 = 0x2000;
    for (std::uint32_t i = 0; i < 7; ++i) track.mAudioFormat.words1[i] = 0x2001 + i;
    track.mAudioFormat.word8 = 0x2008;
    track.mTrackStartA = -5;
    track.mTrackStartB = 0x1030;
    return track;
}

std::string SampleBlock() {
    return AsText(tests::SampleTrackBlock());
}

TEST(Requests, PlainOnesAreTheirTagInReadingOrder) {
    namespace tags = shell::tags;
    const std::pair<std::uint32_t, std::string_view> kPlain[] = {
        { tags::kShowWindow, "SWND" },     { tags::kHideWindow, "HWND" }, { tags::kEnterFullscreen, "NTFS" },
        { tags::kExitFullscreen, "XTFS" }, { tags::kDeactivate, "DCTV" }, { tags::kDraw, "DRAW" },
        { tags::kIdle, "IDLE" },           { tags::kStop, "STOP" },       { tags::kMove, "MOVW" },
        { tags::kNoArtwork, "NOAR" },
    };
    for (const auto& [tag, bytes] : kPlain) EXPECT_EQ(AsText(PlainRequest(tag)), bytes);
}

TEST(Requests, PulseCarriesStampPositionAndAudio) {
    EXPECT_EQ(AsText(PulseRequest(0x01020304, 0x0A0B0C0D, tests::Bytes{ 9, 8, 7 })),
              "PULS\x04\x03\x02\x01\x0D\x0C\x0B\x0A\x09\x08\x07"sv);
    EXPECT_EQ(PulseRequest(0, 0, {}).size(), 12u);
}

TEST(Requests, KeyInputCountsCharactersAndNotBytes) {
    EXPECT_EQ(AsText(KeyInputRequest(2, u"a\u20AC")), "KEYI\x02\0\0\0\x02\0\0\0a\0\xAC\x20"sv);
}

TEST(Requests, StartCarriesEveryTrackFieldInWireOrder) {
    EXPECT_EQ(AsText(StartRequest(SampleTrack())), "STRT" + SampleBlock());
}

TEST(Requests, TheHostReadsBackTheTrackThatWasSent) {
    const LogCapture log;
    const Bytes request = StartRequest(SampleTrack());
    shell::BufferReader reader{ request.data() + 4, request.size() - 4, 0 };
    TrackParamObj read = {};
    EXPECT_TRUE(shell::ParseTrackBlock(reader, read));
    EXPECT_EQ(reader.Remaining(), 0u);
    EXPECT_EQ(StartRequest(read), request);
    EXPECT_EQ(log.Text(), "");
}

TEST(Requests, SelectWithoutATrackEndsBehindItsByte) {
    EXPECT_EQ(AsText(SelectRequest(u"Zap", nullptr)), "SWSV RTS\x03\0Z\0a\0p\0\0"sv);
}

TEST(Requests, SelectPutsTheTrackBehindItsMarker) {
    const TrackParamObj track = SampleTrack();
    EXPECT_EQ(AsText(SelectRequest(u"Zap", &track)),
              std::string("SWSV RTS\x03\0Z\0a\0p\0\0TALF"sv) + SampleBlock());
}

TEST(Requests, ActivateHasItsCountAtEightAndItsUnitsFromTen) {
    EXPECT_EQ(AsText(ActivateRequest(u"Zap")), "ACTV RTS\x03\0Z\0a\0p\0"sv);
}

TEST(Requests, ANameOfMoreThan255UnitsIsCutThere) {
    const Bytes request = ActivateRequest(std::u16string(300, u'x'));
    EXPECT_EQ(request.size(), 10u + 2 * 255);
    EXPECT_EQ(request[8], 255);
    EXPECT_EQ(request[9], 0);
}

TEST(Requests, ReshapeCarriesFourWords) {
    EXPECT_EQ(AsText(ReshapeRequest({ 1, 2, 3, 0x01020304 })),
              "RSHP\x01\0\0\0\x02\0\0\0\x03\0\0\0\x04\x03\x02\x01"sv);
}

TEST(Requests, ConsoleTextIsSentWithTheZeroByteThatEndsIt) {
    EXPECT_EQ(AsText(ConsoleRequest("hi\n")), "PM2Chi\n\0"sv);
}

TEST(Requests, ArtworkIsTheImageBehindTheFormatsTag) {
    EXPECT_EQ(AsText(ArtworkRequest(ArtworkFormat::k13, tests::Bytes{ 1, 2 })), "AR13\x01\x02");
    EXPECT_EQ(AsText(ArtworkRequest(ArtworkFormat::k14, {})), "AR14");
}

TEST(Requests, LocalizedStringsAreGroupsOfTheirLetterAndCount) {
    const LocalizedText quellspire[] = { { "Title", "" } };
    const LocalizedText zephor[] = { { "Help", "H" }, { "Classic", "" } };
    EXPECT_EQ(AsText(LocalizedStringsRequest(quellspire, zephor)),
              "UPVMQ\x01<Title><>Z\x02<Help><H><Classic><>");
    EXPECT_EQ(AsText(LocalizedStringsRequest({}, zephor)), "UPVMZ\x02<Help><H><Classic><>");
    EXPECT_EQ(AsText(LocalizedStringsRequest({}, {})), "UPVM");
}

TEST(Requests, TheHostReadsBackTheLocalizedStringsThatWereSent) {
    // The second text would end its entry early, and both fields of the third would wrap.
    const LocalizedText texts[] = { { "Help", "H" },
                                    { "a>b<c", "<" },
                                    { std::string(300, 'k'), std::string(9, 'v') } };
    const Bytes request = LocalizedStringsRequest(texts, {});
    const auto groups = shell::ParseLocalizedGroups(std::span(request).subspan(4));
    ASSERT_EQ(groups.quellspire.size(), 3u);
    EXPECT_TRUE(groups.zephor.empty());
    EXPECT_STREQ(groups.quellspire[0].key, "Help");
    EXPECT_STREQ(groups.quellspire[1].key, "ab<c");
    EXPECT_STREQ(groups.quellspire[1].value, "<");
    EXPECT_EQ(std::string(groups.quellspire[2].key, 256), std::string(256, 'k'));
    EXPECT_EQ(std::string(groups.quellspire[2].value, 8), std::string(8, 'v'));
}

TEST(Requests, AGroupHoldsAtMost255Texts) {
    const std::vector<LocalizedText> texts(256, { "t", "" });
    const Bytes request = LocalizedStringsRequest({}, texts);
    EXPECT_EQ(request.size(), 4 + 2 + 255 * std::string_view("<t><>").size());
    EXPECT_EQ(request[5], 255);
}

} // namespace
} // namespace orvane::player
