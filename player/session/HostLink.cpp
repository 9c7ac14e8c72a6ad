#include "player/session/HostLink.h"

#include "player/session/HelpTexts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvane::player {

namespace {

namespace tags = shell::tags;

// A visualizer may take long to begin, and its first frame with it; meanwhile nothing is answered.
constexpr HostLink::Milliseconds kPatience{ 30000 };

std::span<const std::uint8_t> AsBytes(const records::AudioRenderData& sound) {
    return { reinterpret_cast<const std::uint8_t*>(&sound), sizeof(sound) };
}

ArtworkFormat FormatOf(std::span<const std::uint8_t> image) {
    constexpr std::array<std::uint8_t, 3> kJpeg = { 0xFF, 0xD8, 0xFF };
    const bool jpeg = image.size() >= kJpeg.size() && std::equal(kJpeg.begin(), kJpeg.end(), image.begin());
    return jpeg ? ArtworkFormat::k13 : ArtworkFormat::k14;
}

} // namespace

HostOpening HostLink::Open() {
    mEvents.clear();
    mPulseIsUnderWay = false;
    const HostOpening opening = mHost.Open();
    if (!opening) return opening;
    const Reply list = Exchange(LocalizedStringsRequest(QuellspireTexts(), ZephorTexts()));
    if (!list.outcome) return { HostStart::kSystem, list.outcome.systemCode };
    mVisualizers = SelectableVisualizers(DecodePluginList(list.bytes).plugins);
    return opening;
}

Reply HostLink::Exchange(std::span<const std::uint8_t> request) {
    if (mPulseIsUnderWay)
        if (const Outcome taken = TakePulseReply(kPatience); !taken) return { taken, {} };
    if (const Outcome sent = mHost.Send(request); !sent) return { sent, {} };
    return mHost.Receive(kPatience);
}

Outcome HostLink::Select(std::u16string_view visualizer, const records::TrackParamObj* track) {
    mHost.LetComeForward();
    return Exchange(SelectRequest(visualizer, track)).outcome;
}

Outcome HostLink::StartTrack(const records::TrackParamObj& track) {
    return Exchange(StartRequest(track)).outcome;
}

Outcome HostLink::ShowArtwork(std::span<const std::uint8_t> image) {
    const Bytes request =
        image.empty() ? PlainRequest(tags::kNoArtwork) : ArtworkRequest(FormatOf(image), image);
    return Exchange(request).outcome;
}

Outcome HostLink::FillScreen(bool on) {
    return Exchange(PlainRequest(on ? tags::kEnterFullscreen : tags::kExitFullscreen)).outcome;
}

Outcome HostLink::Stop() {
    return Exchange(PlainRequest(tags::kStop)).outcome;
}

Outcome HostLink::Hide() {
    return Exchange(PlainRequest(tags::kHideWindow)).outcome;
}

Outcome HostLink::SendPulse(std::uint32_t stamp, std::uint32_t position,
                            const records::AudioRenderData& sound) {
    const Outcome sent = mHost.Send(PulseRequest(stamp, position, AsBytes(sound)));
    mPulseIsUnderWay = bool(sent);
    return sent;
}

Outcome HostLink::TakePulseReply(Milliseconds timeout) {
    const Reply reply = mHost.Receive(timeout);
    mPulseIsUnderWay = reply.outcome.failure == Failure::kNoReplyInTime;
    if (!reply.outcome) return reply.outcome;
    ++mFrames;
    const PulseEvent event = DecodePulseReply(reply.bytes);
    if (!std::holds_alternative<NoEvent>(event)) mEvents.push_back(event);
    return {};
}

std::optional<PulseEvent> HostLink::NextEvent() {
    if (mEvents.empty()) return std::nullopt;
    PulseEvent event = mEvents.front();
    mEvents.pop_front();
    return event;
}

} // namespace orvane::player
