#include "player/tags/Cursor.h"

#include "support/TagFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace orvane::player {
namespace {

using tests::AsBytes;

TEST(Cursor, ReadsValuesOfEitherOrderOneAfterAnother) {
    const auto bytes = AsBytes("\x01\x02\x03\x04\x05\x06\x07\x08name");
    BytesSource source(bytes);
    Cursor cursor(source);
    EXPECT_EQ(cursor.Big(3), 0x010203u);
    EXPECT_EQ(cursor.Little(2), 0x0504u);
    EXPECT_EQ(cursor.Big(1), 6u);
    EXPECT_EQ(cursor.Left(), 6u);
    cursor.Skip(2);
    EXPECT_EQ(cursor.Four(), (FourBytes{ 'n', 'a', 'm', 'e' }));
    EXPECT_FALSE(cursor.Failed());
}

TEST(Cursor, AValueThatIsCutOffFailsAndSoDoesEverythingBehindIt) {
    const auto bytes = AsBytes("abc");
    BytesSource source(bytes);
    Cursor cursor(source);
    EXPECT_EQ(cursor.Big(4), 0u);
    EXPECT_TRUE(cursor.Failed());
    EXPECT_EQ(cursor.Left(), 0u);
    EXPECT_EQ(cursor.Little(1), 0u);
    EXPECT_EQ(cursor.Four(), FourBytes{});
    EXPECT_TRUE(cursor.Bytes(1).empty());
}

TEST(Cursor, APartEndsWhereItWasSaidToEndOrWithTheWhole) {
    const auto bytes = AsBytes("abcdefgh");
    BytesSource source(bytes);
    Cursor cursor(source);
    Cursor part = cursor.Part(3);
    EXPECT_EQ(part.Bytes(100), AsBytes("abc"));
    EXPECT_EQ(part.Big(1), 0u);
    EXPECT_TRUE(part.Failed());
    EXPECT_FALSE(cursor.Failed());
    Cursor longer = cursor.Part(~std::uint64_t(0));
    EXPECT_EQ(longer.Left(), 5u);
    EXPECT_EQ(cursor.Left(), 0u);
}

TEST(Cursor, SkippingTooFarStopsAtTheEnd) {
    const auto bytes = AsBytes("ab");
    BytesSource source(bytes);
    Cursor cursor(source);
    cursor.Skip(~std::uint64_t(0));
    EXPECT_EQ(cursor.Left(), 0u);
    EXPECT_FALSE(cursor.Failed());
}

TEST(BytesSource, ReadsWhatIsThereAndNothingElse) {
    const auto bytes = AsBytes("abc");
    BytesSource source(bytes);
    std::array<std::uint8_t, 2> two = {};
    EXPECT_TRUE(source.Read(1, two));
    EXPECT_EQ(two, (std::array<std::uint8_t, 2>{ 'b', 'c' }));
    EXPECT_FALSE(source.Read(2, two));
    EXPECT_FALSE(source.Read(~std::uint64_t(0), two));
    EXPECT_TRUE(source.Read(3, {}));
}

TEST(BoundedSource, ReadsSoOftenAndSoMuchAndThenNoMore) {
    const auto bytes = AsBytes("abcdefgh");
    BytesSource source(bytes);
    std::array<std::uint8_t, 2> two = {};
    std::array<std::uint8_t, 4> four = {};

    BoundedSource twice(source, 2, 100);
    EXPECT_TRUE(twice.Read(0, two));
    EXPECT_TRUE(twice.Read(0, two));
    EXPECT_FALSE(twice.Read(0, two));

    BoundedSource sixBytes(source, 100, 6);
    EXPECT_TRUE(sixBytes.Read(0, four));
    EXPECT_FALSE(sixBytes.Read(0, four));
    EXPECT_FALSE(sixBytes.Read(0, two)); // for good
    EXPECT_EQ(sixBytes.Size(), 8u);
}

TEST(FileSource, ReadsAtAnyPlaceAlsoAfterAFailure) {
    const auto path = std::filesystem::temp_directory_path() / "orvane-file-source-test.bin";
    std::ofstream(path, std::ios::binary) << "line\r\nfeed";
    {
        FileSource source(path);
        EXPECT_EQ(source.Size(), 10u);
        std::array<std::uint8_t, 4> four = {};
        EXPECT_FALSE(source.Read(7, four));
        EXPECT_TRUE(source.Read(6, four));
        EXPECT_EQ(four, (std::array<std::uint8_t, 4>{ 'f', 'e', 'e', 'd' }));
        EXPECT_TRUE(source.Read(3, four));
        EXPECT_EQ(four, (std::array<std::uint8_t, 4>{ 'e', '\r', '\n', 'f' }));
    }
    std::filesystem::remove(path);
}

TEST(FileSource, AFileThatIsNotThereAndAFolderHaveNoBytes) {
    std::array<std::uint8_t, 1> one = {};
    for (const auto& path : { std::filesystem::temp_directory_path() / "orvane-no-such-file",
                              std::filesystem::temp_directory_path() }) {
        FileSource source(path);
        EXPECT_EQ(source.Size(), 0u);
        EXPECT_FALSE(source.Read(0, one));
    }
}

} // namespace
} // namespace orvane::player
