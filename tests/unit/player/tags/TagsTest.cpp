#include "player/tags/Tags.h"

#include "TagReading.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace orvane::player {
namespace {

using namespace tests;

TEST(Tags, TheTitleComesFromTheFilesNameIfItHasNone) {
    BytesSource source({});
    EXPECT_EQ(ReadTags(source, "folder/My Song.v2.mp3").title, u"My Song.v2");
    EXPECT_EQ(ReadTags(source, u"D\u00E4mmerung \u4E16.flac").title, u"D\u00E4mmerung \u4E16");
    EXPECT_EQ(ReadTags(source, "no extension").title, u"no extension");
}

TEST(Tags, AFileWithATitleKeepsIt) {
    const auto bytes = AsBytes(FlacFile({ { 4, VorbisComments({ "TITLE=Inside" }) } }));
    BytesSource source(bytes);
    EXPECT_EQ(ReadTags(source, "outside.flac").title, u"Inside");
}

TEST(Tags, AFileOnDiskIsReadAndOneThatIsNotThereHasItsName) {
    const auto path = std::filesystem::temp_directory_path() / "orvane-tags-test.m4a";
    std::ofstream(path, std::ios::binary) << Mp4File(Mp4Item("\xA9nam", 1, "On disk"));
    EXPECT_EQ(ReadTagsOfFile(path).title, u"On disk");
    std::filesystem::remove(path);
    EXPECT_EQ(ReadTagsOfFile(path).title, u"orvane-tags-test");
}

TEST(Tags, TheCoversFormatIsToldByItsFirstBytes) {
    EXPECT_EQ(CoverFormat(AsBytes(Jpeg(20))), ArtworkFormat::k13);
    EXPECT_EQ(CoverFormat(AsBytes(Png(20))), ArtworkFormat::k14);
}

TEST(Tags, TheLargestCoverGoesIntoOneRequest) {
    EXPECT_EQ(ArtworkRequest(ArtworkFormat::k13, Bytes(kLargestCover)).size(), std::size_t(0x100000));
}

// A file of 2^40 bytes: the pieces that a test put there, zeros elsewhere. Counts what is read.
class VastSource final : public IByteSource {
public:
    std::map<std::uint64_t, std::string> pieces; // by where they begin
    std::uint64_t bytesRead = 0;
    int reads = 0;

    [[nodiscard]] std::uint64_t Size() const override { return std::uint64_t(1) << 40; }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override {
        if (at > Size() || out.size() > Size() - at) return false;
        ++reads;
        bytesRead += out.size();
        for (std::size_t i = 0; i < out.size(); ++i) out[i] = ByteAt(at + i);
        return true;
    }

private:
    [[nodiscard]] std::uint8_t ByteAt(std::uint64_t at) const {
        auto piece = pieces.upper_bound(at);
        if (piece == pieces.begin()) return 0;
        --piece;
        const std::uint64_t offset = at - piece->first;
        return offset < piece->second.size() ? std::uint8_t(piece->second[std::size_t(offset)]) : 0;
    }
};

constexpr std::uint64_t kSound = std::uint64_t(1) << 39;

TEST(Tags, AVastFileIsNotReadWhole) {
    VastSource source;
    source.pieces[0] = Join({ Box("ftyp", "M4A "), BigValue(1, 4), "mdat", BigValue(kSound, 8) });
    source.pieces[12 + kSound] = Mp4File(Mp4Item("\xA9nam", 1, "Far away")).substr(16);
    EXPECT_EQ(ReadTags(source, {}).title, u"Far away");
    EXPECT_LT(source.bytesRead, 2000u);
}

// The same bytes over and over, behind a beginning.
class EndlessSource final : public IByteSource {
public:
    EndlessSource(std::string beginning, std::string repeated)
        : mBeginning(std::move(beginning))
        , mRepeated(std::move(repeated)) {}

    std::uint64_t reads = 0, bytesRead = 0;

    [[nodiscard]] std::uint64_t Size() const override { return std::uint64_t(1) << 40; }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override {
        ++reads;
        bytesRead += out.size();
        for (std::uint8_t& byte : out) byte = ByteAt(at++);
        return true;
    }

private:
    [[nodiscard]] std::uint8_t ByteAt(std::uint64_t at) const {
        if (at < mBeginning.size()) return std::uint8_t(mBeginning[std::size_t(at)]);
        return std::uint8_t(mRepeated[std::size_t((at - mBeginning.size()) % mRepeated.size())]);
    }

    const std::string mBeginning, mRepeated;
};

TEST(Tags, AFileThatNeverEndsIsGivenUp) {
    const std::string id3Header = { "ID3\3\0\0\x7F\x7F\x7F\x7F", 10 };
    const std::string openMoov = Join({ BigValue(0, 4), "moov" });

    const struct {
        std::string beginning, repeated;
    } files[] = {
        { "fLaC", { "\1\0\0\1x", 5 } },
        { "fLaC", FlacFile({ { 4, VorbisComments({ "A=B", "C=D" }) }, { 1, "" } }).substr(4, 30) },
        { Join({ "RIFF", LittleValue(0, 4), "WAVE" }), InfoList(Chunk("ISFT", "x")) },
        { Join({ "RIFF", LittleValue(0, 4), "WAVE" }), Chunk("id3 ", Id3Tag(3, Id3Frame(3, "PRIV", ""))) },
        { Join({ Box("ftyp", "M4A "), openMoov }), Box("trak", "x") },
        { Join({ Box("ftyp", "M4A "), openMoov }), Box("udta", Box("meta", "x")) },
        { id3Header, Id3Frame(3, "PRIV", "x") },
        { id3Header, Id3Frame(3, "APIC", Id3Picture(3, std::string(100000, 'g'))) },
    };

    for (const auto& [beginning, repeated] : files) {
        EndlessSource source(beginning, repeated);
        EXPECT_EQ(ReadTags(source, "name.x").title, u"name") << repeated.substr(0, 100);
        EXPECT_LE(source.reads, kMostReads);
        EXPECT_LE(source.bytesRead, kMostBytes);
    }
}

TEST(Tags, EveryByteOfAFileMayBeAnyOther) {
    const std::string files[] = {
        Id3Tag(3, Id3Frame(3, "TIT2", Id3Text("Title")) + Id3Frame(3, "APIC", Id3Picture(3, Jpeg(20)))),
        Id3Tag(4, Id3Frame(4, "TIT2", Id3Text("Title")), 0xC0),
        FlacFile({ { 4, VorbisComments({ "TITLE=T" }) }, { 6, FlacPicture(3, Png(20)) } }),
        Mp4File(Mp4Item("\xA9nam", 1, "Title")),
        WavFile(InfoList(Chunk("INAM", "Title"))),
    };
    for (const auto& file : files)
        for (std::size_t at = 0; at < file.size(); ++at)
            for (const char value : { '\0', '\x01', '\x7F', '\x80', '\xFF' }) {
                std::string changed = file;
                changed[at] = value;
                const Tags tags = TagsOf(changed);
                ASSERT_LE(tags.title.size(), 255u) << at;
                ASSERT_LE(tags.cover.size(), file.size()) << at;
            }
}

} // namespace
} // namespace orvane::player
