// Selecting a visualizer by name: 'SWSV' and 'ACTV'.
#include "shell/dispatch/ThreadMessages.h"
#include "support/windows/WindowServer.h"

#include <atomic>
#include <thread>

namespace orvane::tests {
namespace {

using namespace shell;
using OOPWinPipeServer = WindowServer;

constexpr char kShowAndSelect[] =
    "OOPWinPipeServer ShowVisualizerWindowAndSelectVisualizer (and place on top of Z order)\n";

Bytes Selection(std::u16string_view name) {
    return WireBuilder().Raw("SWSV").String(name).U8(7).Get();
}

Bytes Activation(std::u16string_view name) {
    return WireBuilder().Raw("ACTV").String(name).Get();
}

// The payload of an activation that was posted, freed.
void ExpectFourZeros(LPARAM payload) {
    const FourWordsOwner words(reinterpret_cast<FourWords*>(payload));
    ASSERT_NE(words, nullptr);
    for (const auto value : words->values) EXPECT_EQ(value, 0u);
}

TEST_F(OOPWinPipeServer, SelectionShowsTheWindowAndPostsAnActivationOfFourZeros) {
    EXPECT_EQ(Ask(Selection(u"Second")), "OK");
    EXPECT_EQ(said, std::string(kShowAndSelect) +
                        "NameIs: inNameLength(6) != mName[0] (0)\n"
                        "OOPWinPipeServer::found visualizer to activate\n"
                        "SetCurrentPluginNoLock::Setting null plugin to valid plugin\n");
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(server.mCurrentPlugin, server.mPlugins[1].get());
    LPARAM payload = 0;
    EXPECT_EQ(TakePosted(&payload), UINT(MESSAGE_ACTVT_VISUALIZER));
    ExpectFourZeros(payload);
    EXPECT_EQ(TakePosted(), 0u);
    EXPECT_EQ(Log(1).calls, Calls{}) << "nothing of it runs on the service thread";
}

TEST_F(OOPWinPipeServer, SelectionOfAnUnknownNameShowsTheWindowLeavesNoVisualizerAndPostsNothing) {
    MakeWindows();
    MakeCurrent();
    EXPECT_EQ(Ask(Selection(u"Nobody")), "OK");
    EXPECT_EQ(said, std::string(kShowAndSelect) +
                        "NameIs: inNameLength(6) != mName[0] (0)\n"
                        "OOPWinPipeServer:Could not find visualizer to activate\n"
                        "SetCurrentPluginNoLock::Setting current valid plugin to null\n");
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(server.mCurrentPlugin, nullptr);
    EXPECT_EQ(TakePosted(), 0u);
    EXPECT_EQ(Log().calls, Calls{}) << "the one that was current isn't deactivated";
}

TEST_F(OOPWinPipeServer, SelectionFromAnEmptyListSaysThatDiscoveryIsNotDone) {
    MakeWindows();
    server.mPlugins.clear();
    EXPECT_EQ(Ask(Selection(u"One")), "OK");
    EXPECT_EQ(said,
              std::string(kShowAndSelect) +
                  "List of plugins is empty at a time when we want to select a visualizer:plugin discovery "
                  "has not completed.\n"
                  "OOPWinPipeServer:Could not find visualizer to activate\n"
                  "SetCurrentPluginNoLock::Setting null plugin to null\n");
    EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(OOPWinPipeServer, AnEmptyNameIsAnsweredWithADumpAndNothingElseHappens) {
    MakeWindows();
    MakeCurrent();
    EXPECT_EQ(Ask(Selection(u"")), "OK");
    EXPECT_EQ(said,
              std::string(kShowAndSelect) +
                  "OOPWinPipeServer::ShowVisualizerWindowAndSelectVisualizer: visualizer name is empty... "
                  "dumping input buffer.\n"
                  "DumpDataAsHex:  data is\"53575356" // SWSV
                  "20525453000007" +                  // the key, no units, the byte behind it
                  std::string(2 * (64 - 11), '0') +
                  "\"\n");
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_NE(server.mCurrentPlugin, nullptr);
    EXPECT_EQ(TakePosted(), 0u);
}

TEST_F(OOPWinPipeServer, SelectionWithoutAWindowHasItsLineAndSelectsNothing) {
    UnregisterClassW(L"ORVANE OOPWIND", GetModuleHandleW(nullptr));
    EXPECT_EQ(Ask(Selection(u"One")), "OK");
    EXPECT_EQ(said, std::string(kShowAndSelect) + "OOPWinPipeServer ShowVisualizerWindow: no mOOPWind\n");
    EXPECT_EQ(server.mCurrentPlugin, nullptr);
    EXPECT_EQ(TakePosted(), 0u);
}

TEST_F(OOPWinPipeServer, SelectionWithoutTheByteBehindTheNameGoesOn) {
    EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(u"One").Get()), "OK");
    EXPECT_EQ(said, std::string(kShowAndSelect) +
                        "Buffer underflow reading uint8_t"
                        "OOPWinPipeServer::found visualizer to activate\n"
                        "SetCurrentPluginNoLock::Setting null plugin to valid plugin\n");
}

TEST_F(OOPWinPipeServer, SelectionPostsTheStartInFrontOfTheActivation) {
    EXPECT_EQ(
        Ask(WireBuilder().Raw("SWSV").String(u"One").U8(0).Raw("TALF").Raw(AsText(SampleTrackBlock())).Get()),
        "OK");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_START_VISUALIZER));
    LPARAM payload = 0;
    EXPECT_EQ(TakePosted(&payload), UINT(MESSAGE_ACTVT_VISUALIZER));
    ExpectFourZeros(payload);
    EXPECT_EQ(TakePosted(), 0u);
    const records::TrackParamRef track = server.mTrackParamData;
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->mTrackName.View(), u"Name");
}

TEST_F(OOPWinPipeServer, SelectionOfAnUnknownNameTakesItsTrackAllTheSame) {
    EXPECT_EQ(Ask(WireBuilder()
                      .Raw("SWSV")
                      .String(u"Nobody")
                      .U8(0)
                      .Raw("TALF")
                      .Raw(AsText(SampleTrackBlock()))
                      .Get()),
              "OK");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_START_VISUALIZER));
    EXPECT_EQ(TakePosted(), 0u);
}

TEST_F(OOPWinPipeServer, AnotherMarkerOrTooFewBytesAreNoTrack) {
    for (const auto& tail : { "FLAT" + AsText(SampleTrackBlock()), std::string("TALF") }) {
        SCOPED_TRACE(tail.size());
        EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(u"One").U8(0).Raw(tail).Get()), "OK");
        LPARAM payload = 0;
        EXPECT_EQ(TakePosted(&payload), UINT(MESSAGE_ACTVT_VISUALIZER));
        ExpectFourZeros(payload);
        EXPECT_EQ(server.mTrackParamData.load(), nullptr);
    }
}

TEST_F(OOPWinPipeServer, ATrackThatFailsStaysCurrentAndIsNotStarted) {
    const std::string block = AsText(SampleTrackBlock());
    EXPECT_EQ(Ask(WireBuilder()
                      .Raw("SWSV")
                      .String(u"One")
                      .U8(0)
                      .Raw("TALF")
                      .Raw(block.substr(0, block.size() - 1))
                      .Get()),
              "OK");
    LPARAM payload = 0;
    EXPECT_EQ(TakePosted(&payload), UINT(MESSAGE_ACTVT_VISUALIZER));
    ExpectFourZeros(payload);
    EXPECT_EQ(server.mTrackParamData.load()->mTrackName.View(), u"Name");
}

TEST_F(OOPWinPipeServer, PostsThatFailHaveTheirLinesAndTheRequestIsAnswered) {
    server.SetMainThreadId(0xFFFFFFFC); // no thread has this id
    EXPECT_EQ(
        Ask(WireBuilder().Raw("SWSV").String(u"One").U8(0).Raw("TALF").Raw(AsText(SampleTrackBlock())).Get()),
        "OK");
    EXPECT_EQ(said, std::string(kShowAndSelect) +
                        "OOPWinPipeServer::found visualizer to activate\n"
                        "SetCurrentPluginNoLock::Setting null plugin to valid plugin\n"
                        "Could not post MESSAGE_START_VISUALIZER to main thread.\n"
                        "OOPWinPipeServer: Could not post MESSAGE_ACTVT_VISUALIZER to main thread.\n");
    EXPECT_EQ(Ask(Activation(u"One")), "PRXY") << "this post isn't looked at";
    EXPECT_EQ(said, "OOPWinPipeServer::ActivateVisualizer called\n"
                    "OOPWinPipeServer::ActivateVisualizer::-found visualizer to activate\n"
                    "SetCurrentPlugin::Setting current valid plugin to valid plugin\n");
}

// A key is being handled on another thread and holds the lock; the window must come up meanwhile. Its
// thread might be the one that waits for the lock.
TEST_F(OOPWinPipeServer, SelectionShowsTheWindowBeforeItWaitsForTheLock) {
    MakeWindows();
    MakeCurrent();
    std::atomic<bool> inKey = false, goOn = false;
    Log().onKeyInput = [&] {
        inKey = true;
        while (!goOn) Sleep(1);
    };
    std::thread key([&] { server.HandleKey(u'k', 0); });
    while (!inKey) Sleep(1);
    std::string reply;
    std::atomic<bool> answered = false;
    std::thread service([&] {
        reply = Ask(Selection(u"Second"));
        answered = true;
    });
    const ULONGLONG end = GetTickCount64() + 30000;
    MSG message;
    while (!IsWindowVisible(Window()) && GetTickCount64() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_FALSE(goOn);
    goOn = true;
    key.join();
    while (!answered) { // raising the window may still wait for this thread
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    service.join();
    EXPECT_EQ(reply, "OK");
}

TEST_F(OOPWinPipeServer, ActivationOfAKnownNameIsAnsweredWithTheProxy) {
    EXPECT_EQ(Ask(Activation(u"One")), "PRXY");
    EXPECT_EQ(said, "OOPWinPipeServer::ActivateVisualizer called\n"
                    "OOPWinPipeServer::ActivateVisualizer::-found visualizer to activate\n"
                    "SetCurrentPlugin::Setting null plugin to valid plugin\n");
    EXPECT_EQ(server.mCurrentPlugin, server.mPlugins[0].get());
    LPARAM payload = 1;
    EXPECT_EQ(TakePosted(&payload), UINT(MESSAGE_ACTVT_VISUALIZER));
    EXPECT_EQ(payload, 0);
    EXPECT_FALSE(IsWindowVisible(Window())) << "it shows nothing";
}

TEST_F(OOPWinPipeServer, ActivationOfAnUnknownNameFailsAndLeavesNoVisualizer) {
    MakeWindows();
    MakeCurrent();
    EXPECT_EQ(Ask(Activation(u"one")), "FAIL");
    EXPECT_EQ(said, "OOPWinPipeServer::ActivateVisualizer called\n"
                    "NameIs: inNameLength(3) != mName[0] (0)\n" // against "Second"
                    "OOPWinPipeServer::Could not find visualizer to activate\n"
                    "SetCurrentPlugin::Setting current valid plugin to null\n");
    EXPECT_EQ(server.mCurrentPlugin, nullptr);
    EXPECT_EQ(TakePosted(), 0u);

    server.mPlugins.clear();
    EXPECT_EQ(Ask(Activation(u"One")), "FAIL");
    EXPECT_EQ(said, "OOPWinPipeServer::ActivateVisualizer called\n"
                    "OOPWinPipeServer::Could not find visualizer to activate\n"
                    "SetCurrentPlugin::Setting null plugin to null\n");
}

TEST_F(OOPWinPipeServer, ActivationChecksNeitherKeyNorBounds) {
    EXPECT_EQ(Ask(WireBuilder().Raw("ACTVxxxx").U16(3).U16('O').U16('n').U16('e').Get()), "PRXY");
    // The name is still in the buffer.
    EXPECT_EQ(Ask(WireBuilder().Raw("ACTV").Get()), "PRXY");
    // A count that no name has looks at no unit at all.
    EXPECT_EQ(Ask(WireBuilder().Raw("ACTVxxxx").U16(0xFFFF).Get()), "FAIL");
    EXPECT_EQ(Ask(WireBuilder().Raw("ACTVxxxx").U16(0).Get()), "FAIL");
    EXPECT_EQ(said, "OOPWinPipeServer::ActivateVisualizer called\n"
                    "NameIs: inNameLength is 0\n"
                    "NameIs: inNameLength is 0\n"
                    "OOPWinPipeServer::Could not find visualizer to activate\n"
                    "SetCurrentPlugin::Setting null plugin to null\n");
}

} // namespace
} // namespace orvane::tests
