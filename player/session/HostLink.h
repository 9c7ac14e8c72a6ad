// The conversation with a host, in the order that the protocol wants: one request at a time, and a pulse's reply
// is awaited in small steps, so that a slow frame holds nobody up.
#pragma once

#include "player/protocol/PulseEvent.h"
#include "player/protocol/Requests.h"
#include "player/session/Host.h"
#include "player/session/Visualizers.h"
#include "records/AudioRenderData.h"
#include "records/TrackParam.h"

#include <chrono>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

namespace orvane::player {

class HostLink {
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit HostLink(IHost& host)
        : mHost(host) {}

    // Finds or starts the host, hands it titles and help texts, and asks what visualizers it has.
    [[nodiscard]] HostOpening Open();

    [[nodiscard]] const std::vector<Visualizer>& Visualizers() const { return mVisualizers; }

    // Each waits for the host's reply, that of a pulse under way first. `track` may be null.
    [[nodiscard]] Outcome Select(std::u16string_view visualizer, const records::TrackParamObj* track);
    [[nodiscard]] Outcome StartTrack(const records::TrackParamObj& track);
    [[nodiscard]] Outcome ShowArtwork(std::span<const std::uint8_t> image); // empty: none
    [[nodiscard]] Outcome FillScreen(bool on);
    [[nodiscard]] Outcome Stop();
    [[nodiscard]] Outcome Hide();

    // A pulse goes out; there must be none under way.
    [[nodiscard]] Outcome SendPulse(std::uint32_t stamp, std::uint32_t position,
                                    const records::AudioRenderData& sound);

    [[nodiscard]] bool PulseIsUnderWay() const { return mPulseIsUnderWay; }

    // Waits for the reply to the pulse under way. kNoReplyInTime leaves it under way.
    [[nodiscard]] Outcome TakePulseReply(Milliseconds timeout);

    // How many pulses were answered, by whatever waited for the reply: each was a frame.
    [[nodiscard]] std::uint64_t Frames() const { return mFrames; }

    // What the replies to pulses told, oldest first; nothing if they have told nothing since.
    [[nodiscard]] std::optional<PulseEvent> NextEvent();

private:
    [[nodiscard]] Reply Exchange(std::span<const std::uint8_t> request);

    IHost& mHost;
    std::vector<Visualizer> mVisualizers;
    std::deque<PulseEvent> mEvents;
    bool mPulseIsUnderWay = false;
    std::uint64_t mFrames = 0;
};

} // namespace orvane::player
