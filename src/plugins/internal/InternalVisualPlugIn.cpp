#include "plugins/internal/InternalVisualPlugIn.h"

#include "platform/LogLine.h"
#include "platform/Text.h"
#include "plugins/internal/InternalVisualPlugInCommandReceiver.h"

namespace orvane::plugins {

using platform::LogLine;
using platform::OwnedLock;

bool InternalVisualPlugIn::Deactivate() {
    const OwnedLock frame(mFrameLock);
    mVisualizer.reset();
    return true;
}

void InternalVisualPlugIn::Reshape() {
    const OwnedLock frame(mFrameLock);
    platform::PixelRect rect;
    if (!mVisualizer) {
        LogLine("InternalVisualPlugIn::Reshape called when there is no visualizer\n");
    } else if (!WindowRectOf(mWindow, rect)) {
        LogLine("InternalVisualPlugIn::Reshape GetWindowRect returned false.\n");
    } else {
        const double size[2] = { double(rect.Width()), double(rect.Height()) };
        mVisualizer->Reshape(size);
    }
}

void InternalVisualPlugIn::Draw() {
    const OwnedLock frame(mFrameLock);
    if (!mVisualizer) return;
    mVisualizer->StepFrameClock();
    mVisualizer->Draw(0);
}

// KEEP: the visualizer isn't told, though the line promises it for some day. Without sound the picture dies
// down by itself, while one that froze would look like a fault. Pinned by InternalVisualPlugIn.StopOnAPlayingBuiltInPrintsItsLineAndTheAnimationGoesOn.
void InternalVisualPlugIn::Stop() {
    LogLine("InternalVisualPlugIn::Stop not yet implemented\n");
}

void InternalVisualPlugIn::Idle() {
    const OwnedLock frame(mFrameLock);
    if (mVisualizer) mVisualizer->Idle(0, 0, 0);
}

void InternalVisualPlugIn::SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) {
    const OwnedLock frame(mFrameLock);
    if (mVisualizer)
        mVisualizer->SetArtwork(data, size, format);
    else
        LogLine("InternalVisualPlugIn::SetArtwork no mVisualizer.\n");
}

std::uint64_t InternalVisualPlugIn::Pulse(const std::uint8_t* renderData, std::size_t length,
                                          std::uint32_t pulseStamp, std::uint32_t pulsePosition) {
    const OwnedLock frame(mFrameLock);
    if (mWindow && IsParentIconic(mWindow)) return 0;
    if (!mVisualizer) return 0;
    mVisualizer->StorePulse(renderData, length, pulseStamp, pulsePosition);
    mVisualizer->AudioDataArrived(pulseStamp);
    return 0;
}

// KEEP: with no visualizer there is nobody to tell, and the line that says so stays in these words. Pinned by
// InternalVisualPlugIn.WithoutAVisualizerEveryOperationHasItsLineOrNothing.
void InternalVisualPlugIn::StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                                       const records::AudioFormatBlock* audioFormat,
                                                       std::int32_t trackStartA, std::uint32_t trackStartB) {
    const OwnedLock frame(mFrameLock);
    if (mVisualizer)
        mVisualizer->StartExternalVisualPlayback(trackParam, audioFormat, std::uint32_t(trackStartA),
                                                 trackStartB);
    else
        LogLine("InternalVisualPlugIn::StartExternalVisualPlayback(no mVisualizer) not yet implemented\n");
}

bool InternalVisualPlugIn::KeyInput(std::uint32_t count, const char16_t* characters,
                                    std::uint32_t modifiers) {
    const OwnedLock frame(mFrameLock);
    if (!mVisualizer) {
        LogLine("InternalVisualPlugIn::KeyInput mVisualizer is null.\n");
        return false;
    }
    LogLine("InternalVisualPlugIn::KeyInput calling mVisualizer->HandleKeyInput.\n");
    InternalVisualPlugInCommandReceiver receiver(this);
    return mVisualizer->HandleKeyInput(count, characters, modifiers, &receiver);
}

void InternalVisualPlugIn::ParkLocalizedStrings(const records::LocalizedStrings& list) {
    const OwnedLock frame(mFrameLock);
    ParkUnderLock(list);
}

void InternalVisualPlugIn::ParkUnderLock(const records::LocalizedStrings& list) {
    if (&list != &mLocalizedStrings) mLocalizedStrings = list;
    if (list.empty()) return;
    const auto title = platform::Utf16FromUtf8(records::KeyText(list.back()));
    if (title && !title->empty() && title->size() <= records::StringBlock::kCapacity)
        mDisplayName.Assign(*title);
}

} // namespace orvane::plugins
