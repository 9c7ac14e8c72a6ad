// The random walk (Walk.h) through the host. The environment variable ORVANE_SOAK=1 asks for the long form,
// ORVANE_WALK_SEED=N for other steps.
#include "system/windows/Walk.h"

namespace orvane::tests {
namespace {

constexpr int kReconnectEvery = 100; // steps

int Length() {
    return WantsLongForm() ? 20'000 : 1'000;
}

TEST_F(Walk, AnyOrderIsAnsweredLosesNothingAndTakesNothing) {
    ASSERT_NO_FATAL_FAILURE(Take(Length()));
    if (WantsLongForm()) mUsageByTenths->ExpectFlat();
    CloseTheBooks();
}

TEST_F(Walk, WithReconnectionsOnlyTheListGrows) {
    ASSERT_NO_FATAL_FAILURE(Take(Length(), kReconnectEvery));
    CloseTheBooks();
}

} // namespace
} // namespace orvane::tests
