// One call at a time into a built-in, from whichever thread.
#include "unit/plugins/internal/PlugInFixture.h"

#include <map>
#include <string>
#include <system_error>
#include <thread>

namespace orvane::plugins {
namespace {

// The lock knows its owner: taken once more in the same thread it fails, which shows who holds it.
bool ThisThreadHolds(platform::OwnedMutex& mutex) {
    try {
        mutex.lock();
    } catch (const std::system_error&) {
        return true;
    }
    mutex.unlock();
    return false;
}

class FrameLock : public PlugInFixture {};

TEST_F(FrameLock, IsHeldThroughEveryOperationThatTouchesTheVisualizer) {
    std::map<std::string, int> held, open; // calls into the visualizer
    tests::TestVisualizer::sOnCall = [&](const char* operation) {
        ++(ThisThreadHolds(mPlugIn->FrameLock()) ? held : open)[operation];
    };
    const tests::LogCapture quiet;
    Activate();
    mPlugIn->Reshape();
    mPlugIn->Draw();
    mPlugIn->Idle();
    mPlugIn->SetArtwork(nullptr, 0, 0);
    Pulse(1);
    Play();
    mPlugIn->KeyInput(1, u"h", 0);
    mPlugIn->ParkLocalizedStrings({ records::MakeLocalizedString("k", "v") });
    Activate();
    mPlugIn->Deactivate();
    tests::TestVisualizer::sOnCall = nullptr;
    EXPECT_TRUE(open.empty()) << open.begin()->first << " came without the lock";
    for (const char* operation :
         { "Start", "ReshapeRenderer", "Draw", "Idle", "SetArtwork", "AudioDataArrived", "TrackChanged",
           "HandleKeyInput", "AddHelpString", "~TestVisualizer" })
        EXPECT_GE(held[operation], 1) << operation;
    EXPECT_EQ(held["~TestVisualizer"], 2);
    EXPECT_FALSE(ThisThreadHolds(mPlugIn->FrameLock())) << "and let go behind each";
}

TEST_F(FrameLock, EachPlugInHasItsOwn) {
    const auto other = MakePlugIn<tests::TestVisualPlugIn>();
    const platform::OwnedLock frame(other->FrameLock());
    Activate(); // doesn't wait
    EXPECT_FALSE(ThisThreadHolds(mPlugIn->FrameLock()));
}

// Pulses on one thread, as the service thread sends them, and on this one all that the main thread does
// meanwhile. The sanitizers see a texture that is freed while it is drawn; here the counts must come out.
TEST_F(FrameLock, TracksArtworkDrawsAndActivationsMayComeWhileAnotherThreadPulses) {
    constexpr std::uint32_t kPulses = 400;
    constexpr int kRounds = 150;
    const tests::LogCapture quiet;
    Activate();
    platform::OwnedMutex plugInLock; // as the server has it: around a pulse, and around an activation
    std::uint32_t arrived = 0;       // guarded by the frame lock
    bool inside = false;
    int met = 0;
    tests::TestVisualizer::sOnCall = [&](const char* operation) {
        if (std::string(operation) == "AudioDataArrived") ++arrived;
        if (std::string(operation) != "TrackInfoDrawn") return;
        met += inside ? 1 : 0;
        inside = true;
        std::this_thread::yield();
        inside = false;
    };
    std::thread service([&] {
        for (std::uint32_t stamp = 1; stamp <= kPulses; ++stamp) {
            const platform::OwnedLock server(plugInLock);
            Pulse(stamp);
        }
    });
    for (int round = 0; round < kRounds; ++round) {
        Play();
        mPlugIn->Draw();
        mPlugIn->SetArtwork(nullptr, 0, 0);
        mPlugIn->Reshape();
        if (round % 50 != 49) continue;
        const platform::OwnedLock server(plugInLock);
        Activate();
    }
    service.join();
    EXPECT_EQ(arrived, kPulses)
        << "a plug-in that is activated anew has a visualizer at every moment but one";
    EXPECT_EQ(met, 0);
}

} // namespace
} // namespace orvane::plugins
