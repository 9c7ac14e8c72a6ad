#include "records/ArtworkRecord.h"
#include "records/AudioRenderData.h"
#include "records/LocalizedString.h"
#include "records/PulseEvents.h"
#include "records/TrackParam.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace orvane::records {
namespace {

TEST(ArtworkRecord, OwnsACopyOfTheImage) {
    std::vector<std::uint8_t> image = { 0xFF, 0xD8, 0x00, 0x01 };
    const ArtworkOwner record = MakeArtworkRecord(image.data(), image.size(), 13);
    ASSERT_NE(record, nullptr);
    image.assign(4, 0);
    EXPECT_EQ(record->format, 13u);
    EXPECT_EQ(std::vector<std::uint8_t>(record->data, record->data + record->size),
              (std::vector<std::uint8_t>{ 0xFF, 0xD8, 0x00, 0x01 }));
}

TEST(ArtworkRecord, WithoutAFormatOrWithoutBytesThereIsNoImage) {
    const std::uint8_t byte = 1;
    const ArtworkOwner noFormat = MakeArtworkRecord(&byte, 1, 0);
    const ArtworkOwner noBytes = MakeArtworkRecord(&byte, 0, 14);
    ASSERT_TRUE(noFormat && noBytes);
    EXPECT_EQ(noFormat->data, nullptr);
    EXPECT_EQ(noFormat->size, 0u);
    EXPECT_EQ(noFormat->format, 0u);
    EXPECT_EQ(noBytes->data, nullptr);
    EXPECT_EQ(noBytes->size, 0u);
    EXPECT_EQ(noBytes->format, 14u);
}

TEST(ArtworkRecord, FreeingNoneIsGood) {
    ArtworkRecord* none = nullptr;
    FreeArtworkRecord(none);
    EXPECT_EQ(none, nullptr);
}

TEST(AudioRenderData, FieldsLieAsTheyTravel) {
    std::vector<std::uint8_t> bytes(2050);
    bytes[0] = 2;           // waveform channels
    bytes[1] = 10;          // left, first sample
    bytes[512] = 11;        // left, last
    bytes[513] = 20;        // right, first
    bytes[1024] = 21;       // right, last
    bytes[1025] = 1;        // spectrum channels
    bytes[1026] = 30;       // left, bin 0
    bytes[1026 + 512] = 40; // right, bin 0
    bytes[2049] = 41;       // right, bin 511
    AudioRenderData data;
    ASSERT_EQ(sizeof(data), bytes.size());
    std::memcpy(&data, bytes.data(), bytes.size());
    EXPECT_EQ(data.waveformChannels, 2);
    EXPECT_EQ(data.waveform[0][0], 10);
    EXPECT_EQ(data.waveform[0][511], 11);
    EXPECT_EQ(data.waveform[1][0], 20);
    EXPECT_EQ(data.waveform[1][511], 21);
    EXPECT_EQ(data.spectrumChannels, 1);
    EXPECT_EQ(data.spectrum[0][0], 30);
    EXPECT_EQ(data.spectrum[1][0], 40);
    EXPECT_EQ(data.spectrum[1][511], 41);
}

TEST(TrackParam, ANewTrackIsZeroInEveryByteAndShared) {
    TrackParamRef track = MakeTrackParam();
    ASSERT_NE(track, nullptr);
    const auto* bytes = reinterpret_cast<const unsigned char*>(track.get());
    EXPECT_EQ(std::count(bytes, bytes + sizeof(TrackParamObj), 0), 5776);
    const TrackParamRef other = track;
    track->mTrackStartA = -7;
    track.reset();
    EXPECT_EQ(other->mTrackStartA, -7) << "one holder is gone, the track is not";
}

TEST(LocalizedString, TextsEndAtTheirTerminatorsAndAtTheEntrysEndAtTheLatest) {
    const LocalizedString plain = MakeLocalizedString("Show help", "H");
    EXPECT_EQ(KeyText(plain), "Show help");
    EXPECT_EQ(ValueText(plain), "H");
    const std::string key(256, 'k');
    EXPECT_EQ(KeyText(MakeLocalizedString(key, "H")), key + "H") << "runs on into the value";
    const LocalizedString full = MakeLocalizedString(key, "12345678");
    EXPECT_EQ(KeyText(full), key + "12345678");
    EXPECT_EQ(ValueText(full), "12345678");
    EXPECT_EQ(KeyText(LocalizedString{}), "");
}

TEST(LocalizedString, IsMadeOfTextsCutToTheirFields) {
    const LocalizedString cut = MakeLocalizedString(std::string(300, 'k'), "123456789");
    EXPECT_EQ(KeyText(cut), std::string(256, 'k') + "12345678");
}

TEST(PulseEvents, NothingIsPendingAtFirst) {
    EXPECT_FALSE(sCloseRequested);
    EXPECT_FALSE(trackInfoDirty);
    EXPECT_EQ(sKeyEventState, kNoKeyEvent);
    EXPECT_EQ(sKeyEventCode, 0u);
    EXPECT_EQ(sKeyEventParam, 0u);
    // A reply tells the two key events apart by these values.
    EXPECT_EQ(std::uint32_t(kCharacterLeftOver), 1u);
    EXPECT_EQ(std::uint32_t(kExtendedKey), 2u);
}

} // namespace
} // namespace orvane::records
