#include "player/sound/windows/MediaFile.h"

#include "player/sound/windows/ComApartment.h"
#include "support/WavFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace orvane::player {
namespace {

namespace fs = std::filesystem;

constexpr float kFullScale = 32768; // of 16-bit samples

// A file in a folder of the test's own; gone with the object.
class MediaFileTest : public testing::Test {
protected:
    MediaFileTest() { fs::create_directories(mFolder); }

    ~MediaFileTest() override {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }

    fs::path Write(const fs::path& name, const std::string& bytes) {
        std::ofstream(mFolder / name, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
        return mFolder / name;
    }

    // Left counts up from 0, right is minus half of that.
    fs::path WriteRamp(const fs::path& name, std::uint32_t rate, std::uint32_t frames) {
        return Write(name,
                     tests::WavFile({ rate, 2, frames }, [](std::uint32_t frame, std::uint16_t channel) {
                         return channel == 0 ? std::int16_t(frame) : std::int16_t(-std::int32_t(frame / 2));
                     }));
    }

    const ComApartment mApartment;
    const fs::path mFolder = fs::temp_directory_path() / "orvane-media-file";
};

StereoFrame RampFrame(std::int64_t frame) {
    return { float(frame) / kFullScale, -float(frame / 2) / kFullScale };
}

std::vector<StereoFrame> ReadAll(ISoundSource& source) {
    std::vector<StereoFrame> all;
    std::vector<StereoFrame> piece(1000);
    while (const std::size_t count = source.Read(piece))
        all.insert(all.end(), piece.begin(), piece.begin() + std::ptrdiff_t(count));
    return all;
}

TEST_F(MediaFileTest, DecodesEveryFrameOfAWavFile) {
    const OpenedMediaFile opened = OpenMediaFile(WriteRamp("ramp.wav", 22050, 30000));
    ASSERT_TRUE(opened.source);
    EXPECT_EQ(opened.source->Rate(), 22050u);
    EXPECT_EQ(opened.source->Length(), 30000);
    const auto frames = ReadAll(*opened.source);
    ASSERT_EQ(frames.size(), 30000u);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        ASSERT_NEAR(frames[i].left, RampFrame(std::int64_t(i)).left, 0.5f / kFullScale) << i;
        ASSERT_NEAR(frames[i].right, RampFrame(std::int64_t(i)).right, 0.5f / kFullScale) << i;
    }
}

TEST_F(MediaFileTest, GoesToAnyFrame) {
    const OpenedMediaFile opened = OpenMediaFile(WriteRamp("seek.wav", 48000, 30000));
    ASSERT_TRUE(opened.source);
    for (const std::int64_t frame : { 20000, 12345, 0, 29999, 1 }) {
        ASSERT_TRUE(opened.source->Seek(frame));
        std::vector<StereoFrame> first(1);
        ASSERT_EQ(opened.source->Read(first), 1u) << frame;
        EXPECT_NEAR(first[0].left, RampFrame(frame).left, 0.5f / kFullScale) << frame;
    }
}

TEST_F(MediaFileTest, EndsBehindTheLastFrame) {
    const OpenedMediaFile opened = OpenMediaFile(WriteRamp("end.wav", 48000, 4800));
    ASSERT_TRUE(opened.source);
    std::vector<StereoFrame> frames(10);
    for (const std::int64_t frame : { 4800, 100000 }) {
        ASSERT_TRUE(opened.source->Seek(frame));
        EXPECT_EQ(opened.source->Read(frames), 0u) << frame;
    }
    ASSERT_TRUE(opened.source->Seek(4790)); // and back again
    EXPECT_EQ(opened.source->Read(frames), 10u);
}

TEST_F(MediaFileTest, PlaysOneChannelOnBothSides) {
    const auto path =
        Write("mono.wav", tests::WavFile({ 44100, 1, 1000 }, [](std::uint32_t frame, std::uint16_t) {
                  return std::int16_t(frame * 16);
              }));
    const OpenedMediaFile opened = OpenMediaFile(path);
    ASSERT_TRUE(opened.source);
    const auto frames = ReadAll(*opened.source);
    ASSERT_EQ(frames.size(), 1000u);
    EXPECT_NEAR(frames[900].left, 14400 / kFullScale, 0.5f / kFullScale);
    EXPECT_EQ(frames[900].right, frames[900].left);
}

TEST_F(MediaFileTest, OpensNamesInAnyScript) {
    EXPECT_TRUE(OpenMediaFile(WriteRamp(u"m\u00FAsica \u97F3\u697D.wav", 44100, 100)).source);
}

TEST_F(MediaFileTest, TellsThatThereIsNoFile) {
    for (const fs::path& path : { mFolder / "missing.wav", mFolder / "no" / "folder.wav", mFolder }) {
        const OpenedMediaFile opened = OpenMediaFile(path);
        EXPECT_FALSE(opened.source);
        EXPECT_EQ(opened.problem, MediaFileProblem::kNoFile) << path;
    }
}

TEST_F(MediaFileTest, TellsThatThereIsNoSound) {
    const std::string ramp = tests::WavFile({ 44100, 2, 0 }, nullptr);
    for (const fs::path& path :
         { Write("text.txt", "This is no music.\n"), Write("empty.wav", ""),
           Write("text.mp3", "Nor is this.\n"), Write("cut.wav", ramp.substr(0, 20)) }) {
        const OpenedMediaFile opened = OpenMediaFile(path);
        EXPECT_FALSE(opened.source) << path;
        EXPECT_EQ(opened.problem, MediaFileProblem::kNoSound) << path;
    }
}

} // namespace
} // namespace orvane::player
