// A visualizer that does nothing but remember what it was asked to do.
#pragma once

#include "plugins/PlugInMemory.h"
#include "plugins/VisualPlugIn.h"

#include <functional>
#include <string>
#include <vector>

namespace orvane::tests {

// What a FakePlugIn was asked, and what it shall do meanwhile. Kept outside of the plug-in, since plug-ins
// are never destructed.
struct FakePlugInLog {
    std::vector<std::string> calls; // each as "Name(arguments)"
    std::function<void()> onPulse, onDraw, onKeyInput;
    const std::uint8_t* lastPointer = nullptr; // of Pulse, SetArtwork, KeyInput
    std::u16string characters;                 // of all KeyInput so far
    platform::NativeWindow window;             // of ActivateInWindow
    bool keyResult = false;
    bool activateResult = true;
};

class FakePlugIn final : public plugins::VisualPlugIn {
public:
    FakePlugIn(plugins::PlugInKind kind, const char16_t* path, FakePlugInLog& log);

    bool ActivateInWindow(platform::NativeWindow window) override;
    bool Deactivate() override;
    void Reshape() override;
    void Draw() override;
    void Stop() override;
    void Idle() override;
    void SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) override;
    std::uint64_t Pulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                        std::uint32_t pulsePosition) override;
    void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                     const records::AudioFormatBlock* audioFormat, std::int32_t trackStartA,
                                     std::uint32_t trackStartB) override;
    bool KeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers) override;
    void ParkLocalizedStrings(const records::LocalizedStrings& list) override;

    void SetDisplayName(std::u16string_view name) { mDisplayName.Assign(name); }

private:
    void Note(std::string call);

    FakePlugInLog& mLog;
};

} // namespace orvane::tests
