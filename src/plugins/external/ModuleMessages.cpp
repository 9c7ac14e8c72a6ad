#include "plugins/external/ModuleMessages.h"

#include "platform/LogLine.h"
#include "plugins/external/ExternalVisualPlugIn.h"

namespace orvane::plugins {

namespace {

struct HeardMessage {
    std::uint32_t message;
    const char* line;
};

constexpr HeardMessage kHeardMessages[] = {
    { callback_messages::kRequestArtwork, "InitializeRequestForTrackCoverArt received from plugin.\n" },
    { callback_messages::kSetFullScreenOptions,
      "kPlayerSetFullScreenOptionsMessage received from plugin.\n" },
    { callback_messages::kSetFullScreen, "kPlayerSetFullScreenMessage received from plugin.\n" },
};

constexpr const char* LineFor(std::uint32_t message) {
    for (const auto& row : kHeardMessages)
        if (row.message == message) return row.line;
    return "unhandled message received from plugin.\n";
}

} // namespace

std::int32_t HandleModuleMessage(void* hostCookie, std::uint32_t message, void* record) {
    const auto plugIn = FindLivePlugIn(hostCookie);
    if (!plugIn || plugIn->Kind() != PlugInKind::kExternal) return kParamErr;
    if (message == callback_messages::kRegister)
        return static_cast<ExternalVisualPlugIn&>(*plugIn).Register(record);
    platform::LogLine(LineFor(message));
    return kNoErr;
}

} // namespace orvane::plugins
