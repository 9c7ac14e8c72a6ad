// The least plug-in that there can be: every operation that the base class leaves open does nothing.
#pragma once

#include "plugins/VisualPlugIn.h"

namespace orvane::tests {

class BarePlugIn : public plugins::VisualPlugIn {
public:
    explicit BarePlugIn(plugins::PlugInKind kind, const char16_t* path = nullptr)
        : VisualPlugIn(kind, path) {}

    bool ActivateInWindow(platform::NativeWindow window) override {
        mWindow = window;
        return true;
    }

    bool Deactivate() override { return true; }

    void Reshape() override {}

    void Draw() override {}

    void Stop() override {}

    void Idle() override {}

    void SetArtwork(const std::uint8_t*, std::uint32_t, std::uint32_t) override {}

    std::uint64_t Pulse(const std::uint8_t*, std::size_t, std::uint32_t, std::uint32_t) override { return 0; }

    void StartExternalVisualPlayback(const records::TrackParamObj*, const records::AudioFormatBlock*,
                                     std::int32_t, std::uint32_t) override {}

    void SetDisplayName(std::u16string_view name) { mDisplayName.Assign(name); }

protected:
    ~BarePlugIn() = default;
};

} // namespace orvane::tests
