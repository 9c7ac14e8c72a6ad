#include "support/FakePlugIn.h"

#include "platform/Text.h"

#include <utility>

namespace orvane::tests {

using std::to_string;

FakePlugIn::FakePlugIn(plugins::PlugInKind kind, const char16_t* path, FakePlugInLog& log)
    : VisualPlugIn(kind, path)
    , mLog(log) {}

void FakePlugIn::Note(std::string call) {
    mLog.calls.push_back(std::move(call));
}

bool FakePlugIn::ActivateInWindow(platform::NativeWindow window) {
    Note("ActivateInWindow()");
    mLog.window = window;
    return mLog.activateResult;
}

bool FakePlugIn::Deactivate() {
    Note("Deactivate()");
    return true;
}

void FakePlugIn::Reshape() {
    Note("Reshape()");
}

void FakePlugIn::Draw() {
    Note("Draw()");
    if (mLog.onDraw) mLog.onDraw();
}

void FakePlugIn::Stop() {
    Note("Stop()");
}

void FakePlugIn::Idle() {
    Note("Idle()");
}

void FakePlugIn::SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) {
    Note("SetArtwork(" + std::string(data ? "image" : "null") + ", " + to_string(size) + ", " +
         to_string(format) + ")");
    mLog.lastPointer = data;
}

std::uint64_t FakePlugIn::Pulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                                std::uint32_t pulsePosition) {
    Note("Pulse(" + to_string(length) + ", " + to_string(pulseStamp) + ", " + to_string(pulsePosition) + ")");
    mLog.lastPointer = renderData;
    if (mLog.onPulse) mLog.onPulse();
    return 0;
}

void FakePlugIn::StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                             const records::AudioFormatBlock* audioFormat,
                                             std::int32_t trackStartA, std::uint32_t trackStartB) {
    Note("StartExternalVisualPlayback(" + platform::Utf8FromUtf16(trackParam->mTrackName.View()) + ", " +
         to_string(audioFormat->word0) + ", " + to_string(trackStartA) + ", " + to_string(trackStartB) + ")");
}

bool FakePlugIn::KeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers) {
    Note("KeyInput(" + to_string(count) + ", " + to_string(modifiers) + ")");
    mLog.lastPointer = reinterpret_cast<const std::uint8_t*>(characters);
    mLog.characters.append(characters, count);
    if (mLog.onKeyInput) mLog.onKeyInput();
    return mLog.keyResult;
}

void FakePlugIn::ParkLocalizedStrings(const records::LocalizedStrings& list) {
    Note("ParkLocalizedStrings(" + to_string(list.size()) + ")");
    if (!list.empty()) SetDisplayName(platform::Utf16FromUtf8(list.back().key).value_or(u""));
}

} // namespace orvane::tests
