#include "plugins/PlugInMemory.h"

#include <cstdlib>
#include <mutex>
#include <unordered_map>

namespace orvane::plugins {

namespace {

struct LivePlugIns {
    std::mutex mutex; // held for the look-up alone, never while anything is called
    std::unordered_map<const void*, std::shared_ptr<VisualPlugIn>> byAddress;
};

// Never destructed: a module's thread can call back while the process is on its way out.
LivePlugIns& Live() {
    static auto& sLive = *new LivePlugIns;
    return sLive;
}

} // namespace

void* detail::ZeroedMemory(std::size_t size) {
    return std::calloc(1, size);
}

void detail::EnterLivePlugIn(VisualPlugIn* plugIn) {
    const std::lock_guard lock(Live().mutex);
    Live().byAddress.emplace(plugIn, std::shared_ptr<VisualPlugIn>(plugIn, std::free));
}

void FreePlugIn(VisualPlugIn* plugIn) {
    std::shared_ptr<VisualPlugIn> last; // let go behind the lock
    const std::lock_guard lock(Live().mutex);
    const auto at = Live().byAddress.find(plugIn);
    if (at == Live().byAddress.end()) return;
    last = std::move(at->second);
    Live().byAddress.erase(at);
}

std::shared_ptr<VisualPlugIn> FindLivePlugIn(const void* cookie) {
    const std::lock_guard lock(Live().mutex);
    const auto at = Live().byAddress.find(cookie);
    return at == Live().byAddress.end() ? nullptr : at->second;
}

} // namespace orvane::plugins
