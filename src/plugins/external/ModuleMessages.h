// What modules say to the host.
#pragma once

#include <cstdint>

namespace orvane::plugins {

// The callback that every module gets (HostCallback of Messages.h). It may come from any thread, inside any
// call or none, and at any time, after deactivation and after a failed registration too; it takes no lock of
// the server and never reaches it. A cookie that isn't a living ExternalVisualPlugIn gets kParamErr in
// silence, before anything else is looked at. The requests about full screen and artwork are heard, and
// nothing follows: a module can't change the one or ask for the other.
std::int32_t HandleModuleMessage(void* hostCookie, std::uint32_t message, void* record);

} // namespace orvane::plugins
