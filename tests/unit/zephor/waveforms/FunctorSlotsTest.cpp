#include "support/SlotOrder.h"

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {
namespace {

TEST(WaveFormFunctorSlots, StandInTheOrderOfTheContract) {
    tests::ExpectSlotOrder(
        {
            ORVANE_SLOT(1, AsyncWaveFormFunctor, Start),
            ORVANE_SLOT(2, AsyncWaveFormFunctor, PrepareFrame),
            ORVANE_SLOT(3, AsyncWaveFormFunctor, MapPoint),
            ORVANE_SLOT(4, AsyncWaveFormFunctor, MapPointAsync),
        },
        0, 0);
}

} // namespace
} // namespace orvane::zephor
