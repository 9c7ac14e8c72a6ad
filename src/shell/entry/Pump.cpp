#include "shell/entry/Pump.h"

#include "records/ArtworkRecord.h"
#include "shell/dispatch/ThreadMessages.h"

#include <algorithm>
#include <iterator>

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

} // namespace

int Pump::Run() {
    MSG message = {};
    while (const BOOL fetched = GetMessageW(&message, nullptr, 0, 0)) {
        if (fetched == -1) continue; // nothing was fetched
        Handle(message);
    }
    return int(message.wParam);
}

void Pump::Handle(MSG& message) {
    const auto* row =
        std::find_if(std::begin(kPostedWork), std::end(kPostedWork),
                     [&](const MessageRow& candidate) { return candidate.message == message.message; });
    if (row != std::end(kPostedWork)) {
        row->handle(mServer, message.lParam);
    } else if (!TranslateAcceleratorW(message.hwnd, mAccelerators, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace orvane::shell
