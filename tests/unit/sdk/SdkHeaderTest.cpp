// The header that third parties build from and the host's own records describe the same bytes. Sizes and
// offsets against the written figures are checked inside the header, at compile time.
#include "orvane_plugin.h"
#include "records/AudioRenderData.h"
#include "records/StringBlock.h"
#include "records/TrackParam.h"

#include <gtest/gtest.h>

#include <cstring>

extern "C" std::int32_t HeaderAsC99(std::uint32_t message, OrvaneEntryRecord* record);

namespace orvane {
namespace {

using records::TrackParamObj;

constexpr std::uint32_t FourCharacters(const char (&text)[5]) {
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i) code = code << 8 | std::uint8_t(text[i]);
    return code;
}

TEST(SdkHeader, IsPlainC99) {
    OrvaneEntryRecord record = {};
    EXPECT_EQ(HeaderAsC99(ORVANE_MSG_INIT, &record), 36);
    EXPECT_EQ(HeaderAsC99(ORVANE_MSG_INIT, nullptr), -50);
    EXPECT_EQ(HeaderAsC99(ORVANE_MSG_DRAW, nullptr), -4);
}

TEST(SdkHeader, MessageCodesAreTheirFourCharacters) {
    const struct {
        std::uint32_t code;
        const char (&characters)[5];
    } rows[] = {
        { ORVANE_MSG_INIT, "init" },
        { ORVANE_MSG_ACTIVATE, "Vact" },
        { ORVANE_MSG_DEACTIVATE, "Vdct" },
        { ORVANE_MSG_FRAME_CHANGED, "Vfrm" },
        { ORVANE_MSG_DRAW, "Vdrw" },
        { ORVANE_MSG_STOP, "vstp" },
        { ORVANE_MSG_IDLE, "null" },
        { ORVANE_MSG_ARTWORK, "Vart" },
        { ORVANE_MSG_PULSE, "Vpls" },
        { ORVANE_MSG_PLAY, "Vply" },
        { ORVANE_HOST_REGISTER, "regv" },
        { ORVANE_HOST_REQUEST_ARTWORK, "rart" },
        { ORVANE_HOST_SET_FULLSCREEN_OPTIONS, "sfop" },
        { ORVANE_HOST_SET_FULLSCREEN, "sful" },
    };

    for (const auto& row : rows) EXPECT_EQ(row.code, FourCharacters(row.characters)) << row.characters;
}

TEST(SdkHeader, ATrackOfTheHostReadsAsATrackOfTheModule) {
    const auto host = records::MakeTrackParam();
    host->mInfoWords1[1] = 11;
    host->mTrackName.Assign(u"Name");
    host->mTrackArtist.Assign(u"Artist");
    host->mTrackAlbum.Assign(u"Album");
    host->mInfoShorts1[1] = -2;
    host->mInfoWords3[10] = 13;
    host->mInfoBytes[1] = 14;
    host->mInfoShorts2[2] = -15;
    host->mInfoFloat = 0.5f;
    host->mInfoLong = 0x1122334455667788;
    host->mAudioFormat.words1[6] = 16;
    host->mAudioFormat.word8 = 17;
    host->mTrackStartA = -18;
    host->mTrackStartB = 19;

    static_assert(sizeof(OrvaneTrack) == sizeof(TrackParamObj));
    OrvaneTrack track;
    std::memcpy(&track, host.get(), sizeof(track));
    EXPECT_EQ(track.infoWords1[1], 11u);
    EXPECT_EQ(track.name.count, 4);
    EXPECT_EQ(track.name.units[3], u'e');
    EXPECT_EQ(track.artist.count, 6);
    EXPECT_EQ(track.artist.units[0], u'A');
    EXPECT_EQ(track.album.units[4], u'm');
    EXPECT_EQ(track.infoShorts1[1], -2);
    EXPECT_EQ(track.infoWords3[10], 13u);
    EXPECT_EQ(track.infoBytes[1], 14);
    EXPECT_EQ(track.infoShorts2[2], -15);
    EXPECT_EQ(track.infoFloat, 0.5f);
    EXPECT_EQ(track.infoLong, 0x1122334455667788u);
    EXPECT_EQ(track.audioFormat.words1[6], 16u);
    EXPECT_EQ(track.audioFormat.word8, 17u);
    EXPECT_EQ(track.trackStartA, -18);
    EXPECT_EQ(track.trackStartB, 19u);
}

TEST(SdkHeader, TheSoundOfTheHostReadsAsTheSoundOfTheModule) {
    records::AudioRenderData host = {};
    host.waveformChannels = 2;
    host.waveform[1][511] = 3;
    host.spectrumChannels = 1;
    host.spectrum[1][511] = 4;

    OrvaneRenderData sound;
    static_assert(sizeof(sound) == sizeof(host) && ORVANE_SILENCE == records::kWaveformSilence);
    std::memcpy(&sound, &host, sizeof(sound));
    EXPECT_EQ(sound.waveformChannels, 2);
    EXPECT_EQ(sound.waveform[1][511], 3);
    EXPECT_EQ(sound.spectrumChannels, 1);
    EXPECT_EQ(sound.spectrum[1][511], 4);
}

} // namespace
} // namespace orvane
