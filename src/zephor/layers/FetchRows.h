// The second half of the feedback step: one byte of the averaged image for each target pixel, by a prepared plan.
#pragma once

#include "zephor/layers/FetchPlan.h"

namespace orvane::zephor {

// Makes one row of `width` target pixels from the plan at `plan`, and returns where the next row's begins.
// Windows reach up to kBlockPixels - 1 bytes past the averaged image's last pixel.
using FetchRowFunction = const std::byte* (*)(const std::byte* plan, const std::uint8_t* averaged,
                                              std::uint8_t* target, int width);

[[nodiscard]] FetchRowFunction FetchRowOf(FeedbackForm form);

} // namespace orvane::zephor
