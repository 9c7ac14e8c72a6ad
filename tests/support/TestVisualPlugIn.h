// The internal plug-in of the test visualizer.
#pragma once

#include "plugins/internal/InternalVisualPlugIn.h"
#include "support/TestVisualizer.h"

namespace orvane::tests {

class TestVisualPlugIn final : public plugins::InternalVisualPlugIn {
public:
    TestVisualPlugIn()
        : InternalVisualPlugIn(plugins::PlugInKind::kZephor) {}

    bool ActivateInWindow(platform::NativeWindow window) override;
    void ParkLocalizedStrings(const records::LocalizedStrings& list) override; // the visualizer too

    // Null unless active.
    [[nodiscard]] TestVisualizer* Test() const { return static_cast<TestVisualizer*>(mVisualizer.get()); }

    [[nodiscard]] const records::LocalizedStrings& Parked() const { return mLocalizedStrings; }

    // A plug-in has no destructor: what a test parked, it lets go by this.
    void ForgetParked() { records::LocalizedStrings().swap(mLocalizedStrings); }

    [[nodiscard]] platform::OwnedMutex& FrameLock() { return mFrameLock; }

protected:
    ~TestVisualPlugIn() = default;
};

} // namespace orvane::tests
