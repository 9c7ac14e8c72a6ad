// The widths in which a row of pixels can be worked out. All give the same bits.
#pragma once

#include <span>

namespace orvane::zephor::single {

enum class LaneForm {
    One,  // float by float
    Four, // any processor
    Eight // AVX2
};

[[nodiscard]] const char* NameOf(LaneForm form);

// Those that this processor can run, the narrowest first.
[[nodiscard]] std::span<const LaneForm> RunnableLaneForms();

[[nodiscard]] inline LaneForm WidestLaneForm() {
    return RunnableLaneForms().back();
}

} // namespace orvane::zephor::single
