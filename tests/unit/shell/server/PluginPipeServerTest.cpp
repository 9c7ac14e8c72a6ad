#include "shell/server/PluginPipeServer.h"

#include "records/ArtworkRecord.h"
#include "records/PulseEvents.h"
#include "shell/dispatch/ThreadMessages.h"
#include "support/FakePlugIn.h"
#include "support/LogCapture.h"
#include "support/windows/FedRequests.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace orvane::shell {
namespace {

using plugins::PlugInKind;
using tests::Bytes;
using tests::FakePlugIn;
using tests::FakePlugInLog;
using tests::LogCapture;
using tests::WireBuilder;
using Calls = std::vector<std::string>;

// The server with a plug-in of each kind in its list, and this thread as the main thread.
class TestServer : public PluginPipeServer {
public:
    TestServer()
        : PluginPipeServer({}, tests::FedPipeCalls()) {
        SetMainThreadId(GetCurrentThreadId());
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {}
    }

    // Its own list of plug-ins, without the plug-in folders of this machine.
    bool Initialize(std::uint8_t messageMode) override { return PipeServer::Initialize(messageMode); }

    FakePlugIn& Add(PlugInKind kind, std::u16string_view name, FakePlugInLog& log) {
        auto plugIn = plugins::MakePlugIn<FakePlugIn>(kind, nullptr, log);
        plugIn->SetDisplayName(name);
        FakePlugIn& added = *plugIn;
        mPlugins.push_back(std::move(plugIn));
        return added;
    }

    std::string Ask(const Bytes& request) {
        const auto replies = tests::ServeRequests(*this, { request });
        return replies.size() == 1 ? replies.front() : "(" + std::to_string(replies.size()) + " replies)";
    }

    std::string Ask(std::string_view request) { return Ask(Bytes(request.begin(), request.end())); }

    using PluginPipeServer::mCurrentPlugin;
    using PluginPipeServer::mPluginLock;
    using PluginPipeServer::mTrackParamData;
};

class PluginPipeServerTest : public testing::Test {
protected:
    PluginPipeServerTest() { ClearEvents(); }

    ~PluginPipeServerTest() override { ClearEvents(); }

    static void ClearEvents() {
        records::sCloseRequested = false;
        records::trackInfoDirty = false;
        records::sKeyEventState = records::kNoKeyEvent;
    }

    // The next private message posted to this thread, or 0, with its payload.
    static UINT TakePosted(LPARAM* payload = nullptr) {
        MSG message = {};
        if (!PeekMessageW(&message, nullptr, MESSAGE_START_VISUALIZER, MESSAGE_DEACT_VISUALIZER, PM_REMOVE))
            return 0;
        EXPECT_EQ(message.wParam, 0u);
        if (payload) *payload = message.lParam;
        return message.message;
    }

    void MakeCurrent() { server.mCurrentPlugin = &server.Add(PlugInKind::kExternal, u"One", log); }

    static bool Contains(const LogCapture& capture, std::string_view line) {
        return capture.Text().find(line) != std::string::npos;
    }

    FakePlugInLog log;
    TestServer server;
    const LogCapture console;
};

// What the service loop says around each fed request, so that a test can compare whole texts.
constexpr char kConnected[] =
    "ConnectNamedPipe [ERROR_PIPE_CONNECTED]\nConnectNamedPipe SetEvent returned true\n";
constexpr char kEnd[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n"
                        "CreateNamedPipe failed during initialization of the server. Error 5\n"
                        "Could not resuscitate pipe. Bailing.\n";

std::string Around(const std::string& lines) {
    return kConnected + lines + kEnd;
}

TEST_F(PluginPipeServerTest, SetCurrentPluginSaysWhichOfTheFourChangesItMakes) {
    FakePlugIn& plugIn = server.Add(PlugInKind::kExternal, u"One", log);
    server.SetCurrentPlugin(nullptr);
    server.SetCurrentPlugin(&plugIn);
    server.SetCurrentPlugin(&plugIn);
    server.SetCurrentPlugin(nullptr);
    server.SetCurrentPluginNoLock(nullptr);
    server.SetCurrentPluginNoLock(&plugIn);
    server.SetCurrentPluginNoLock(&plugIn);
    server.SetCurrentPluginNoLock(nullptr);
    const Calls expected = {
        "SetCurrentPlugin::Setting null plugin to null\n",
        "SetCurrentPlugin::Setting null plugin to valid plugin\n",
        "SetCurrentPlugin::Setting current valid plugin to valid plugin\n",
        "SetCurrentPlugin::Setting current valid plugin to null\n",
        "SetCurrentPluginNoLock::Setting null plugin to null\n",
        "SetCurrentPluginNoLock::Setting null plugin to valid plugin\n",
        "SetCurrentPluginNoLock::Setting current valid plugin to valid plugin\n",
        "SetCurrentPluginNoLock::Setting current valid plugin to null\n",
    };
    EXPECT_EQ(console.Lines(), expected);
    EXPECT_EQ(log.calls, Calls{}) << "a plug-in that is replaced isn't deactivated";
}

TEST_F(PluginPipeServerTest, ALockTakenTwiceInOneThreadRaisesAndNeverHangs) {
    const platform::OwnedLock lock(server.mPluginLock);
    EXPECT_THROW(server.SetCurrentPlugin(nullptr), std::system_error);
}

TEST_F(PluginPipeServerTest, PlainPostsReachTheMainThreadAndAreAnswered) {
    const std::pair<std::string, UINT> rows[] = {
        { "DRAW", MESSAGE_DRAWV_VISUALIZER },
        { "IDLE", MESSAGE_IDLEV_VISUALIZER },
        { "STOP", MESSAGE_STOPV_VISUALIZER },
        { "DCTV", MESSAGE_DEACT_VISUALIZER },
    };
    for (const auto& [tag, message] : rows) {
        LPARAM payload = 1;
        EXPECT_EQ(server.Ask(tag), "OK");
        EXPECT_EQ(TakePosted(&payload), message) << tag;
        EXPECT_EQ(payload, 0) << tag;
    }
}

TEST_F(PluginPipeServerTest, AFailedPostHasItsLineAndTheRequestIsStillAnswered) {
    server.SetMainThreadId(0xFFFFFFFC); // no thread has this id
    const std::pair<std::string, std::string> rows[] = {
        { "DRAW", "Could not post MESSAGE_DRAWV_VISUALIZER to main thread.\n" },
        { "IDLE", "Could not post MESSAGE_IDLEV_VISUALIZER to main thread.\n" },
        { "STOP", "Could not post MESSAGE_STOPV_VISUALIZER to main thread.\n" },
        { "DCTV", "Could not post MESSAGE_DEACT_VISUALIZER to main thread.\n" },
        { "NOAR", "Could not post MESSAGE_ARTWK_VISUALIZER to main thread.\n" },
        { "AR13image", "Could not post MESSAGE_ARTWK_VISUALIZER to main thread.\n" },
        { "RSHP0123456789abcdef", "Could not post MESSAGE_SHAPE_VISUALIZER to main thread.\n" },
    };
    for (const auto& [request, line] : rows) {
        const LogCapture lines;
        EXPECT_EQ(server.Ask(request), "OK") << request;
        EXPECT_EQ(lines.Text(), Around(line)) << request;
    }
    const LogCapture lines;
    EXPECT_EQ(server.Ask(WireBuilder().Raw("STRT").U32(0).U32(0).U32(7).U32(8).Get()), "Start");
    EXPECT_EQ(lines.Text(), Around("Could not post MESSAGE_START_VISUALIZER to main thread.\n"));
}

TEST_F(PluginPipeServerTest, ReshapePostsItsFourValues) {
    EXPECT_EQ(server.Ask(WireBuilder().Raw("RSHP").U32(1).U32(2).U32(3).U32(0xFFFFFFFF).Get()), "OK");
    LPARAM payload = 0;
    ASSERT_EQ(TakePosted(&payload), UINT(MESSAGE_SHAPE_VISUALIZER));
    auto* words = reinterpret_cast<FourWords*>(payload);
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words->values[0], 1u);
    EXPECT_EQ(words->values[1], 2u);
    EXPECT_EQ(words->values[2], 3u);
    EXPECT_EQ(words->values[3], 0xFFFFFFFFu);
    std::free(words);
}

TEST_F(PluginPipeServerTest, ArtworkIsCopiedWithItsFormat) {
    for (const std::uint32_t format : { 13u, 14u }) {
        EXPECT_EQ(server.Ask("AR" + std::to_string(format) + "JFIF"), "OK");
        LPARAM payload = 0;
        ASSERT_EQ(TakePosted(&payload), UINT(MESSAGE_ARTWK_VISUALIZER));
        const records::ArtworkOwner record(reinterpret_cast<records::ArtworkRecord*>(payload));
        EXPECT_EQ(record->format, format);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(record->data), record->size), "JFIF");
    }
}

TEST_F(PluginPipeServerTest, NoArtworkAndAnImageWithoutBytesBothPostANullImage) {
    for (const auto& [request, format] : { std::pair("NOARignored", 0u), std::pair("AR13", 13u) }) {
        EXPECT_EQ(server.Ask(request), "OK");
        LPARAM payload = 0;
        ASSERT_EQ(TakePosted(&payload), UINT(MESSAGE_ARTWK_VISUALIZER));
        const records::ArtworkOwner record(reinterpret_cast<records::ArtworkRecord*>(payload));
        EXPECT_EQ(record->data, nullptr);
        EXPECT_EQ(record->size, 0u);
        EXPECT_EQ(record->format, format);
    }
}

TEST_F(PluginPipeServerTest, APulseReachesTheCurrentPluginAsAPointerIntoTheRequest) {
    MakeCurrent();
    std::uint8_t first = 0;
    log.onPulse = [&] { first = *log.lastPointer; };
    EXPECT_EQ(server.Ask(WireBuilder().Raw("PULS").U32(77).U32(88).U8(0xAB).Zeros(2049).Get()),
              std::string(4, '\0'));
    EXPECT_EQ(log.calls, Calls{ "Pulse(2050, 77, 88)" });
    EXPECT_EQ(first, 0xAB);
}

TEST_F(PluginPipeServerTest, APulseShorterThanItsHeaderHandsOnALengthOfZero) {
    MakeCurrent();
    server.Ask(WireBuilder().Raw("PULS").U32(5).U32(6).Zeros(100).Get());
    for (std::size_t length = 4; length <= 12; ++length) {
        log.calls.clear();
        Bytes request = WireBuilder().Raw("PULS").U32(77).U32(88).Get();
        request.resize(length);
        EXPECT_EQ(server.Ask(request), std::string(4, '\0'));
        // A field that didn't come is 0, not what an earlier pulse left in the buffer.
        const std::string stamp = length < 8 ? "0" : "77", position = length < 12 ? "0" : "88";
        EXPECT_EQ(log.calls, Calls{ "Pulse(0, " + stamp + ", " + position + ")" }) << length;
    }
}

TEST_F(PluginPipeServerTest, APulseWithNoCurrentPluginStillAnswersAndStillDeliversPendingEvents) {
    EXPECT_EQ(server.Ask("PULS"), std::string(4, '\0'));
    records::sCloseRequested = true;
    EXPECT_EQ(server.Ask("PULS"), std::string("\0\0\0\0WSLC", 8));
    EXPECT_EQ(server.Ask("PULS"), std::string(4, '\0'));
}

TEST_F(PluginPipeServerTest, WithCloseAndKeyPendingTheCloseComesFirstAndTheKeyNext) {
    records::sKeyEventState = records::kCharacterLeftOver;
    records::sKeyEventCode = 0x61;
    records::sKeyEventParam = 0x1E0001;
    records::sCloseRequested = true;
    const auto replies =
        tests::ServeRequests(server, { WireBuilder().Raw("PULS").Get(), WireBuilder().Raw("PULS").Get(),
                                       WireBuilder().Raw("PULS").Get() });
    ASSERT_EQ(replies.size(), 3u);
    EXPECT_EQ(replies[0], std::string("\0\0\0\0WSLC", 8));
    EXPECT_EQ(replies[1], tests::AsText(WireBuilder().U32(0).Raw("CYEK").U32(0x61).U32(0x1E0001).Get()));
    EXPECT_EQ(replies[2], std::string(4, '\0'));
}

TEST_F(PluginPipeServerTest, APulseHoldsTheLockAndTheReplyComesAfterItsRelease) {
    MakeCurrent();
    bool raised = false;
    log.onPulse = [&] {
        try {
            server.SetCurrentPlugin(nullptr);
        } catch (const std::system_error&) {
            raised = true;
        }
    };
    EXPECT_EQ(server.Ask("PULS"), std::string(4, '\0'));
    EXPECT_TRUE(raised);
    EXPECT_NO_THROW(server.SetCurrentPlugin(nullptr));
}

TEST_F(PluginPipeServerTest, DrawIdleAndStartRunWhileThePulseHoldsTheLock) {
    MakeCurrent();
    server.mTrackParamData = records::MakeTrackParam();
    std::atomic<bool> inPulse = false, go = false;
    log.onPulse = [&] {
        inPulse = true;
        while (!go) std::this_thread::yield();
    };
    std::thread service([&] { server.Ask("PULS"); });
    while (!inPulse) std::this_thread::yield();
    server.DrawVisualizerInMainThread();
    server.IdleVisualizerInMainThread();
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(log.calls,
              (Calls{ "Pulse(0, 0, 0)", "Draw()", "Idle()", "StartExternalVisualPlayback(, 0, 0, 0)" }));
    go = true;
    service.join();
}

TEST_F(PluginPipeServerTest, StopAndArtworkWaitForThePulseToEnd) {
    MakeCurrent();
    std::atomic<bool> inPulse = false, go = false;
    log.onPulse = [&] {
        inPulse = true;
        while (!go) std::this_thread::yield();
    };
    std::thread service([&] { server.Ask("PULS"); });
    while (!inPulse) std::this_thread::yield();
    std::atomic<bool> stopped = false;
    std::thread main([&] {
        server.StopVisualizerInMainThread();
        stopped = true;
    });
    Sleep(50);
    EXPECT_FALSE(stopped);
    go = true;
    service.join();
    main.join();
    EXPECT_EQ(log.calls, (Calls{ "Pulse(0, 0, 0)", "Stop()" }));
}

TEST_F(PluginPipeServerTest, KeysFromThePlayerReachThePluginAndItsAnswerIsDropped) {
    MakeCurrent();
    log.keyResult = false;
    char16_t seen = 0;
    EXPECT_EQ(server.Ask(WireBuilder().Raw("KEYI").U32(9).U32(1).U16(u'x').Get()), "OK");
    EXPECT_EQ(log.calls, Calls{ "KeyInput(1, 9)" });
    std::memcpy(&seen, log.lastPointer, sizeof(seen));
    EXPECT_EQ(seen, u'x');
    EXPECT_EQ(records::sKeyEventState, records::kNoKeyEvent)
        << "a key from the player is never relayed back to it";
    EXPECT_EQ(console.Text(), Around(""));
}

TEST_F(PluginPipeServerTest, AKeyCountBeyondTheBufferIsCutAtTheBuffersEnd) {
    MakeCurrent();
    EXPECT_EQ(server.Ask(WireBuilder().Raw("KEYI").U32(0).U32(0xFFFFFFFF).Get()), "OK");
    EXPECT_EQ(log.calls, Calls{ "KeyInput(524282, 0)" }); // (1,048,576 - 12) / 2
}

TEST_F(PluginPipeServerTest, KeysWithNoCurrentPluginAreAnsweredAfterTheirLine) {
    EXPECT_EQ(server.Ask(WireBuilder().Raw("KEYI").U32(0).U32(1).U16(u'x').Get()), "OK");
    EXPECT_EQ(console.Text(), Around("Current plugin is null. Cannot take key input\n"));
}

TEST_F(PluginPipeServerTest, StartTakesTheTrackAndPostsItsStart) {
    EXPECT_EQ(server.Ask(WireBuilder().Raw("STRT").Raw(tests::AsText(tests::SampleTrackBlock())).Get()),
              "Start");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_START_VISUALIZER));
    const records::TrackParamRef track = server.mTrackParamData;
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->mTrackName.View(), u"Name");
    EXPECT_EQ(track->mTrackStartA, -5);
}

TEST_F(PluginPipeServerTest, StartWhoseKeyIsWrongStillAnswersStartAndStillStartsAZeroedTrack) {
    EXPECT_EQ(server.Ask(WireBuilder().Raw("STRT").Raw("TINF").Raw("AUFM").U32(7).U32(8).Get()), "Start");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_START_VISUALIZER));
    const records::TrackParamRef track = server.mTrackParamData;
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->mTrackName.count, 0);
    EXPECT_EQ(track->mTrackStartA, 7);
    EXPECT_EQ(track->mTrackStartB, 8u);
}

TEST_F(PluginPipeServerTest, AFailedTrackStaysCurrent) {
    Bytes request = WireBuilder().Raw("STRT").Raw(tests::AsText(tests::SampleTrackBlock())).Get();
    request.pop_back();
    EXPECT_EQ(server.Ask(request), "Start");
    EXPECT_EQ(TakePosted(), 0u);
    const records::TrackParamRef track = server.mTrackParamData;
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->mTrackName.View(), u"Name");
}

TEST_F(PluginPipeServerTest, StartingATrackNeedsAPluginAndATrack) {
    constexpr char kCalled[] = "PluginPipeServer::StartVisualizerWithTrackParam called\n";
    constexpr char kNull[] =
        "PluginPipeServer::StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n";
    server.StartVisualizerWithTrackParam();
    MakeCurrent();
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(console.Text(), std::string(kCalled) + kNull + kCalled + kNull);
    EXPECT_EQ(log.calls, Calls{});
    server.Ask(WireBuilder().Raw("STRT").Raw(tests::AsText(tests::SampleTrackBlock())).Get());
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(log.calls, Calls{ "StartExternalVisualPlayback(Name, 8192, -5, 4144)" });
}

TEST_F(PluginPipeServerTest, StopFollowedByDrawCallsBothOnTheSamePluginAndTheTrackIsGone) {
    MakeCurrent();
    server.mTrackParamData = records::MakeTrackParam();
    server.StopVisualizerInMainThread();
    server.DrawVisualizerInMainThread();
    EXPECT_EQ(log.calls, (Calls{ "Stop()", "Draw()" }));
    EXPECT_EQ(server.mTrackParamData.load(), nullptr);
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(log.calls.size(), 2u) << "no playback starts without a track";
}

TEST_F(PluginPipeServerTest, ANewTrackReplacesTheOldOneWithoutAnyStop) {
    MakeCurrent();
    const Bytes request = WireBuilder().Raw("STRT").Raw(tests::AsText(tests::SampleTrackBlock())).Get();
    server.Ask(request);
    const records::TrackParamRef first = server.mTrackParamData;
    server.Ask(request);
    EXPECT_NE(first, server.mTrackParamData.load());
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(PluginPipeServerTest, MainThreadOperationsWithoutAPluginHaveTheirLinesOrNone) {
    const auto record = records::MakeArtworkRecord(nullptr, 0, 13);
    server.DrawVisualizerInMainThread();
    server.StopVisualizerInMainThread();
    EXPECT_EQ(console.Text(), "");
    server.IdleVisualizerInMainThread();
    server.SetArtworkInMainThread(record.get());
    server.DeactivateCurrentPlugin();
    EXPECT_EQ(console.Text(), "Current plugin is null. Cannot idle\n"
                              "SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n"
                              "Current plugin is null. Cannot deactivate\n");
}

TEST_F(PluginPipeServerTest, MainThreadOperationsReachThePlugin) {
    MakeCurrent();
    const std::uint8_t image[] = { 1, 2, 3 };
    const auto record = records::MakeArtworkRecord(image, 3, 14);
    server.DrawVisualizerInMainThread();
    server.IdleVisualizerInMainThread();
    server.SetArtworkInMainThread(record.get());
    server.DeactivateCurrentPlugin();
    EXPECT_EQ(log.calls, (Calls{ "Draw()", "Idle()", "SetArtwork(image, 3, 14)", "Deactivate()" }));
    EXPECT_EQ(console.Text(), "");
}

TEST_F(PluginPipeServerTest, OperationsOfTheWindowsAreSaidToWantOverriding) {
    server.ResizeRenderTarget(1, 2);
    EXPECT_FALSE(server.HandleKey('a', 0));
    server.ToggleFullScreen();
    EXPECT_EQ(console.Text(), "PluginPipeServer::ResizeRenderTarget override me\n"
                              "HandleKey: override me\n"
                              "ToggleFullScreen: override me\n");
}

TEST_F(PluginPipeServerTest, AnEmptyListIsParkedWithZephorAlone) {
    FakePlugInLog zephor, quellspire, external;
    server.Add(PlugInKind::kQuellspire, u"", quellspire);
    server.Add(PlugInKind::kZephor, u"", zephor);
    server.Add(PlugInKind::kExternal, u"", external);
    const std::string reply = server.Ask("UPVM");
    EXPECT_EQ(reply.substr(0, 4), std::string("\0\0\0\3", 4));
    EXPECT_EQ(console.Text(), Around("No localized strings to park with Quellspire.\n"));
    EXPECT_EQ(zephor.calls, Calls{ "ParkLocalizedStrings(0)" });
    EXPECT_EQ(quellspire.calls, Calls{});
    EXPECT_EQ(external.calls, Calls{});
}

TEST_F(PluginPipeServerTest, TheListShowsTheTitleThatCameWithTheSameRequest) {
    FakePlugInLog quellspire;
    server.Add(PlugInKind::kQuellspire, u"old", quellspire);
    const std::string reply = server.Ask("UPVMQ\x02<help><h><Particles><>");
    EXPECT_EQ(quellspire.calls, Calls{ "ParkLocalizedStrings(2)" });
    const std::string name("\0\x09\0P\0a\0r\0t\0i\0c\0l\0e\0s", 20);
    EXPECT_NE(reply.find(name), std::string::npos);
}

TEST_F(PluginPipeServerTest, MoveVisualizerStillAnswersAndPrintsItsLine) {
    EXPECT_EQ(server.Ask("MOVW"), "OK");
    EXPECT_EQ(console.Text(), Around("MoveVisualizer override me\n"));
}

} // namespace
} // namespace orvane::shell
