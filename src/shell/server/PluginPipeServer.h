// The server that gives the requests their meaning: it holds the list of plug-ins, the current plug-in and
// the current track, and moves all work that belongs to the window's thread there by private thread messages.
// It knows nothing of windows.
//
// mPluginLock guards mCurrentPlugin and mTrackParamData and is held across most calls into the plug-in, so
// that a plug-in isn't replaced while one of these runs. KEEP: drawing, idling and starting a track take no
// lock, so that a draw on the main thread needn't wait for a pulse that runs a whole frame on the service
// thread; the two can meet. Pinned by PluginPipeServer.DrawIdleAndStartRunWhileThePulseHoldsTheLock.
#pragma once

#include "platform/OwnedMutex.h"
#include "plugins/PlugInMemory.h"
#include "plugins/VisualPlugIn.h"
#include "records/TrackParam.h"
#include "shell/server/BuiltIns.h"
#include "shell/server/PipeServer.h"
#include "shell/wire/BufferReader.h"

#include <atomic>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace orvane::shell {

class PluginPipeServer : public PipeServer {
public:
    explicit PluginPipeServer(std::span<const BuiltIn> builtIns, const PipeCalls& calls = kPlatformPipeCalls);

    // Registers the built-ins and the modules found in the plug-in folders, behind what the list already
    // holds, and then makes the pipe: the player can't ask for a list that is still growing.
    bool Initialize(std::uint8_t messageMode) override;                         // 1
    bool HandleUPVMMessage() override;                                          // 2
    bool PulseVisualizer() override;                                            // 3
    bool KeyInputVisualizer() override;                                         // 4
    bool DeactivateVisualizer() override;                                       // 12
    bool StartVisualizerPlaybackWithTrackInfo() override;                       // 13
    void StartVisualizerWithTrackParam() override;                              // 14
    bool DrawVisualizer() override;                                             // 15
    bool IdleVisualizer() override;                                             // 16
    bool StopVisualizer() override;                                             // 17
    void DrawVisualizerInMainThread() override;                                 // 20
    void StopVisualizerInMainThread() override;                                 // 21
    void IdleVisualizerInMainThread() override;                                 // 22
    bool ReshapeVisualizer() override;                                          // 25
    void SetArtworkInMainThread(const records::ArtworkRecord* record) override; // 28
    bool SetArtworkVisualizer(std::uint32_t format) override;                   // 29

    virtual void DeactivateCurrentPlugin();                                     // 30: called by nobody
    virtual void ResizeRenderTarget(std::uint32_t width, std::uint32_t height); // 31: of the proxy window
    virtual bool HandleKey(std::uint16_t character, std::uint32_t keyParam);    // 32: true if it was taken
    virtual void ToggleFullScreen();                                            // 33

    // Makes `plugin`, or nothing, the current one. The one that it replaces isn't deactivated: its visualizer
    // runs on unless the caller sees to it. The second form expects the caller to hold mPluginLock.
    void SetCurrentPlugin(plugins::VisualPlugIn* plugin);
    void SetCurrentPluginNoLock(plugins::VisualPlugIn* plugin);

    // Whether the calling thread holds mPluginLock: it is then inside a call into a plug-in.
    [[nodiscard]] bool HoldsPluginLock() const { return mPluginLock.IsHeldByThisThread(); }

protected:
    // Posts a private message to the main thread; on failure prints `failureLine`.
    bool PostToMainThread(UINT message, std::string_view failureLine, LPARAM payload = 0);

    // The same with a payload, which the main thread takes over with a successful post; it is freed here with
    // a failed one.
    template <typename T, typename Freer>
    bool PostToMainThread(UINT message, std::string_view failureLine, std::unique_ptr<T, Freer> payload) {
        const bool posted = PostToMainThread(message, failureLine, reinterpret_cast<LPARAM>(payload.get()));
        if (posted) static_cast<void>(payload.release());
        return posted; // NOLINT(clang-analyzer-unix.Malloc): it went with the message
    }

    // Makes a new zeroed track, fills it from a track block, makes it the current one and, if the block could
    // be parsed, posts its start. The caller holds mPluginLock.
    void TakeTrack(BufferReader& reader);

    // A reader over the request's payload.
    [[nodiscard]] BufferReader PayloadReader();

    static void StartPlayback(plugins::VisualPlugIn& plugin, records::TrackParamObj& track);

    plugins::VisualPlugIn* mCurrentPlugin = nullptr; // in mPlugins, or null
    platform::OwnedMutex mPluginLock;
    std::vector<plugins::PlugInOwner<plugins::VisualPlugIn>> mPlugins; // in order of registration

    // The current track, or null. Its readers without mPluginLock take a reference of their own, so that a new
    // track can't free the one that is being started.
    std::atomic<records::TrackParamRef> mTrackParamData;

private:
    void RegisterBuiltInVisualizers();
    bool PostAndAnswer(UINT message, std::string_view failureLine);

    std::span<const BuiltIn> mBuiltIns;
};

} // namespace orvane::shell
