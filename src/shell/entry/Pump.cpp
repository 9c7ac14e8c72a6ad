#include "shell/entry/Pump.h"

#include "records/ArtworkRecord.h"
#include "shell/dispatch/ThreadMessages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvane::shell {

namespace {

using Server = RequestOperations;

// A payload of four words; a null lParam stands for four zeros. Freed here.
FourWords TakeFourWords(LPARAM payload) {
    auto* words = reinterpret_cast<FourWords*>(payload);
    const FourWords taken = words ? *words : FourWords{};
    std::free(words);
    return taken;
}

void Activate(Server& server, LPARAM payload) {
    const auto [a, b, c, d] = TakeFourWords(payload).values;
    server.ActivateProxyWindowInMainThread(a, b, c, d);
}

void Shape(Server& server, LPARAM payload) {
    const auto [a, b, c, d] = TakeFourWords(payload).values;
    server.ShapeVisualizerInMainThread(a, b, c, d);
}

void SetArtwork(Server& server, LPARAM payload) {
    const records::ArtworkOwner record(reinterpret_cast<records::ArtworkRecord*>(payload));
    server.SetArtworkInMainThread(record.get());
}

struct MessageRow {
    UINT message;
    void (*handle)(Server& server, LPARAM payload);
};

constexpr MessageRow kPostedWork[] = {
    { MESSAGE_START_VISUALIZER, [](Server& server, LPARAM) { server.StartVisualizerWithTrackParam(); } },
    { MESSAGE_ACTVT_VISUALIZER, &Activate },
    { MESSAGE_SHAPE_VISUALIZER, &Shape },
    { MESSAGE_DRAWV_VISUALIZER, [](Server& server, LPARAM) { server.DrawVisualizerInMainThread(); } },
    { MESSAGE_STOPV_VISUALIZER, [](Server& server, LPARAM) { server.StopVisualizerInMainThread(); } },
    { MESSAGE_IDLEV_VISUALIZER, [](Server& server, LPARAM) { server.IdleVisualizerInMainThread(); } },
    { MESSAGE_ARTWK_VISUALIZER, &SetArtwork },
    { MESSAGE_DEACT_VISUALIZER, [](Server& server, LPARAM) { server.DeactivateVisualizerOnMainThread(); } },
};

const MessageRow* FindRow(UINT message) {
    const auto* row = std::find_if(std::begin(kPostedWork), std::end(kPostedWork),
                                   [&](const MessageRow& candidate) { return candidate.message == message; });
    return row == std::end(kPostedWork) ? nullptr : row;
}

} // namespace

int Pump::Run() {
    MSG message = {};
    while (const BOOL fetched = GetMessageW(&message, nullptr, 0, 0)) {
        if (fetched == -1) continue; // nothing was fetched
        Handle(message);
        DoKeptWork();
    }
    return int(message.wParam);
}

void Pump::Handle(MSG& message) {
    if (HandlePostedWork(message)) return;
    if (TranslateAcceleratorW(message.hwnd, mAccelerators, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool Pump::HandlePostedWork(const MSG& message, bool mustWait) {
    if (!FindRow(message.message)) return false;
    mKept.push_back(message);
    if (!mustWait) DoKeptWork();
    return true;
}

// Work that a piece of work's own message loop fetches waits for that piece's end: it is left to the loop here.
void Pump::DoKeptWork() {
    if (std::exchange(mWorking, true)) return;
    while (!mKept.empty()) {
        const MSG message = mKept.front();
        mKept.pop_front();
        FindRow(message.message)->handle(mServer, message.lParam);
    }
    mWorking = false;
}

namespace {

Pump* sFilteringPump = nullptr;
std::function<bool()> sMustWait;

LRESULT CALLBACK FilterMessage(int code, WPARAM wParam, LPARAM lParam) {
    if (code >= 0 && sFilteringPump &&
        sFilteringPump->HandlePostedWork(*reinterpret_cast<const MSG*>(lParam), sMustWait()))
        return 1;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

ModalLoopFilter::ModalLoopFilter(Pump& pump, std::function<bool()> mustWait)
    : mHook(SetWindowsHookExW(WH_MSGFILTER, &FilterMessage, nullptr, GetCurrentThreadId())) {
    sFilteringPump = &pump;
    sMustWait = std::move(mustWait);
}

ModalLoopFilter::~ModalLoopFilter() {
    sFilteringPump = nullptr;
    sMustWait = nullptr;
    if (mHook) UnhookWindowsHookEx(mHook);
}

} // namespace orvane::shell
