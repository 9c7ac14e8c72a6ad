#include "player/protocol/PluginList.h"

#include "shell/wire/Flattener.h"
#include "support/LogCapture.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvane::player {
namespace {

using tests::Bytes;
using tests::WireBuilder;

// Values most significant byte first, by hand.
WireBuilder& Big32(WireBuilder& list, std::uint32_t value) {
    return list.U8(std::uint8_t(value >> 24))
        .U8(std::uint8_t(value >> 16))
        .U8(std::uint8_t(value >> 8))
        .U8(std::uint8_t(value));
}

WireBuilder& BigText(WireBuilder& list, std::u16string_view text) {
    list.U8(std::uint8_t(text.size() >> 8)).U8(std::uint8_t(text.size()));
    for (const char16_t unit : text) list.U8(std::uint8_t(unit >> 8)).U8(std::uint8_t(unit));
    return list;
}

// A plug-in with every field different from every other.
WireBuilder& Sample(WireBuilder& list, std::u16string_view name, std::u16string_view path) {
    for (std::uint32_t word = 0; word < 9; ++word) Big32(list, 0x01020300 + word);
    Big32(list, kZephorPlugin).Raw("abcd");
    BigText(list, name);
    return BigText(list, path);
}

PluginEntry SampleEntry(std::u16string_view name, std::u16string_view path) {
    return { .word0 = 0x01020300,
             .options = 0x01020301,
             .rate = 0x01020302,
             .word1 = 0x01020303,
             .word2 = 0x01020304,
             .limits = { 0x01020305, 0x01020306, 0x01020307, 0x01020308 },
             .kind = 1,
             .bytes = { 'a', 'b', 'c', 'd' },
             .displayName = std::u16string(name),
             .path = std::u16string(path) };
}

TEST(PluginList, ReadsEveryFieldBigEndianInOrder) {
    WireBuilder reply;
    Big32(reply, 2);
    Sample(reply, u"N\u00E4me \u4E16", u"C:\\a.dll");
    Sample(reply, u"", u"");
    const PluginList list = DecodePluginList(reply.Get());
    EXPECT_TRUE(list.whole);
    EXPECT_EQ(list.claimed, 2u);
    ASSERT_EQ(list.plugins.size(), 2u);
    EXPECT_EQ(list.plugins[0], SampleEntry(u"N\u00E4me \u4E16", u"C:\\a.dll"));
    EXPECT_EQ(list.plugins[1], SampleEntry(u"", u""));
}

TEST(PluginList, AnEmptyListIsWhole) {
    const PluginList list = DecodePluginList(Bytes{ 0, 0, 0, 0 });
    EXPECT_TRUE(list.whole);
    EXPECT_TRUE(list.plugins.empty());
}

TEST(PluginList, CutOffAnywhereKeepsTheEntriesThatCameWhole) {
    WireBuilder first;
    Big32(first, 2);
    const std::size_t oneEntry = Sample(first, u"One", u"p").Get().size();
    const Bytes whole = Sample(first, u"Two", u"q").Get();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const PluginList list =
            DecodePluginList(Bytes(whole.begin(), whole.begin() + std::ptrdiff_t(length)));
        EXPECT_FALSE(list.whole) << length;
        EXPECT_EQ(list.plugins.size(), length < oneEntry ? 0u : 1u) << length;
    }
}

TEST(PluginList, BytesBehindTheListMakeItMalformed) {
    EXPECT_FALSE(DecodePluginList(Bytes{ 0, 0, 0, 0, 0 }).whole);
}

TEST(PluginList, AnEnormousCountTakesNoMemoryAndReadsNothingBeyond) {
    WireBuilder reply;
    Big32(reply, 0xFFFFFFFF);
    Sample(reply, u"One", u"p");
    const PluginList list = DecodePluginList(reply.Get());
    EXPECT_EQ(list.claimed, 0xFFFFFFFFu);
    EXPECT_EQ(list.plugins.size(), 1u);
    EXPECT_FALSE(list.whole);
}

TEST(PluginList, TextsAreTakenUpToTheirLimitsAndNoFurther) {
    for (const std::size_t over : { 0u, 1u }) {
        WireBuilder longName;
        Big32(longName, 1);
        Sample(longName, std::u16string(255 + over, u'n'), u"");
        EXPECT_EQ(DecodePluginList(longName.Get()).whole, over == 0);

        WireBuilder longPath;
        Big32(longPath, 1);
        Sample(longPath, u"", std::u16string(1027 + over, u'p'));
        EXPECT_EQ(DecodePluginList(longPath.Get()).whole, over == 0);
    }
}

TEST(PluginList, ReadsWhatTheHostsFlattenerWrites) {
    Bytes reply(4096);
    shell::Flattener flattener(reply.data(), reply.size());
    shell::PutUInt32(flattener, 1);
    for (std::uint32_t word = 0; word < 9; ++word) shell::PutUInt32(flattener, 0x01020300 + word);
    shell::PutUInt32(flattener, 1);
    for (const char byte : { 'a', 'b', 'c', 'd' }) shell::PutUInt8(flattener, std::uint8_t(byte));
    records::StringBlock name;
    name.Assign(u"Orvane");
    records::PathBlock path;
    path.Assign(std::u16string(1027, u'x'));
    shell::PutString(flattener, name, 255);
    shell::PutString(flattener, path, 1027);
    reply.resize(flattener.Length());

    const PluginList list = DecodePluginList(reply);
    ASSERT_TRUE(list.whole);
    EXPECT_EQ(list.plugins.at(0), SampleEntry(u"Orvane", std::u16string(1027, u'x')));
}

} // namespace
} // namespace orvane::player
