#include "system/plugins/host/ActivatingServer.h"

#include "plugins/external/Discovery.h"
#include "shell/dispatch/ThreadMessages.h"
#include "shell/protocol/Requests.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvane::tests {

using platform::OwnedLock;
using plugins::VisualPlugIn;

bool ActivatingServer::Initialize(std::uint8_t messageMode) {
    const plugins::Discovery discovery([this](auto plugin) { mPlugins.push_back(std::move(plugin)); });
    if (!mFurtherFolder.empty()) discovery.RegisterPluginsInFolder(mFurtherFolder);
    return PluginPipeServer::Initialize(messageMode);
}

bool ActivatingServer::ActivateVisualizer() {
    const std::uint8_t* request = Exchange().Input();
    std::uint16_t count = 0;
    std::memcpy(&count, request + shell::activate_request::kUnitCount, sizeof(count));
    const auto* name = reinterpret_cast<const char16_t*>(request + shell::activate_request::kUnits);
    const auto found = std::find_if(mPlugins.begin(), mPlugins.end(),
                                    [&](const auto& plugin) { return plugin->NameIs(name, count); });
    SetCurrentPlugin(found == mPlugins.end() ? nullptr : found->get());
    if (found == mPlugins.end()) return Answer("FAIL");
    PostToMainThread(shell::MESSAGE_ACTVT_VISUALIZER, "The activation could not be posted.\n");
    return Answer("PRXY");
}

void ActivatingServer::ActivateProxyWindowInMainThread(std::uint32_t, std::uint32_t, std::uint32_t,
                                                       std::uint32_t) {
    const OwnedLock lock(mPluginLock);
    if (!mCurrentPlugin || !mCurrentPlugin->ActivateInWindow({ mWindow })) return;
    const records::TrackParamRef track = mTrackParamData;
    if (track) StartPlayback(*mCurrentPlugin, *track);
}

void ActivatingServer::DeactivateVisualizerOnMainThread() {
    const OwnedLock lock(mPluginLock);
    if (!mCurrentPlugin) return;
    mCurrentPlugin->Deactivate();
    SetCurrentPluginNoLock(nullptr);
}

void ActivatingServer::ResizeRenderTarget(std::uint32_t, std::uint32_t) {
    const OwnedLock lock(mPluginLock);
    if (mCurrentPlugin) mCurrentPlugin->Reshape();
}

} // namespace orvane::tests
