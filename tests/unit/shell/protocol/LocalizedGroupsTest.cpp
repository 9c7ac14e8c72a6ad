#include "shell/protocol/LocalizedGroups.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace orvane::shell {
namespace {

using records::LocalizedString;
using records::LocalizedStrings;
using namespace std::string_literals;

// Parses a copy of `payload` in a heap block of exactly its size.
LocalizedGroups Parse(const std::string& payload) {
    return ParseLocalizedGroups(std::vector<std::uint8_t>(payload.begin(), payload.end()));
}

// All 264 bytes of each entry.
std::string BytesOf(const LocalizedStrings& list) {
    std::string bytes;
    for (const auto& entry : list)
        bytes.append(entry.key, sizeof(entry.key)).append(entry.value, sizeof(entry.value));
    return bytes;
}

// Entries of short texts, zero-padded.
std::string Entries(std::initializer_list<std::pair<std::string, std::string>> list) {
    std::string bytes;
    for (const auto& [key, value] : list)
        bytes.append(key).append(256 - key.size(), '\0').append(value).append(8 - value.size(), '\0');
    return bytes;
}

TEST(LocalizedGroups, BothGroupsAreTakenApart) {
    const auto groups = Parse("Q\x02<Camera><C><Orvane Visualizer><t>"
                              "Z\x01<Orvane Classic Visualizer><z>");
    EXPECT_EQ(BytesOf(groups.quellspire), Entries({ { "Camera", "C" }, { "Orvane Visualizer", "t" } }));
    EXPECT_EQ(BytesOf(groups.zephor), Entries({ { "Orvane Classic Visualizer", "z" } }));
}

TEST(LocalizedGroups, AnEmptyPayloadHasNone) {
    const auto groups = Parse("");
    EXPECT_TRUE(groups.quellspire.empty());
    EXPECT_TRUE(groups.zephor.empty());
}

TEST(LocalizedGroups, OtherBytesOutsideAGroupArePassedOver) {
    const auto groups = Parse("qz<no><entry>\0\xFF\n"s + "Z\x01<a><b>" + "<c><d> more" + "Q\x01<e><f>");
    EXPECT_EQ(BytesOf(groups.zephor), Entries({ { "a", "b" } }));
    EXPECT_EQ(BytesOf(groups.quellspire), Entries({ { "e", "f" } }));
}

TEST(LocalizedGroups, BytesInFrontOfABracketArePassedOver) {
    const auto groups = Parse("Q\x02 ,Q>Z<key> = > <val>;\n<k2>Z\x01<v2>");
    EXPECT_EQ(BytesOf(groups.quellspire), Entries({ { "key", "val" }, { "k2", "v2" } }));
    EXPECT_TRUE(groups.zephor.empty());
}

TEST(LocalizedGroups, ALetterOrAnOpeningBracketInsideATextIsText) {
    const auto groups = Parse("Q\x01<Z\x01<Quit><<>");
    EXPECT_EQ(BytesOf(groups.quellspire), Entries({ { "Z\x01<Quit", "<" } }));
}

TEST(LocalizedGroups, KeysAreUtf8AndKeepTheirBytes) {
    const auto groups = Parse("Z\x01<\xC3\x84ndern \xE2\x99\xAA><\xC3\x84>");
    EXPECT_EQ(BytesOf(groups.zephor), Entries({ { "\xC3\x84ndern \xE2\x99\xAA", "\xC3\x84" } }));
}

TEST(LocalizedGroups, EmptyTextsAreEntries) {
    EXPECT_EQ(BytesOf(Parse("Q\x01<><>").quellspire), Entries({ { "", "" } }));
}

TEST(LocalizedGroups, AKeyOf256BytesFillsItsFieldWithoutATerminator) {
    const std::string key = std::string(255, 'k') + 'l';
    EXPECT_EQ(BytesOf(Parse("Q\x01<" + key + "><v>").quellspire), Entries({ { key, "v" } }));
}

TEST(LocalizedGroups, AKeyOf300BytesKeepsItsLast44InFront) {
    std::string key;
    for (int i = 0; i < 300; ++i) key += char('a' + i % 25); // neighbours differ, and so do places 256 apart
    const std::string last44 = key.substr(256), middle = key.substr(44, 212);
    EXPECT_EQ(BytesOf(Parse("Q\x01<" + key + "><v>").quellspire), Entries({ { last44 + middle, "v" } }));
}

TEST(LocalizedGroups, AValueOf9BytesKeepsItsLastInFront) {
    EXPECT_EQ(BytesOf(Parse("Z\x01<k><123456789>").zephor), Entries({ { "k", "92345678" } }));
    EXPECT_EQ(BytesOf(Parse("Z\x01<k><12345678>").zephor), Entries({ { "k", "12345678" } }));
    EXPECT_EQ(BytesOf(Parse("Z\x01<k><1234567890abcdefgh>").zephor), Entries({ { "k", "ghabcdef" } }));
}

TEST(LocalizedGroups, ACountOf0RunsToTheEndOfTheRequest) {
    const auto groups = Parse("Q\0<a><b><c><d>Z\x01<e><f>"s);
    EXPECT_EQ(BytesOf(groups.quellspire), Entries({ { "a", "b" }, { "c", "d" }, { "e", "f" } }));
    EXPECT_TRUE(groups.zephor.empty());
}

TEST(LocalizedGroups, ACountOf255IsUnsigned) {
    std::string payload = "Q\xFF";
    for (int i = 0; i < 255; ++i) payload += "<k><v>";
    payload += "Z\x01<a><b>";
    const auto groups = Parse(payload);
    EXPECT_EQ(groups.quellspire.size(), 255u);
    EXPECT_EQ(BytesOf(groups.zephor), Entries({ { "a", "b" } }));
}

TEST(LocalizedGroups, AnEntryThatIsCutOffIsDropped) {
    const std::string whole = "Q\x03<a><b><key><val>";
    for (std::size_t length = 2; length < whole.size(); ++length) {
        const auto groups = Parse(whole.substr(0, length));
        EXPECT_EQ(BytesOf(groups.quellspire), length < 8 ? "" : Entries({ { "a", "b" } })) << length;
    }
}

TEST(LocalizedGroups, ALetterAloneAtTheEndHasNoCountAndNoEntries) {
    EXPECT_TRUE(Parse("Q").quellspire.empty());
    EXPECT_EQ(Parse("Q\x01<a><b>Z").quellspire.size(), 1u);
}

TEST(LocalizedGroups, AGroupsCountIsThatOfItsListSoASecondGroupMustCountTheFirst) {
    const auto together = Parse("Q\x01<a><b>Q\x02<c><d>Z\x01<e><f>");
    EXPECT_EQ(BytesOf(together.quellspire), Entries({ { "a", "b" }, { "c", "d" } }));
    EXPECT_EQ(BytesOf(together.zephor), Entries({ { "e", "f" } }));

    // The list holds one entry already, and never again.
    const auto passed = Parse("Q\x01<a><b>Q\x01<c><d>Z\x01<e><f>");
    EXPECT_EQ(BytesOf(passed.quellspire), Entries({ { "a", "b" }, { "c", "d" }, { "e", "f" } }));
    EXPECT_TRUE(passed.zephor.empty());
}

TEST(LocalizedGroups, AMegabyteOfEmptyEntriesTakesLessThanTwoSeconds) {
    constexpr std::size_t kEntries = 0x100000 / 4 - 1;
    std::string payload = "Q\0"s;
    for (std::size_t i = 0; i < kEntries; ++i) payload += "<><>";
    const auto start = std::chrono::steady_clock::now();
    const auto groups = Parse(payload);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(groups.quellspire.size(), kEntries);
    EXPECT_LT(seconds.count(), 2.0);
}

TEST(LocalizedGroups, AMegabyteWithoutAClosingBracketIsGoneThroughOnce) {
    std::string payload = "Q\0"s;
    while (payload.size() < 0x100000) payload += "<Q";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(Parse(payload).quellspire.empty());
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_LT(seconds.count(), 2.0);
}

} // namespace
} // namespace orvane::shell
