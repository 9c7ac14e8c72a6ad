#include "shell/dispatch/Dispatcher.h"

#include "platform/LogLine.h"
#include "shell/protocol/Replies.h"
#include "shell/protocol/Requests.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace orvane::shell {

namespace {

using Server = RequestOperations;

struct RequestRow {
    std::uint32_t tag;
    bool (*handle)(Server& server);
};

// The pulse stands first: it comes sixty times a second, all others now and then.
constexpr RequestRow kRequests[] = {
    { tags::kPulse, [](Server& server) { return server.PulseVisualizer(); } },
    { tags::kLocalizedStrings, [](Server& server) { return server.HandleUPVMMessage(); } },
    { tags::kKeyInput, [](Server& server) { return server.KeyInputVisualizer(); } },
    { tags::kShowWindow, [](Server& server) { return server.ShowVisualizerWindow(); } },
    { tags::kShowWindowAndSelect,
      [](Server& server) { return server.ShowVisualizerWindowAndSelectVisualizer(); } },
    { tags::kHideWindow, [](Server& server) { return server.HideVisualizerWindow(); } },
    { tags::kEnterFullscreen, [](Server& server) { return server.EnterFullscreen(); } },
    { tags::kExitFullscreen, [](Server& server) { return server.ExitFullscreen(); } },
    { tags::kPostToConsole, [](Server& server) { return server.PostMessageToConsole(); } },
    { tags::kDeactivate, [](Server& server) { return server.DeactivateVisualizer(); } },
    { tags::kStart, [](Server& server) { return server.StartVisualizerPlaybackWithTrackInfo(); } },
    { tags::kDraw, [](Server& server) { return server.DrawVisualizer(); } },
    { tags::kIdle, [](Server& server) { return server.IdleVisualizer(); } },
    { tags::kStop, [](Server& server) { return server.StopVisualizer(); } },
    { tags::kMove, [](Server& server) { return server.MoveVisualizer(); } },
    { tags::kReshape, [](Server& server) { return server.ReshapeVisualizer(); } },
    { tags::kActivate, [](Server& server) { return server.ActivateVisualizer(); } },
    { tags::kNoArtwork, [](Server& server) { return server.SetArtworkVisualizer(0); } },
    { tags::kArtwork13, [](Server& server) { return server.SetArtworkVisualizer(13); } },
    { tags::kArtwork14, [](Server& server) { return server.SetArtworkVisualizer(14); } },
};
static_assert(std::size(kRequests) == 20, "one row for each request of the protocol");

bool AnswerTooShort(IExchange& exchange) {
    platform::LogLine("HandleRequest mBytesRead < 4\n");
    char reply[64];
    const int length =
        std::snprintf(reply, sizeof(reply), replies::kNoInputMessage, int(exchange.BytesRead()));
    std::memcpy(exchange.Output(), reply, std::size_t(length));
    return exchange.WriteReply(std::uint32_t(length));
}

bool AnswerNotHandled(IExchange& exchange) {
    std::memcpy(exchange.Output(), replies::kNotHandled.data(), replies::kNotHandled.size());
    return exchange.WriteReply(std::uint32_t(replies::kNotHandled.size()));
}

} // namespace

bool DispatchRequest(RequestOperations& server, IExchange& exchange) {
    if (exchange.BytesRead() < kTagSize) return AnswerTooShort(exchange);
    const std::uint32_t tag = ComposeTag(exchange.Input());
    const auto* row = std::find_if(std::begin(kRequests), std::end(kRequests),
                                   [tag](const RequestRow& candidate) { return candidate.tag == tag; });
    return row != std::end(kRequests) ? row->handle(server) : AnswerNotHandled(exchange);
}

} // namespace orvane::shell
