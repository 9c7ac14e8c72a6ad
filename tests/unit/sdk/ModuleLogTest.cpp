#include "support/ModuleLog.h"

#include <gtest/gtest.h>

#include <fstream>

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

TEST(ModuleLog, ReadsALineFieldByField) {
    const auto call = ParseModuleCall("recorder 44 handler 56706c73 00000000000000ff - 01fe 7f");
    ASSERT_TRUE(call);
    EXPECT_EQ(call->module, "recorder");
    EXPECT_EQ(call->thread, 44u);
    EXPECT_EQ(call->kind, Kind::Handler);
    EXPECT_EQ(call->message, 0x56706C73u);
    EXPECT_EQ(call->cookie, 255u);
    EXPECT_FALSE(call->status);
    EXPECT_EQ(call->record, (Bytes{ 1, 0xFE }));
    EXPECT_EQ(call->data, (Bytes{ 0x7F }));
    EXPECT_EQ(call->RecordAs<std::uint16_t>(), 0xFE01);
    EXPECT_EQ(call->RecordAs<std::uint32_t>(), 0u);
}

TEST(ModuleLog, TellsANullRecordFromAnEmptyOneAndReadsTheStatus) {
    const auto call = ParseModuleCall("m 1 host 72656776 0000000000000000 -50 - ");
    ASSERT_TRUE(call);
    EXPECT_EQ(call->status, -50);
    EXPECT_FALSE(call->record);
    EXPECT_EQ(call->data, Bytes{});
}

TEST(ModuleLog, RefusesALineThatIsNotWhole) {
    for (const char* line :
         { "", "m 1 host 72656776 00 0 -", "m 1 host 72656776 00 0 - - -", "m x host 72656776 00 0 - -",
           "m 1 guest 72656776 00 0 - -", "m 1 host 7265677g 00 0 - -", "m 1 host 72656776 00 0 abc -" })
        EXPECT_FALSE(ParseModuleCall(line)) << line;
}

TEST(ModuleLog, AMissingFileIsNoCallsAndAnUnfinishedLastLineIsLeftOut) {
    const std::filesystem::path path = "module-log-test.log";
    std::filesystem::remove(path);
    EXPECT_TRUE(ReadModuleLog(path).empty());
    std::ofstream(path, std::ios::binary) << "a 1 entry 696e6974 0000000000000000 - - -\n"
                                             "b 2 handler 56647277 0000000000000000 - - -\n"
                                             "b 2 handler 5664";
    const auto calls = ReadModuleLog(path);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(CallsOf(calls, "b").size(), 1u);
    EXPECT_EQ(CallsOf(calls, Kind::Entry, 0x696E6974).size(), 1u);
    EXPECT_EQ(CallsOf(calls, Kind::Entry, 0x56647277).size(), 0u);
    std::filesystem::remove(path);
}

} // namespace
} // namespace orvane::tests
