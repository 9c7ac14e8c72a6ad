// A window server in the test's own process: real windows, two visualizers that only remember, a caption
// strip that is only written down, and requests without a pipe. The test's thread is the main thread.
#pragma once

#include "shell/server/OOPWinPipeServer.h"
#include "support/FakePlugIn.h"
#include "support/LogCapture.h"
#include "support/Wire.h"
#include "support/windows/CaptionRecorder.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tests {

using Calls = std::vector<std::string>;

// Its list holds the visualizers "One" and "Second", once, however often it is asked something.
class TestWindowServer : public shell::OOPWinPipeServer {
public:
    TestWindowServer();

    bool Initialize(std::uint8_t messageMode) override;

    // What comes behind a broken pipe. The pipe isn't made again.
    void InitializeAgain();

    using OOPWinPipeServer::mCurrentPlugin;
    using OOPWinPipeServer::mPluginLock;
    using OOPWinPipeServer::mPlugins;
    using OOPWinPipeServer::mTrackParamData;

private:
    bool mInitialized = false;
};

// The two window classes are registered with the procedures given, so that the server can be tested without
// its window procedures.
class WindowServer : public testing::Test {
protected:
    explicit WindowServer(WNDPROC topLevel = &DefWindowProcW, WNDPROC proxy = &DefWindowProcW);
    ~WindowServer() override;

    // The reply to a request; what the console said of it alone is in `said` afterwards.
    std::string Ask(const Bytes& request);

    std::string Ask(std::string_view request) { return Ask(Bytes(request.begin(), request.end())); }

    // Makes the windows, with no line left in `said` or in the console.
    void MakeWindows();

    // The next private message posted to this thread, or 0, with its payload.
    static UINT TakePosted(LPARAM* payload = nullptr);

    // The visualizer "One", or "Second", as the current one.
    void MakeCurrent(std::size_t index = 0) { server.mCurrentPlugin = server.mPlugins.at(index).get(); }

    // A track is current, its texts cut to a block each.
    void SetTrack(std::u16string_view name, std::u16string_view artist);

    [[nodiscard]] HWND Window() const { return server.TopLevelWindow(); }

    [[nodiscard]] HWND Proxy() const { return server.ProxyWindow(); }

    [[nodiscard]] std::wstring Title() const;

    static FakePlugInLog& Log(std::size_t index = 0);

    static void ClearEvents();

    std::string said;
    LogCapture console;
    CaptionRecorder& caption = RecordedCaption();
    TestWindowServer server;
};

// A rectangle as left, top, right and bottom, for messages of tests.
[[nodiscard]] std::vector<long> Values(const RECT& rect);
[[nodiscard]] RECT WindowRectOf(HWND window);
[[nodiscard]] RECT ClientRectOf(HWND window);

// How often the cursor would have to be shown to count 0.
[[nodiscard]] int CursorCount();

} // namespace orvane::tests
