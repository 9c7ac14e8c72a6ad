// A built-in visualizer in the proxy window while the window around it is minimised.
#include "plugins/PlugInMemory.h"
#include "support/TestVisualPlugIn.h"
#include "unit/shell/windows/WindowProcedures.h"

namespace orvane::tests {
namespace {

class Minimised : public WindowProcedures {
protected:
    void SetUp() override {
        WindowProcedures::SetUp();
        auto plugIn = plugins::MakePlugIn<TestVisualPlugIn>();
        mPlugIn = plugIn.get();
        server.mPlugins.push_back(std::move(plugIn));
        server.mCurrentPlugin = mPlugIn;
        ShowWindow(Window(), SW_SHOWNOACTIVATE);
        ASSERT_TRUE(mPlugIn->ActivateInWindow({ Proxy() }));
    }

    void TearDown() override { mPlugIn->Deactivate(); } // plug-ins are freed without their destructors

    // 'PULS' with a sound; the stamps of all pulses that have come to the visualizer by then.
    std::vector<std::uint32_t> Pulse(std::uint32_t stamp) {
        EXPECT_EQ(Ask(WireBuilder().Raw("PULS").U32(stamp).U32(0).Zeros(2050).Get()), kNothingToTell);
        return mPlugIn->Test()->mPulseStamps;
    }

    // What the user's or the system's menu does.
    void Command(WPARAM command) {
        PostMessageW(Window(), WM_SYSCOMMAND, command, 0);
        MSG message;
        while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }

    TestVisualPlugIn* mPlugIn = nullptr;
};

using Stamps = std::vector<std::uint32_t>;

TEST_F(Minimised, ByAPostedCommandPulsesAreDroppedUntilItIsRestored) {
    EXPECT_EQ(Pulse(1), Stamps{ 1 });
    Command(SC_MINIMIZE);
    ASSERT_TRUE(IsIconic(Window()));
    EXPECT_EQ(Pulse(2), Stamps{ 1 });
    EXPECT_EQ(Pulse(3), Stamps{ 1 });
    Command(SC_RESTORE);
    ASSERT_FALSE(IsIconic(Window()));
    EXPECT_EQ(Pulse(4), (Stamps{ 1, 4 }));
}

} // namespace
} // namespace orvane::tests
