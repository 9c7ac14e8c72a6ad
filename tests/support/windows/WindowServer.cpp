#include "support/windows/WindowServer.h"

#include "records/PulseEvents.h"
#include "shell/dispatch/ThreadMessages.h"
#include "shell/server/WindowClassNames.h"
#include "support/windows/FedRequests.h"

namespace orvane::tests {

namespace {

FakePlugInLog sLogs[2];

template <std::size_t Index>
plugins::PlugInOwner<plugins::VisualPlugIn> Make() {
    auto plugIn = plugins::MakePlugIn<FakePlugIn>(plugins::PlugInKind::kExternal, nullptr, sLogs[Index]);
    plugIn->SetDisplayName(Index == 0 ? u"One" : u"Second");
    return plugIn;
}

constexpr shell::BuiltIn kVisualizers[] = { { &Make<0> }, { &Make<1> } };

void RegisterTestClass(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
}

// What the service loop says around a fed request.
constexpr std::string_view kConnected = "ConnectNamedPipe SetEvent returned true\n";
constexpr std::string_view kEnd = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n";

} // namespace

TestWindowServer::TestWindowServer()
    : OOPWinPipeServer(kVisualizers, FedPipeCalls(), kRecordedCaptionCalls) {
    SetMainThreadId(GetCurrentThreadId());
}

bool TestWindowServer::Initialize(std::uint8_t messageMode) {
    if (std::exchange(mInitialized, true)) return PipeServer::Initialize(messageMode);
    return OOPWinPipeServer::Initialize(messageMode);
}

void TestWindowServer::InitializeAgain() {
    OOPWinPipeServer::Initialize(1);
}

WindowServer::WindowServer(WNDPROC topLevel, WNDPROC proxy) {
    RegisterTestClass(shell::kProxyClassName, proxy);
    RegisterTestClass(shell::kTopLevelClassName, topLevel);
    ResetCaptionRecorder();
    for (auto& log : sLogs) log = {};
    ClearEvents();
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {}
}

WindowServer::~WindowServer() {
    if (server.TopLevelWindow()) DestroyWindow(server.TopLevelWindow());
    UnregisterClassW(shell::kProxyClassName, GetModuleHandleW(nullptr));
    UnregisterClassW(shell::kTopLevelClassName, GetModuleHandleW(nullptr));
    ClearEvents();
}

std::string WindowServer::Ask(const Bytes& request) {
    console.Clear();
    const auto replies = ServeRequests(server, { request });
    const std::string text = console.Text();
    const std::size_t begin = text.find(kConnected), end = text.rfind(kEnd);
    said = begin == std::string::npos || end == std::string::npos
               ? "(the request was not served)"
               : text.substr(begin + kConnected.size(), end - begin - kConnected.size());
    return replies.size() == 1 ? replies.front() : std::to_string(replies.size()) + " replies";
}

void WindowServer::MakeWindows() {
    ServeRequests(server, {});
    console.Clear();
    caption.calls.clear();
}

UINT WindowServer::TakePosted(LPARAM* payload) {
    MSG message = {};
    if (!PeekMessageW(&message, reinterpret_cast<HWND>(-1), shell::MESSAGE_START_VISUALIZER,
                      shell::MESSAGE_DEACT_VISUALIZER, PM_REMOVE))
        return 0;
    EXPECT_EQ(message.wParam, 0u);
    if (payload) *payload = message.lParam;
    return message.message;
}

void WindowServer::SetTrack(std::u16string_view name, std::u16string_view artist) {
    const auto track = records::MakeTrackParam();
    track->mTrackName.Assign(name);
    track->mTrackArtist.Assign(artist);
    server.mTrackParamData = track;
}

std::wstring WindowServer::Title() const {
    wchar_t title[4096] = {};
    GetWindowTextW(Window(), title, int(std::size(title)));
    return title;
}

FakePlugInLog& WindowServer::Log(std::size_t index) {
    return sLogs[index];
}

void WindowServer::ClearEvents() {
    records::sCloseRequested = false;
    records::trackInfoDirty = false;
    records::sKeyEventState = records::kNoKeyEvent;
    records::sKeyEventCode = 0;
    records::sKeyEventParam = 0;
}

std::vector<long> Values(const RECT& rect) {
    return { rect.left, rect.top, rect.right, rect.bottom };
}

RECT WindowRectOf(HWND window) {
    RECT rect = {};
    EXPECT_TRUE(GetWindowRect(window, &rect));
    return rect;
}

RECT ClientRectOf(HWND window) {
    RECT rect = {};
    EXPECT_TRUE(GetClientRect(window, &rect));
    return rect;
}

int CursorCount() {
    ShowCursor(TRUE);
    return ShowCursor(FALSE);
}

} // namespace orvane::tests
