#include "shell/server/OOPWinPipeServer.h"

#include "platform/LogLine.h"
#include "render/IBitMap2D.h"
#include "render/IRenderer2D.h"
#include "shell/dispatch/ThreadMessages.h"
#include "shell/protocol/Replies.h"
#include "shell/protocol/Requests.h"
#include "shell/protocol/SelectRequest.h"
#include "shell/server/WindowClassNames.h"
#include "shell/server/WindowGeometry.h"
#include "shell/wire/DumpDataAsHex.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvane::shell {

using platform::LogLine;
using platform::OwnedLock;
using plugins::VisualPlugIn;

namespace {

constexpr UINT kKeepPlaceAndPicture = SWP_NOSIZE | SWP_NOMOVE | SWP_NOREDRAW;
static_assert(kKeepPlaceAndPicture == 11);
static_assert(WS_EX_TOOLWINDOW == 128 && DWORD(WS_POPUP) == 0x80000000 &&
              (WS_CHILD | WS_VISIBLE) == 0x50000000);

constexpr char kNoWindow[] = "OOPWinPipeServer ShowVisualizerWindow: no mOOPWind\n";

} // namespace

OOPWinPipeServer::OOPWinPipeServer(std::span<const BuiltIn> builtIns, const PipeCalls& calls,
                                   const CaptionCalls& captionCalls)
    : PluginPipeServer(builtIns, calls)
    , mCaptionCalls(captionCalls) {}

OOPWinPipeServer::~OOPWinPipeServer() {
    ReleaseRenderTargetAndIcons();
}

bool OOPWinPipeServer::Initialize(std::uint8_t messageMode) {
    if (!mOOPWind) CreateTopLevelWindow();
    if (!mOOPWind) {
        LogLine("OOPWinPipeServer::Could not create an OOP window.\n");
        return PluginPipeServer::Initialize(messageMode);
    }
    SetWindowTextW(mOOPWind, L"Orvane");
    CreateRenderTargetAndIcons();
    if (!mProxyWind) CreateProxyWindow();
    if (!mProxyWind) LogLine("OOPWinPipeServer::Could not create a visualizer window.\n");
    InvalidateStrip(); // behind a broken pipe it still shows the last client's title, by the old target
    return PluginPipeServer::Initialize(messageMode);
}

void OOPWinPipeServer::CreateTopLevelWindow() {
    RECT desktop = {};
    GetWindowRect(GetDesktopWindow(), &desktop);
    const int x = int(desktop.right - desktop.left - kInitialWidth) / 2;
    const int y = int(desktop.bottom - desktop.top - kInitialHeight) / 2;
    mOOPWind =
        CreateWindowExW(WS_EX_TOOLWINDOW, kTopLevelClassName, L"Orvane OOP Window", WS_POPUP, x, y,
                        kInitialWidth, kInitialHeight, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (mOOPWind) UpdateWindow(mOOPWind);
}

void OOPWinPipeServer::CreateProxyWindow() {
    RECT client = {};
    GetClientRect(mOOPWind, &client);
    mProxyWind = CreateWindowExW(0, kProxyClassName, L"Orvane Visualizer", WS_CHILD | WS_VISIBLE, kBorder,
                                 kBorder + kCaptionHeight, int(client.right - client.left) - 2 * kBorder,
                                 int(client.bottom - client.top) - kCaptionHeight - 2 * kBorder, mOOPWind,
                                 nullptr, GetModuleHandleW(nullptr), this);
}

void OOPWinPipeServer::ShowOnTop() {
    ShowWindow(mOOPWind, SW_SHOW);
    SetWindowPos(mOOPWind, HWND_TOP, 0, 0, 0, 0, kKeepPlaceAndPicture);
}

bool OOPWinPipeServer::ShowVisualizerWindow() {
    LogLine("OOPWinPipeServer ShowVisualizerWindow (and place on top of Z order)\n");
    if (mOOPWind)
        ShowOnTop();
    else
        LogLine(kNoWindow);
    return Answer(replies::kOk);
}

bool OOPWinPipeServer::HideVisualizerWindow() {
    LogLine("OOPWinPipeServer HideVisualizerWindow\n");
    if (mOOPWind) {
        SetWindowPos(mOOPWind, HWND_TOP, 0, 0, 0, 0, kKeepPlaceAndPicture);
        ShowWindow(mOOPWind, SW_HIDE);
    }
    return DeactivateVisualizer();
}

VisualPlugIn* OOPWinPipeServer::FindPlugin(const char16_t* name, std::uint16_t length) const {
    const auto found = std::find_if(mPlugins.begin(), mPlugins.end(),
                                    [&](const auto& plugin) { return plugin->NameIs(name, length); });
    return found == mPlugins.end() ? nullptr : found->get();
}

bool OOPWinPipeServer::ShowVisualizerWindowAndSelectVisualizer() {
    LogLine("OOPWinPipeServer ShowVisualizerWindowAndSelectVisualizer (and place on top of Z order)\n");
    BufferReader reader = PayloadReader();
    records::StringBlock name;
    ReadVisualizerName(reader, name);
    if (name.count == 0) {
        LogLine("OOPWinPipeServer::ShowVisualizerWindowAndSelectVisualizer: visualizer name is empty... "
                "dumping input buffer.\n");
        DumpDataAsHex(Exchange().Input());
        return Answer(replies::kOk);
    }
    SkipSelectionByte(reader);
    if (!mOOPWind) {
        LogLine(kNoWindow);
        return Answer(replies::kOk);
    }

    // Before the lock and not under it: showing and raising waits for the window's own thread, and that one
    // may be waiting for the lock, in a key or a resize. Held here, the two would stand still for ever.
    ShowOnTop();

    VisualPlugIn* plugin = nullptr;
    {
        const OwnedLock lock(mPluginLock);
        plugin = FindPlugin(name.units, name.count);
        if (mPlugins.empty())
            LogLine("List of plugins is empty at a time when we want to select a visualizer:plugin discovery "
                    "has not "
                    "completed.\n");
        LogLine(plugin ? "OOPWinPipeServer::found visualizer to activate\n"
                       : "OOPWinPipeServer:Could not find visualizer to activate\n");
        SetCurrentPluginNoLock(plugin);
        // KEEP: the track's start is posted in front of the activation. A built-in has no visualizer yet
        // when the start arrives and says so; the activation finds the track and starts it. The other way
        // round, it would be started twice. Pinned by
        // OOPWinPipeServer.SelectionPostsTheStartInFrontOfTheActivation.
        if (TakeTrackMarker(reader)) TakeTrack(reader);
    }
    if (plugin)
        PostToMainThread(MESSAGE_ACTVT_VISUALIZER,
                         "OOPWinPipeServer: Could not post MESSAGE_ACTVT_VISUALIZER to main thread.\n",
                         MakeFourWords());
    return Answer(replies::kOk);
}

bool OOPWinPipeServer::ActivateVisualizer() {
    LogLine("OOPWinPipeServer::ActivateVisualizer called\n");
    // KEEP: taken from where they stand, whatever the request's key and length. A short request finds what
    // an earlier one left in the buffer; the units that are looked at never leave it, since a name has 255
    // at the most. Pinned by OOPWinPipeServer.ActivationChecksNeitherKeyNorBounds.
    const std::uint8_t* input = Exchange().Input();
    std::uint16_t length = 0;
    std::memcpy(&length, input + activate_request::kUnitCount, sizeof(length));
    const auto* name = reinterpret_cast<const char16_t*>(input + activate_request::kUnits);
    if (VisualPlugIn* plugin = FindPlugin(name, length)) {
        LogLine("OOPWinPipeServer::ActivateVisualizer::-found visualizer to activate\n");
        SetCurrentPlugin(plugin);
        PostThreadMessageW(MainThreadId(), MESSAGE_ACTVT_VISUALIZER, 0, 0);
        return Answer(replies::kProxy);
    }
    LogLine("OOPWinPipeServer::Could not find visualizer to activate\n");
    SetCurrentPlugin(nullptr);
    return Answer(replies::kFail);
}

void OOPWinPipeServer::ActivateProxyWindowInMainThread(std::uint32_t, std::uint32_t, std::uint32_t,
                                                       std::uint32_t) {
    const OwnedLock lock(mPluginLock);
    if (!mProxyWind) {
        LogLine("OOPWinPipeServer::ActivateProxyWindowInMainThread failed because there was no visualizer "
                "window to "
                "work with.\n");
        return;
    }
    ShowWindow(mProxyWind, SW_SHOW);
    SetForegroundWindow(mProxyWind);
    if (!mCurrentPlugin) return;
    if (!mCurrentPlugin->ActivateInWindow({ mProxyWind })) {
        LogLine("OOPWinPipeServer::failed to activate plugin with proxy window.\n");
        return;
    }
    UpdateWindowTitle();
    if (const records::TrackParamRef track = mTrackParamData) StartPlayback(*mCurrentPlugin, *track);
}

void OOPWinPipeServer::DeactivateVisualizerOnMainThread() {
    const OwnedLock lock(mPluginLock);
    if (!mCurrentPlugin) return;
    mCurrentPlugin->Deactivate();
    SetCurrentPluginNoLock(nullptr);
}

void OOPWinPipeServer::StartVisualizerWithTrackParam() {
    const records::TrackParamRef track = mTrackParamData;
    if (!track) {
        LogLine("OOPWinPipeServer::StartVisualizerWithTrackParam no mTrackParamData\n");
        return;
    }
    if (VisualPlugIn* const plugin = mCurrentPlugin)
        StartPlayback(*plugin, *track);
    else
        LogLine("StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n");
    UpdateWindowTitle();
}

bool OOPWinPipeServer::PostMessageToConsole() {
    // The text as it is, never a format. One without its zero byte ends with the input buffer.
    const auto* text = reinterpret_cast<const char*>(Exchange().Input() + console_request::kText);
    constexpr std::size_t kRoom = kMessageCapacity - console_request::kText;
    LogLine(text, std::size_t(std::find(text, text + kRoom, '\0') - text));
    return Answer(replies::kOk);
}

bool OOPWinPipeServer::EnterFullscreen() {
    LogLine("OOPWinPipeServer EnterFullscreen\n");
    SetFullScreen(true);
    return Answer(replies::kOk);
}

bool OOPWinPipeServer::ExitFullscreen() {
    LogLine("OOPWinPipeServer ExitFullscreen\n");
    SetFullScreen(false);
    return Answer(replies::kOk);
}

} // namespace orvane::shell
