// A built-in visualizer as the server sees it: a plug-in that hands each operation on to the visualizer that
// it owns while it is active in a window. Each built-in derives from it and gives slots 1 and 11.
//
// Every operation does without a visualizer too: before the first activation, after a deactivation, and when
// a creation failed.
#pragma once

#include "platform/OwnedMutex.h"
#include "plugins/VisualPlugIn.h"
#include "visualizer/TexturePanelVisualizer.h"

#include <memory>
#include <utility>

namespace orvane::plugins {

class InternalVisualPlugIn : public VisualPlugIn {
public:
    bool Deactivate() override; // deletes the visualizer; true in any case
    void Reshape() override;
    void Draw() override; // one step of the frame clock, one frame
    void Stop() override; // only prints its line: the picture goes on
    void Idle() override;
    void SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) override;
    // Drops the sound while the top-level window is minimised. Returns 0.
    std::uint64_t Pulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                        std::uint32_t pulsePosition) override;
    void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                     const records::AudioFormatBlock* audioFormat, std::int32_t trackStartA,
                                     std::uint32_t trackStartB) override;
    bool KeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers) override;
    void ParkLocalizedStrings(const records::LocalizedStrings& list) override;

protected:
    explicit InternalVisualPlugIn(PlugInKind kind)
        : VisualPlugIn(kind, nullptr) {}

    ~InternalVisualPlugIn() = default;

    // What slot 1 of each built-in is made of: lets the old visualizer go by slot 2, keeps the window and takes
    // what `make`() gives, an owning pointer to a visualizer or null. `make` runs under the frame lock.
    // True if there is a visualizer now.
    template <typename Make>
    bool ActivateWith(platform::NativeWindow window, Make&& make) {
        Deactivate(); // takes the frame lock by itself
        const platform::OwnedLock frame(mFrameLock);
        mWindow = window;
        mVisualizer = std::forward<Make>(make)();
        return mVisualizer != nullptr;
    }

    // Slot 11 without its lock, for a built-in that does more: keeps the list and takes the title from its
    // last entry, if that is valid and 1 to 255 units long. The caller holds the frame lock.
    void ParkUnderLock(const records::LocalizedStrings& list);

    std::unique_ptr<visualizer::TexturePanelVisualizer> mVisualizer; // null unless active in a window
    records::LocalizedStrings mLocalizedStrings;                     // parked last

    // The frame lock: one call at a time into the visualizer and its renderer.
    //
    // Pulses come on the service thread and draw a whole frame there; draws, tracks, artwork and new windows
    // come on the main thread, partly without the server's plug-in lock; parked texts come without it too. So
    // every operation that touches the visualizer or the texts holds this lock from end to end. Without it a
    // new track would free the texture that a pulse is drawing, and a draw and a pulse would meet in one
    // renderer, which has no lock of its own.
    //
    // Order: plug-in lock first, then a frame lock, never the other way about; and never two frame locks.
    // Nothing that runs under it shows, moves or resizes a window of another thread, or sends it a message:
    // that thread may be waiting for this lock, and both would stand still. Windows are only asked here
    // (rectangles, is it minimised), which sends nothing.
    //
    // Not recursive: an operation that calls another one of these does so before it takes the lock.
    platform::OwnedMutex mFrameLock;
};

} // namespace orvane::plugins
