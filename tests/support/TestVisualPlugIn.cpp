#include "support/TestVisualPlugIn.h"

#include "platform/Clock.h"

namespace orvane::tests {

bool TestVisualPlugIn::ActivateInWindow(platform::NativeWindow window) {
    return ActivateWith(window, [&]() -> std::unique_ptr<TestVisualizer> {
        auto made = std::make_unique<TestVisualizer>(platform::NowSeconds());
        if (!made->Start(window, mLocalizedStrings)) return nullptr;
        return made;
    });
}

void TestVisualPlugIn::ParkLocalizedStrings(const records::LocalizedStrings& list) {
    const platform::OwnedLock frame(mFrameLock);
    ParkUnderLock(list);
    if (mVisualizer) mVisualizer->ReplaceHelpStrings(list);
}

} // namespace orvane::tests
