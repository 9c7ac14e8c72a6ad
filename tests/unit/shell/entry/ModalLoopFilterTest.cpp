// Posted work while another loop than the pump's fetches the messages.
#include "records/ArtworkRecord.h"
#include "shell/dispatch/ThreadMessages.h"
#include "shell/entry/Pump.h"
#include "unit/shell/entry/FreedBlocks.h"
#include "unit/shell/entry/RecordingOperations.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

using tests::FreedBlocks;
using tests::RecordingOperations;
using Calls = RecordingOperations::Calls;

void Post(UINT message, const void* payload = nullptr) {
    EXPECT_TRUE(PostThreadMessageW(GetCurrentThreadId(), message, 0, LPARAM(payload)));
}

// What the loop of a window that is being dragged does with the thread's messages.
void RunModalLoop() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        if (!CallMsgFilterW(&message, MSGF_USER)) DispatchMessageW(&message);
}

class ModalLoop : public testing::Test {
protected:
    ModalLoop() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {}
    }

    RecordingOperations mServer;
    Pump mPump{ mServer, nullptr };
    bool mMustWait = false;
    const ModalLoopFilter mFilter{ mPump, [this] { return mMustWait; } };
};

TEST_F(ModalLoop, LosesNoPostedWorkAndFreesItsPayloads) {
    FreedBlocks freed;
    auto* words = MakeFourWords().release();
    auto* artwork =
        records::MakeArtworkRecord(reinterpret_cast<const std::uint8_t*>("image"), 5, 13).release();
    freed.Watch(artwork->data);
    Post(MESSAGE_START_VISUALIZER);
    Post(MESSAGE_ACTVT_VISUALIZER, freed.Watch(words));
    Post(MESSAGE_ARTWK_VISUALIZER, freed.Watch(artwork));
    Post(32969); // not ours
    Post(MESSAGE_DEACT_VISUALIZER);
    RunModalLoop();
    EXPECT_EQ(mServer.mCalls, (Calls{ "start", "activate 0 0 0 0", "artwork 13 'image'", "deactivate" }));
    for (const std::size_t block : { 0u, 1u, 2u }) EXPECT_EQ(freed.Times(block), 1) << block;
}

TEST_F(ModalLoop, WorkThatMustWaitIsKeptInItsOrderUntilTheNextThatNeedNot) {
    FreedBlocks freed;
    mMustWait = true;
    Post(MESSAGE_STOPV_VISUALIZER);
    Post(MESSAGE_ACTVT_VISUALIZER, freed.Watch(MakeFourWords().release()));
    RunModalLoop();
    EXPECT_EQ(mServer.mCalls, Calls{});
    EXPECT_EQ(freed.Times(0), 0);
    mMustWait = false;
    Post(MESSAGE_DRAWV_VISUALIZER);
    RunModalLoop();
    EXPECT_EQ(mServer.mCalls, (Calls{ "stop", "activate 0 0 0 0", "draw" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST_F(ModalLoop, KeptWorkIsDoneAsSoonAsThePumpIsBackInItsLoop) {
    mMustWait = true;
    Post(MESSAGE_STOPV_VISUALIZER);
    RunModalLoop();
    mMustWait = false;
    Post(WM_NULL); // any message: it stands for the one behind which the modal loop ran
    Post(WM_QUIT);
    EXPECT_EQ(mPump.Run(), 0);
    EXPECT_EQ(mServer.mCalls, Calls{ "stop" });
}

// A message box that a visualizer shows from its draw, say. Deactivated at once, it would lose its ground.
TEST_F(ModalLoop, WorkThatComesWhileOtherWorkIsUnderWayIsDoneBehindIt) {
    FreedBlocks freed;
    mServer.mOnDraw = [&] {
        Post(MESSAGE_ACTVT_VISUALIZER, freed.Watch(MakeFourWords().release()));
        Post(MESSAGE_DEACT_VISUALIZER);
        RunModalLoop();
        mServer.mCalls.emplace_back("end of draw");
        Post(WM_QUIT);
    };
    Post(MESSAGE_DRAWV_VISUALIZER);
    EXPECT_EQ(mPump.Run(), 0);
    EXPECT_EQ(mServer.mCalls, (Calls{ "draw", "end of draw", "activate 0 0 0 0", "deactivate" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST(ModalLoopFilter, BehindItsEndWorkIsNobodysAgain) {
    RecordingOperations server;
    Pump pump(server, nullptr);
    {
        const ModalLoopFilter filter(pump, [] { return false; });
    }
    Post(MESSAGE_DRAWV_VISUALIZER);
    RunModalLoop();
    EXPECT_EQ(server.mCalls, Calls{});
}

} // namespace
} // namespace orvane::shell
