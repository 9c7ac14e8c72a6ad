#include "plugins/PlugInMemory.h"

#include "unit/plugins/BarePlugIn.h"

#include <gtest/gtest.h>

#include <cstring>

#include <algorithm>

namespace orvane::plugins {
namespace {

using tests::BarePlugIn;

bool sDestructed = false;

// Keeps what its memory held when the constructor began, and tells if its destructor ever runs.
class WatchedPlugIn final : public BarePlugIn {
public:
    WatchedPlugIn()
        : BarePlugIn(PlugInKind::kExternal) {}

    // The bytes of mUntouched as they stand in memory.
    [[nodiscard]] bool UntouchedBytesAreZero() const {
        const volatile std::uint8_t* bytes = mUntouched;
        return std::all_of(bytes, bytes + sizeof(mUntouched), [](std::uint8_t byte) { return byte == 0; });
    }

private:
    ~WatchedPlugIn() { sDestructed = true; }

    std::uint8_t mUntouched[1000]; // no constructor fills these
};

TEST(PlugInMemory, IsZeroedInFullBeforeTheConstructorRuns) {
    std::free(std::memset(std::malloc(sizeof(WatchedPlugIn)), 0xA5, sizeof(WatchedPlugIn)));
    const auto plugIn = MakePlugIn<WatchedPlugIn>();
    EXPECT_TRUE(plugIn->UntouchedBytesAreZero());
}

TEST(PlugInMemory, FreeingRunsNoDestructor) {
    sDestructed = false;
    MakePlugIn<WatchedPlugIn>().reset();
    EXPECT_FALSE(sDestructed);
}

TEST(PlugInMemory, APlugInIsFoundFromItsMakingToItsFreeing) {
    auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor);
    const void* cookie = plugIn.get();
    EXPECT_EQ(FindLivePlugIn(cookie).get(), plugIn.get());
    plugIn.reset();
    EXPECT_EQ(FindLivePlugIn(cookie), nullptr);
}

TEST(PlugInMemory, NothingIsFoundAtAnyOtherAddress) {
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor);
    EXPECT_EQ(FindLivePlugIn(nullptr), nullptr);
    EXPECT_EQ(FindLivePlugIn(reinterpret_cast<const char*>(plugIn.get()) + 8), nullptr);
    EXPECT_EQ(FindLivePlugIn(reinterpret_cast<const void*>(std::uintptr_t(1))), nullptr);
}

TEST(PlugInMemory, WhatWasFoundStaysUntilItIsLetGo) {
    auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor);
    const auto held = FindLivePlugIn(plugIn.get());
    plugIn.reset();
    EXPECT_EQ(FindLivePlugIn(held.get()), nullptr);
    EXPECT_EQ(held->Path().View(), u"Built-In"); // its memory is still there: the sanitizer would tell
}

TEST(PlugInMemory, FreeingNullOrAStrangerDoesNothing) {
    FreePlugIn(nullptr);
    auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor);
    auto* raw = plugIn.release();
    FreePlugIn(raw);
    FreePlugIn(raw); // gone already
    EXPECT_EQ(FindLivePlugIn(raw), nullptr);
}

} // namespace
} // namespace orvane::plugins
