#include "player/sound/SilentDevice.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::player {
namespace {

constexpr std::uint32_t kRate = 1000;

class SilentDeviceTest : public testing::Test {
protected:
    SilentDeviceTest() { EXPECT_TRUE(mDevice.Open(kRate)); }

    void Write(std::size_t frames) { mDevice.Write(std::vector<StereoFrame>(frames)); }

    double mNow = 50.0; // seconds
    SilentDevice mDevice{ [this] { return mNow; } };
};

TEST_F(SilentDeviceTest, HearsAsTheClockRuns) {
    EXPECT_EQ(mDevice.Room(), 250u); // a quarter of a second
    Write(250);
    EXPECT_EQ(mDevice.Room(), 0u);
    mDevice.Run(true);
    mNow += 0.125;
    EXPECT_EQ(mDevice.Heard(), 125);
    EXPECT_EQ(mDevice.Room(), 125u);
    EXPECT_FALSE(mDevice.IsEmpty());
}

TEST_F(SilentDeviceTest, StandsStillUntilItRuns) {
    Write(100);
    mNow += 10;
    EXPECT_EQ(mDevice.Heard(), 0);
    mDevice.Run(true);
    mNow += 0.0625;
    mDevice.Run(false);
    mNow += 10;
    EXPECT_EQ(mDevice.Heard(), 62);
    mDevice.Run(true);
    mNow += 0.03125;
    EXPECT_EQ(mDevice.Heard(), 93); // 93.75
}

TEST_F(SilentDeviceTest, HearsNoMoreThanThereIs) {
    Write(100);
    mDevice.Run(true);
    mNow += 10;
    EXPECT_EQ(mDevice.Heard(), 100);
    EXPECT_TRUE(mDevice.IsEmpty());
    Write(100); // heard from now on, not ten seconds ago
    EXPECT_EQ(mDevice.Heard(), 100);
    mNow += 0.0625;
    EXPECT_EQ(mDevice.Heard(), 162);
}

TEST_F(SilentDeviceTest, CountsAnewWhenItDrops) {
    Write(100);
    mDevice.Run(true);
    mNow += 0.0625;
    mDevice.Drop();
    EXPECT_EQ(mDevice.Heard(), 0);
    EXPECT_TRUE(mDevice.IsEmpty());
    Write(50);
    mNow += 1; // it stands still
    EXPECT_EQ(mDevice.Heard(), 0);
}

TEST_F(SilentDeviceTest, IsNeverLost) {
    EXPECT_FALSE(mDevice.IsLost());
}

} // namespace
} // namespace orvane::player
