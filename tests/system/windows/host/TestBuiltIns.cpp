// The built-ins of the test host: the test visualizer twice, once in each place that a player knows by its letter.
// Each says what reaches it, so that a test can count.
#include "system/windows/host/TestBuiltIns.h"
#include "platform/Clock.h"
#include "platform/LogLine.h"
#include "plugins/internal/InternalVisualPlugIn.h"
#include "shell/server/BuiltIns.h"
#include "support/TestVisualizer.h"

namespace orvane::tests {

namespace {

using plugins::InternalVisualPlugIn;
using plugins::PlugInKind;
using plugins::VisualPlugIn;

class TestBuiltIn final : public InternalVisualPlugIn {
public:
    TestBuiltIn(PlugInKind kind, std::u16string_view name)
        : InternalVisualPlugIn(kind) {
        SetName(name);
    }

    bool ActivateInWindow(platform::NativeWindow window) override {
        return ActivateWith(window, [&]() -> std::unique_ptr<TestVisualizer> {
            auto made = std::make_unique<TestVisualizer>(platform::NowSeconds());
            if (!made->Start(window, mLocalizedStrings)) return nullptr;
            return made;
        });
    }

    void Stop() override {
        platform::LogLine(kStopReached);
        InternalVisualPlugIn::Stop();
    }

    void Idle() override {
        platform::LogLine(kIdleReached);
        InternalVisualPlugIn::Idle();
    }

    void SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) override {
        platform::LogLine(kArtworkReached);
        InternalVisualPlugIn::SetArtwork(data, size, format);
    }

    void ParkLocalizedStrings(const records::LocalizedStrings& list) override {
        const platform::OwnedLock frame(mFrameLock);
        ParkUnderLock(list);
    }

protected:
    ~TestBuiltIn() = default;
};

template <PlugInKind Kind>
plugins::PlugInOwner<VisualPlugIn> Make() {
    return plugins::MakePlugIn<TestBuiltIn>(Kind, u"Test Visualizer");
}

} // namespace

} // namespace orvane::tests

namespace orvane::shell {

std::span<const BuiltIn> LinkedBuiltIns() {
    static constexpr BuiltIn kBuiltIns[] = {
        { &tests::Make<plugins::PlugInKind::kQuellspire> },
        { &tests::Make<plugins::PlugInKind::kZephor> },
    };
    return kBuiltIns;
}

} // namespace orvane::shell
