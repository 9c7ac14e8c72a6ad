// The sound devices of the machine that the tests run on, if it has any: both cases are told apart by the system's own
// answer, and each has something to hold to.
#include "player/sound/windows/ComApartment.h"
#include "player/sound/windows/WasapiCapture.h"
#include "player/sound/windows/WasapiDevice.h"
#include "support/windows/SoundDevices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace orvane::player {
namespace {

using tests::HasDefaultDevice;

constexpr std::uint32_t kRate = 44100;
constexpr std::chrono::seconds kPatience{ 30 };

template <typename Condition>
bool WaitUntil(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        Sleep(1);
    }
    return true;
}

class WasapiTest : public testing::Test {
protected:
    const ComApartment mApartment;
};

TEST_F(WasapiTest, PlaysWhereThereIsADevice) {
    const auto device = MakeWasapiDevice();
    ASSERT_EQ(device->Open(kRate), HasDefaultDevice(eRender));
    if (!HasDefaultDevice(eRender)) return;
    EXPECT_TRUE(device->IsEmpty());
    EXPECT_EQ(device->Heard(), 0);
    ASSERT_GT(device->Room(), kRate / 10);
    device->Write(std::vector<StereoFrame>(kRate / 10)); // a tenth of a second of silence
    EXPECT_FALSE(device->IsEmpty());
    Sleep(50);
    EXPECT_EQ(device->Heard(), 0); // it doesn't run yet
    device->Run(true);
    EXPECT_TRUE(WaitUntil([&] { return device->IsEmpty(); }));
    EXPECT_TRUE(WaitUntil([&] { return device->Heard() > kRate / 20; }));
    EXPECT_LE(device->Heard(), kRate / 10);
    EXPECT_FALSE(device->IsLost());
    device->Drop();
    EXPECT_EQ(device->Heard(), 0);
    EXPECT_TRUE(device->IsEmpty());
}

// A track of another rate comes: the device is opened again, and counts from its beginning.
TEST_F(WasapiTest, OpensAgainAtAnotherRate) {
    const auto device = MakeWasapiDevice();
    for (const std::uint32_t rate : { 22050u, 48000u }) {
        ASSERT_EQ(device->Open(rate), HasDefaultDevice(eRender)) << rate;
        if (!HasDefaultDevice(eRender)) continue;
        device->Write(std::vector<StereoFrame>(rate / 10));
        device->Run(true);
        EXPECT_TRUE(WaitUntil([&] { return device->Heard() > rate / 20; })) << rate;
        EXPECT_LE(device->Heard(), rate / 10) << rate;
    }
}

TEST_F(WasapiTest, RecordsWhereThereIsADevice) {
    const auto capture = OpenWasapiCapture(CaptureFrom::kInput);
    ASSERT_EQ(capture != nullptr, HasDefaultDevice(eCapture));
    if (!capture) return;
    EXPECT_GE(capture->Rate(), 8000u);
    std::size_t came = 0;
    std::vector<StereoFrame> frames(1000);
    EXPECT_TRUE(WaitUntil([&] { return (came += capture->Read(frames)) > capture->Rate() / 10; }));
    EXPECT_FALSE(capture->IsLost());
}

// Silence that is played is handed out as well; a system that hands out nothing has said so.
TEST_F(WasapiTest, ListensToTheOutputAsFarAsTheSystemLetsIt) {
    const auto capture = OpenWasapiCapture(CaptureFrom::kOutput);
    ASSERT_EQ(capture != nullptr, HasDefaultDevice(eRender));
    if (!capture) return;
    EXPECT_GE(capture->Rate(), 8000u);
    const auto device = MakeWasapiDevice();
    ASSERT_TRUE(device->Open(kRate));
    device->Write(std::vector<StereoFrame>(std::min<std::size_t>(device->Room(), kRate / 5)));
    device->Run(true);
    std::size_t came = 0;
    std::vector<StereoFrame> frames(1000);
    EXPECT_TRUE(WaitUntil([&] { return (came += capture->Read(frames)) > 0 || device->IsEmpty(); }));
    EXPECT_EQ(came == 0, capture->IsDeaf());
    EXPECT_FALSE(capture->IsLost());
}

} // namespace
} // namespace orvane::player
