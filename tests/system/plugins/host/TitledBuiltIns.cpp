#include "system/plugins/host/TitledBuiltIns.h"

#include "platform/Text.h"

#include <cstring>

namespace orvane::tests {

namespace {

using plugins::PlugInKind;

class TitledBuiltIn final : public plugins::VisualPlugIn {
public:
    TitledBuiltIn(PlugInKind kind, std::u16string_view name)
        : VisualPlugIn(kind, nullptr) {
        SetName(name);
    }

    bool ActivateInWindow(platform::NativeWindow) override { return true; }

    bool Deactivate() override { return true; }

    void Reshape() override {}

    void Draw() override {}

    void Stop() override {}

    void Idle() override {}

    void SetArtwork(const std::uint8_t*, std::uint32_t, std::uint32_t) override {}

    std::uint64_t Pulse(const std::uint8_t*, std::size_t, std::uint32_t, std::uint32_t) override { return 0; }

    void StartExternalVisualPlayback(const records::TrackParamObj*, const records::AudioFormatBlock*,
                                     std::int32_t, std::uint32_t) override {}

    void ParkLocalizedStrings(const records::LocalizedStrings& list) override {
        if (list.empty()) return;
        const char* key = list.back().key; // not terminated when it is full
        const std::string_view text(key, strnlen(key, sizeof(list.back().key)));
        mDisplayName.Assign(platform::Utf16FromUtf8(text).value_or(u""));
    }
};

} // namespace

std::span<const shell::BuiltIn> TitledBuiltIns() {
    static constexpr shell::BuiltIn kBuiltIns[] = {
        { [] {
            return plugins::PlugInOwner<plugins::VisualPlugIn>(
                plugins::MakePlugIn<TitledBuiltIn>(PlugInKind::kQuellspire, u"Quellspire"));
        } },
        { [] {
            return plugins::PlugInOwner<plugins::VisualPlugIn>(
                plugins::MakePlugIn<TitledBuiltIn>(PlugInKind::kZephor, u"Zephor"));
        } },
    };
    return kBuiltIns;
}

} // namespace orvane::tests
