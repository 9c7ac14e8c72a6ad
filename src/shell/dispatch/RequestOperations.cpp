#include "shell/dispatch/RequestOperations.h"

#include "platform/LogLine.h"
#include "shell/protocol/Replies.h"

#include <cstring>

namespace orvane::shell {

using platform::LogLine;

bool RequestOperations::Answer(std::string_view reply) {
    std::memcpy(mExchange->Output(), reply.data(), reply.size());
    return mExchange->WriteReply(std::uint32_t(reply.size()));
}

bool RequestOperations::OverrideMe(std::string_view line) {
    LogLine(line);
    return Answer(replies::kOk);
}

bool RequestOperations::HandleUPVMMessage() {
    LogLine("HandleUPVMMessage override me\n");
    return false;
}

bool RequestOperations::PulseVisualizer() {
    return OverrideMe("PulseVisualizer override me\n");
}

bool RequestOperations::KeyInputVisualizer() {
    return OverrideMe("KeyInputVisualizer override me\n");
}

bool RequestOperations::ActivateVisualizerWindow() {
    return OverrideMe("ActivateVisualizerWindow override me\n");
}

bool RequestOperations::ShowVisualizerWindow() {
    return OverrideMe("ShowVisualizerWindow override me\n");
}

bool RequestOperations::ShowVisualizerWindowAndSelectVisualizer() {
    return OverrideMe("ShowVisualizerWindowAndSelectVisualizer override me\n");
}

bool RequestOperations::HideVisualizerWindow() {
    return OverrideMe("HideVisualizerWindow override me\n");
}

bool RequestOperations::EnterFullscreen() {
    return OverrideMe("EnterFullscreen override me\n");
}

bool RequestOperations::ExitFullscreen() {
    return OverrideMe("ExitFullscreen override me\n");
}

bool RequestOperations::PostMessageToConsole() {
    return OverrideMe("PostMessageToConsole override me\n");
}

bool RequestOperations::DeactivateVisualizer() {
    return OverrideMe("DeactivateVisualizer override me\n");
}

bool RequestOperations::StartVisualizerPlaybackWithTrackInfo() {
    LogLine("StartVisualizerPlaybackWithTrackInfo: override me\n");
    return Answer(replies::kStart);
}

void RequestOperations::StartVisualizerWithTrackParam() {}

bool RequestOperations::DrawVisualizer() {
    return Answer(replies::kOk);
}

bool RequestOperations::IdleVisualizer() {
    return Answer(replies::kOk);
}

bool RequestOperations::StopVisualizer() {
    return Answer(replies::kOk);
}

void RequestOperations::Reserved18() {}

void RequestOperations::ShapeVisualizerInMainThread(std::uint32_t, std::uint32_t, std::uint32_t,
                                                    std::uint32_t) {}

void RequestOperations::DrawVisualizerInMainThread() {}

void RequestOperations::StopVisualizerInMainThread() {}

void RequestOperations::IdleVisualizerInMainThread() {}

void RequestOperations::DeactivateVisualizerOnMainThread() {
    LogLine("DeactivateVisualizerOnMainThread override me\n");
}

bool RequestOperations::MoveVisualizer() {
    return OverrideMe("MoveVisualizer override me\n");
}

bool RequestOperations::ReshapeVisualizer() {
    return OverrideMe("ReshapeVisualizer override me\n");
}

bool RequestOperations::ActivateVisualizer() {
    return OverrideMe("ActivateVisualizer override me\n");
}

void RequestOperations::ActivateProxyWindowInMainThread(std::uint32_t, std::uint32_t, std::uint32_t,
                                                        std::uint32_t) {
    LogLine("ActivateProxyWindowInMainThread override me\n");
}

void RequestOperations::SetArtworkInMainThread(const records::ArtworkRecord*) {
    LogLine("SetArtworkInMainThread override me\n");
}

bool RequestOperations::SetArtworkVisualizer(std::uint32_t) {
    return Answer(replies::kOk);
}

} // namespace orvane::shell
