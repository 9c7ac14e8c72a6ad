// The first half of the feedback step: what each source pixel gives to whoever is fed by it.
//
// The 2 x 2 average and its decay depend on the source pixel alone, so they are made once for each, and what is
// left of the step is to fetch one byte for each target pixel.
#pragma once

#include "zephor/layers/FeedbackForm.h"

#include <cstdint>

namespace orvane::zephor {

// out[x] = Decayed((upper[x] + upper[x + 1] + lower[x] + lower[x + 1]) / 4) for x below `width`. The two rows
// hold width + 1 readable bytes. With the same row twice it is the average of two pixels: the bottom row's.
using AverageRowFunction = void (*)(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                                    int width);

[[nodiscard]] AverageRowFunction AverageRowOf(FeedbackForm form);

} // namespace orvane::zephor
