// The random walk (Walk.h) through the host. The environment variable ORVANE_SOAK=1 asks for the long form,
// ORVANE_WALK_SEED=N for other steps.
#include "system/windows/Walk.h"

#include "plugins/VisualPlugIn.h"

namespace orvane::tests {
namespace {

constexpr int kReconnectEvery = 100; // steps

// What the list takes for each scan: the example, the counter, the recorder and two built-ins, which keep the help
// texts and the title that the player parked with them.
constexpr double kScanBytes = 5 * sizeof(plugins::VisualPlugIn) + 2 * 4 * sizeof(records::LocalizedString);

// Of all reconnections, those from the middle of the second tenth to the middle of the last.
constexpr double kShareBetweenTenths = 0.8;

int Length() {
    return WantsLongForm() ? 20'000 : 1'000;
}

// In front of a long walk: every kind of step has then been taken in most situations.
int WarmingUp() {
    return WantsLongForm() ? 2'000 : 0;
}

TEST_F(Walk, AnyOrderIsAnsweredLosesNothingAndTakesNothing) {
    ASSERT_NO_FATAL_FAILURE(Take(Length(), 0, WarmingUp()));
    if (WantsLongForm()) mUsageByTenths->ExpectFlat();
    CloseTheBooks();
}

TEST_F(Walk, WithReconnectionsOnlyTheListGrows) {
    ASSERT_NO_FATAL_FAILURE(Take(Length(), kReconnectEvery, WarmingUp()));
    if (WantsLongForm())
        mUsageByTenths->ExpectFlat(std::size_t(mReconnections * kShareBetweenTenths * kScanBytes));
    CloseTheBooks();
}

} // namespace
} // namespace orvane::tests
