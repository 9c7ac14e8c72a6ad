#include "shell/entry/Pump.h"

#include "records/ArtworkRecord.h"
#include "shell/dispatch/ThreadMessages.h"
#include "support/LogCapture.h"
#include "unit/shell/entry/FreedBlocks.h"
#include "unit/shell/entry/RecordingOperations.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace orvane::shell {
namespace {

using tests::FreedBlocks;
using tests::RecordingOperations;
using Calls = RecordingOperations::Calls;

constexpr UINT kUnusedMessage = 32969; // between the first and the second of ours
constexpr UINT kMessageBehindOurs = 32977;

FourWords* MakeFourWords(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    auto* words = static_cast<FourWords*>(std::malloc(sizeof(FourWords)));
    *words = { { a, b, c, d } };
    return words;
}

void Handle(RecordingOperations& server, UINT number, const void* payload = nullptr) {
    MSG message = {};
    message.message = number;
    message.lParam = LPARAM(payload);
    Pump(server, nullptr).Handle(message);
}

TEST(PumpHandle, EachMessageHasItsNumber) {
    EXPECT_EQ(MESSAGE_START_VISUALIZER, 32968);
    EXPECT_EQ(MESSAGE_ACTVT_VISUALIZER, 32970);
    EXPECT_EQ(MESSAGE_SHAPE_VISUALIZER, 32971);
    EXPECT_EQ(MESSAGE_DRAWV_VISUALIZER, 32972);
    EXPECT_EQ(MESSAGE_STOPV_VISUALIZER, 32973);
    EXPECT_EQ(MESSAGE_IDLEV_VISUALIZER, 32974);
    EXPECT_EQ(MESSAGE_ARTWK_VISUALIZER, 32975);
    EXPECT_EQ(MESSAGE_DEACT_VISUALIZER, 32976);
}

TEST(PumpHandle, EachMessageWithoutAPayloadCallsItsOperation) {
    RecordingOperations server;
    for (const UINT number : { 32968u, 32972u, 32973u, 32974u, 32976u }) Handle(server, number);
    EXPECT_EQ(server.mCalls, (Calls{ "start", "draw", "stop", "idle", "deactivate" }));
}

TEST(PumpHandle, ActivateTakesFourValuesAndFreesThem) {
    RecordingOperations server;
    FreedBlocks freed;
    Handle(server, 32970, freed.Watch(MakeFourWords(1, 20, 300, 0xFFFFFFFF)));
    EXPECT_EQ(server.mCalls, (Calls{ "activate 1 20 300 4294967295" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST(PumpHandle, ActivateWithANullPayloadBehavesAsOneWithFourZeros) {
    RecordingOperations server;
    FreedBlocks freed;
    Handle(server, 32970);
    Handle(server, 32970, freed.Watch(MakeFourWords(0, 0, 0, 0)));
    EXPECT_EQ(server.mCalls, (Calls{ "activate 0 0 0 0", "activate 0 0 0 0" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST(PumpHandle, ShapeTakesFourValuesAndFreesThem) {
    RecordingOperations server;
    FreedBlocks freed;
    Handle(server, 32971, freed.Watch(MakeFourWords(5, 6, 7, 8)));
    EXPECT_EQ(server.mCalls, (Calls{ "shape 5 6 7 8" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST(PumpHandle, ArtworkIsFreedWithItsImage) {
    RecordingOperations server;
    FreedBlocks freed;
    auto* record =
        records::MakeArtworkRecord(reinterpret_cast<const std::uint8_t*>("image"), 5, 13).release();
    ASSERT_NE(record, nullptr);
    freed.Watch(record->data);
    Handle(server, 32975, freed.Watch(record));
    EXPECT_EQ(server.mCalls, (Calls{ "artwork 13 'image'" }));
    EXPECT_EQ(freed.Times(0), 1) << "the image";
    EXPECT_EQ(freed.Times(1), 1) << "the record";
}

TEST(PumpHandle, ArtworkWithoutAnImageIsFreed) {
    RecordingOperations server;
    FreedBlocks freed;
    auto* record = records::MakeArtworkRecord(nullptr, 0, 0).release();
    ASSERT_NE(record, nullptr);
    Handle(server, 32975, freed.Watch(record));
    EXPECT_EQ(server.mCalls, (Calls{ "artwork 0 'no image'" }));
    EXPECT_EQ(freed.Times(0), 1);
}

TEST(PumpHandle, AnArtworkRecordThatIsNullIsHandedOn) {
    RecordingOperations server;
    Handle(server, 32975);
    EXPECT_EQ(server.mCalls, Calls{ "artwork none" });
}

TEST(PumpHandle, AShapeThatNoClassOverridesDoesNothingButFree) {
    class Plain final : public RequestOperations {
    public:
        Plain()
            : RequestOperations(nullptr) {}

        bool Initialize(std::uint8_t) override { return true; }
    } server;

    const tests::LogCapture log;
    FreedBlocks freed;
    MSG message = {};
    message.message = MESSAGE_SHAPE_VISUALIZER;
    message.lParam = LPARAM(freed.Watch(MakeFourWords(1, 2, 3, 4)));
    Pump(server, nullptr).Handle(message);
    EXPECT_EQ(freed.Times(0), 1);
    EXPECT_EQ(log.Text(), "");
}

TEST(PumpHandle, AnUnknownThreadMessageFallsThroughHarmlessly) {
    RecordingOperations server;
    for (const UINT number : { kUnusedMessage, kMessageBehindOurs, UINT(WM_APP), 0xFFFFu, UINT(WM_NULL) })
        Handle(server, number);
    EXPECT_EQ(server.mCalls, Calls{});
}

// A window that keeps the numbers it was sent.
class Window {
public:
    Window() {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = &Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"PUMP TEST";
        RegisterClassW(&windowClass);
        sReceived.clear();
        mHandle = CreateWindowW(L"PUMP TEST", L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                windowClass.hInstance, nullptr);
    }

    ~Window() {
        DestroyWindow(mHandle);
        UnregisterClassW(L"PUMP TEST", GetModuleHandleW(nullptr));
    }

    [[nodiscard]] HWND Get() const { return mHandle; }

    [[nodiscard]] static bool Received(UINT number, WPARAM wParam) {
        for (const auto& message : sReceived)
            if (message.number == number && message.wParam == wParam) return true;
        return false;
    }

    [[nodiscard]] static bool Received(UINT number) {
        for (const auto& message : sReceived)
            if (message.number == number) return true;
        return false;
    }

private:
    struct Message {
        UINT number;
        WPARAM wParam;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
        sReceived.push_back({ number, wParam });
        if (number == WM_SYSCHAR) return 0; // no system menu in a test
        return DefWindowProcW(window, number, wParam, lParam);
    }

    static inline std::vector<Message> sReceived;
    HWND mHandle = nullptr;
};

TEST(PumpHandle, AMessageOfAWindowReachesItsProcedure) {
    RecordingOperations server;
    const Window window;
    ASSERT_NE(window.Get(), nullptr);
    MSG message = {};
    message.hwnd = window.Get();
    message.message = WM_APP;
    message.wParam = 42;
    Pump(server, nullptr).Handle(message);
    EXPECT_TRUE(Window::Received(WM_APP, 42));
    EXPECT_EQ(server.mCalls, Calls{});
}

TEST(PumpHandle, OurNumbersDecideWhateverTheWindow) {
    RecordingOperations server;
    const Window window;
    MSG message = {};
    message.hwnd = window.Get();
    message.message = MESSAGE_DRAWV_VISUALIZER;
    Pump(server, nullptr).Handle(message);
    EXPECT_EQ(server.mCalls, Calls{ "draw" });
    EXPECT_FALSE(Window::Received(MESSAGE_DRAWV_VISUALIZER));
}

// A table of one key: Alt and '/' for command 104.
class PumpKeys : public testing::Test {
protected:
    void SetUp() override {
        ACCEL key = { FALT, '/', 104 };
        mTable = CreateAcceleratorTableW(&key, 1);
        GetKeyboardState(mKeys);
    }

    void TearDown() override {
        SetKeyboardState(mKeys);
        DestroyAcceleratorTable(mTable);
    }

    void Press(HWND window, WPARAM character, bool alt) {
        BYTE keys[256] = {};
        keys[VK_MENU] = alt ? 0x80 : 0;
        SetKeyboardState(keys);
        MSG message = {};
        message.hwnd = window;
        message.message = alt ? WM_SYSCHAR : WM_CHAR;
        message.wParam = character;
        Pump(mServer, mTable).Handle(message);
    }

    static constexpr WPARAM kCommand104 = MAKEWPARAM(104, 1); // 1: from an accelerator
    RecordingOperations mServer;
    HACCEL mTable = nullptr;
    BYTE mKeys[256] = {};
};

TEST_F(PumpKeys, AnAcceleratorBecomesItsCommandAndGoesNoFurther) {
    const Window window;
    Press(window.Get(), '/', true);
    EXPECT_TRUE(Window::Received(WM_COMMAND, kCommand104));
    EXPECT_FALSE(Window::Received(WM_SYSCHAR));
}

TEST_F(PumpKeys, AnyOtherKeyReachesTheWindow) {
    const Window window;
    Press(window.Get(), 'x', true);
    Press(window.Get(), '/', false);
    EXPECT_TRUE(Window::Received(WM_SYSCHAR, 'x'));
    EXPECT_TRUE(Window::Received(WM_CHAR, '/'));
    EXPECT_FALSE(Window::Received(WM_COMMAND));
}

TEST(PumpRun, HandlesWhatIsPostedInOrderAndReturnsTheParameterOfQuit) {
    RecordingOperations server;
    FreedBlocks freed;
    const DWORD thread = GetCurrentThreadId();
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE); // makes the queue
    EXPECT_TRUE(PostThreadMessageW(thread, MESSAGE_START_VISUALIZER, 0, 0));
    EXPECT_TRUE(PostThreadMessageW(thread, kUnusedMessage, 1, 2));
    EXPECT_TRUE(PostThreadMessageW(thread, MESSAGE_ACTVT_VISUALIZER, 0,
                                   LPARAM(freed.Watch(MakeFourWords(1, 2, 3, 4)))));
    EXPECT_TRUE(PostThreadMessageW(thread, kMessageBehindOurs, 0, 0));
    EXPECT_TRUE(PostThreadMessageW(thread, MESSAGE_DRAWV_VISUALIZER, 0, 0));
    EXPECT_TRUE(PostThreadMessageW(thread, WM_QUIT, 7, 0));
    EXPECT_EQ(Pump(server, nullptr).Run(), 7);
    EXPECT_EQ(server.mCalls, (Calls{ "start", "activate 1 2 3 4", "draw" }));
    EXPECT_EQ(freed.Times(0), 1);
}

} // namespace
} // namespace orvane::shell
