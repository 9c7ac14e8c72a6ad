#include "plugins/external/FloatingPointState.h"

#include "plugins/external/ExternalVisualPlugIn.h"
#include "support/LogCapture.h"
#include "unit/plugins/external/FakeModule.h"

#include <gtest/gtest.h>

namespace orvane::plugins {
namespace {

using tests::FakeModule;
using tests::LogCapture;

constexpr std::uint32_t kFlushToZeroRoundUpDenormalsAreZero = 0x8000 | 0x4000 | 0x0040;
constexpr std::uint16_t kX87SinglePrecisionRoundDown = 0x047F; // all exceptions masked

struct ControlState {
    std::uint32_t mxcsr = _mm_getcsr();
    std::uint16_t x87 = X87();

    bool operator==(const ControlState&) const = default;

    static std::uint16_t X87() {
        std::uint16_t word = 0;
        __asm__ volatile("fnstcw %0" : "=m"(word));
        return word;
    }
};

void DisturbControlState() {
    _mm_setcsr(_mm_getcsr() | kFlushToZeroRoundUpDenormalsAreZero);
    const std::uint16_t word = kX87SinglePrecisionRoundDown;
    __asm__ volatile("fldcw %0" : : "m"(word));
}

TEST(FloatingPointState, PutsBothControlWordsBack) {
    const ControlState before;
    {
        const FloatingPointState kept;
        DisturbControlState();
        EXPECT_FALSE(ControlState() == before);
    }
    EXPECT_TRUE(ControlState() == before);
}

// A module divided by zero in the x87 unit with the exception masked, and left it pending; the host's own
// control word lets it through. Nothing may be raised when that word comes back.
TEST(FloatingPointState, APendingX87ExceptionIsDroppedAndNotRaised) {
    std::uint16_t host = 0;
    __asm__ volatile("fnstcw %0" : "=m"(host));
    const auto divisionByZeroLetThrough = std::uint16_t(host & ~0x0004);
    __asm__ volatile("fldcw %0" : : "m"(divisionByZeroLetThrough));
    {
        const FloatingPointState kept;
        __asm__ volatile("fldcw %0\n\tfld1\n\tfldz\n\tfdivrp\n\tfstp %%st(0)" : : "m"(host));
    }
    EXPECT_EQ(ControlState::X87(), divisionByZeroLetThrough);
    __asm__ volatile("fwait\n\tfldcw %0" : : "m"(host)); // would raise what was pending
}

class CallsIntoAModule : public testing::Test {
protected:
    LogCapture mLog;
    FakeModule mModule;
    PlugInOwner<ExternalVisualPlugIn> mPlugIn =
        MakePlugIn<ExternalVisualPlugIn>(u"C:\\x.dll", FakeModule::Handle());
};

TEST_F(CallsIntoAModule, TheEntryCannotChangeTheHostsFloatingPointState) {
    mModule.mOnEntry = [] {
        DisturbControlState();
        return 0;
    };
    const ControlState before;
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_TRUE(ControlState() == before);
}

TEST_F(CallsIntoAModule, TheHandlersInitCannotChangeItsOwnCallersState) {
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) {
        DisturbControlState();
        return 0;
    };
    bool kept = false;
    mModule.mOnEntry = [&] {
        const ControlState before;
        const std::int32_t status = mModule.Register(mModule.mRegistration);
        kept = ControlState() == before;
        return status;
    };
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_TRUE(kept);
}

TEST_F(CallsIntoAModule, NoMessageCanChangeTheHostsFloatingPointState) {
    mModule.mRegistration.options = 8;
    EXPECT_TRUE(mPlugIn->Initialize());
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) {
        DisturbControlState();
        return 0;
    };
    records::TrackParamObj track = {};
    const std::function<void()> operations[] = {
        [&] { mPlugIn->ActivateInWindow({}); },
        [&] { mPlugIn->Deactivate(); },
        [&] { mPlugIn->Reshape(); },
        [&] { mPlugIn->Draw(); },
        [&] { mPlugIn->Stop(); },
        [&] { mPlugIn->Idle(); },
        [&] { mPlugIn->SetArtwork(nullptr, 0, 13); },
        [&] { mPlugIn->Pulse(nullptr, 0, 1, 1); },
        [&] { mPlugIn->StartExternalVisualPlayback(&track, &track.mAudioFormat, 0, 0); },
    };
    for (const auto& operation : operations) {
        const ControlState before;
        mModule.mCalls.clear();
        operation();
        EXPECT_FALSE(mModule.mCalls.empty());
        EXPECT_TRUE(ControlState() == before) << &operation - operations;
    }
}

} // namespace
} // namespace orvane::plugins
