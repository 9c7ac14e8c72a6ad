#include "plugins/external/ExternalVisualPlugIn.h"

#include "platform/LogLine.h"
#include "plugins/external/FloatingPointState.h"
#include "plugins/external/MessageRecords.h"
#include "plugins/external/ModuleEntry.h"
#include "plugins/external/ModuleMessages.h"

namespace orvane::plugins {

using platform::LogFormat;
using platform::LogLine;

bool ExternalVisualPlugIn::Initialize() {
    if (!mModule) {
        LogLine("Cannot boink this plugin. No module.\n");
        return false;
    }
    mPluginMain = FindPluginMain(mModule);
    if (!mPluginMain) {
        LogLine("Could not find proc address for OrvanePluginMain in this plugin.\n");
        return false;
    }
    EntryRecord record = {};
    record.majorVersion = kOrvanePluginMajorMessageVersion;
    record.minorVersion = kOrvanePluginMinorMessageVersion;
    record.hostCookie = this;
    record.hostCallback = &HandleModuleMessage;
    const FloatingPointState kept;
    return mPluginMain(messages::kInit, &record, nullptr) == kNoErr;
}

bool ExternalVisualPlugIn::ActivateInWindow(platform::NativeWindow window) {
    if (!HasHandler("Cannot activate plugin. mVisualPluginProcPtr == null\n")) return false;
    mWindow = window;
    ActivateRecord record = {};
    record.window = window.handle;
    switch (const std::int32_t status = Send(messages::kActivate, &record)) {
    case kNoErr:
        return true;
    case kUnimpErr:
        LogLine("ActivateInWindow: kVisualPluginActivateMessage failed. Plugin returned \"unimpErr|\"\n");
        return false;
    default:
        LogFormat("ActivateInWindow: kVisualPluginActivateMessage failed. Error status = %d\n", int(status));
        return false;
    }
}

bool ExternalVisualPlugIn::Deactivate() {
    if (!HasHandler("Cannot deactivate plugin. mVisualPluginProcPtr == null\n")) return false;
    if (Send(messages::kDeactivate) != kNoErr) return false;
    LogLine("Plugin deactivated.\n");
    return true;
}

void ExternalVisualPlugIn::Reshape() {
    if (HasHandler("Cannot Reshape plugin. mVisualPluginProcPtr == null\n")) Send(messages::kReshape);
}

void ExternalVisualPlugIn::Draw() {
    if (HasHandler("Cannot draw plugin. mVisualPluginProcPtr == null\n")) Send(messages::kDraw);
}

void ExternalVisualPlugIn::Stop() {
    if (HasHandler("Cannot stop plugin. mVisualPluginProcPtr == null\n")) Send(messages::kStop);
}

void ExternalVisualPlugIn::Idle() {
    if (!(mOptions & kWantsIdle)) return;
    if (HasHandler("Cannot idle plugin. mVisualPluginProcPtr == null\n")) Send(messages::kIdle);
}

void ExternalVisualPlugIn::SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) {
    if (!HasHandler("Cannot set artwork. mVisualPluginProcPtr == null\n")) return;
    if (format == 0) return; // no artwork: modules aren't told
    ArtworkMessageRecord record = {};
    record.data = data;
    record.size = size;
    record.format = format;
    Send(messages::kArtwork, &record);
}

std::uint64_t ExternalVisualPlugIn::Pulse(const std::uint8_t* renderData, std::size_t,
                                          std::uint32_t pulseStamp, std::uint32_t pulsePosition) {
    if (!HasHandler("Cannot pulse. mVisualPluginProcPtr == null\n")) return 0;
    PulseRecord record = {};
    record.renderData = renderData;
    record.pulseStamp = pulseStamp;
    record.pulsePosition = pulsePosition;
    Send(messages::kPulse, &record);
    Send(messages::kDraw);
    return record.result;
}

void ExternalVisualPlugIn::StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                                       const records::AudioFormatBlock* audioFormat,
                                                       std::int32_t trackStartA, std::uint32_t trackStartB) {
    if (!HasHandler("Cannot start playback. mVisualPluginProcPtr == null\n")) return;
    PlaybackRecord record = {};
    record.trackParam = trackParam;
    record.audioFormat = *audioFormat;
    record.trackStartB = trackStartB;
    record.trackStartA = trackStartA;
    Send(messages::kPlay, &record);
}

bool ExternalVisualPlugIn::HasHandler(std::string_view lineWithout) const {
    if (!mVisualPluginProcPtr) LogLine(lineWithout);
    return mVisualPluginProcPtr != nullptr;
}

std::int32_t ExternalVisualPlugIn::Send(std::uint32_t message, void* record) {
    const FloatingPointState kept;
    return mVisualPluginProcPtr(message, record, mPluginRefCon);
}

} // namespace orvane::plugins
