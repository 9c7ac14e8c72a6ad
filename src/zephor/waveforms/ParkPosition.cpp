#include "zephor/waveforms/ParkPosition.h"

#include "platform/Random.h"

namespace orvane::zephor {

namespace {

float DrawAlong() {
    constexpr float kFourOf32767 = 0.00012207404f;
    return float(platform::Rand()) * kFourOf32767 - 2.0f; // -2 to 2
}

float DrawBeyond() {
    constexpr float kOneOf32767 = 3.051851e-05f;
    return float(platform::Rand()) * kOneOf32767 + 1.5f; // 1.5 to 2.5
}

} // namespace

ParkPosition DrawParkPosition(std::uint32_t decider) {
    const bool isNegative = std::int32_t(decider) < 0;
    if (isNegative) {
        const float x = DrawAlong();
        return { x, -DrawBeyond() };
    }
    const float x = DrawBeyond();
    return { x, DrawAlong() };
}

} // namespace orvane::zephor
