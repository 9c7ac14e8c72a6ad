// The forms that the feedback step exists in. All make the same bytes.
#pragma once

#include <span>

namespace orvane::zephor {

enum class FeedbackForm {
    Definition, // FeedbackRows, straight from the cells
    Portable,   // with addresses prepared for each field, one byte at a time
    Sse41,      // with byte shuffles prepared for each field
    Avx2
};

// Whether the form has byte shuffles, and so SSE4.1.
[[nodiscard]] constexpr bool MayShuffle(FeedbackForm form) {
    return form == FeedbackForm::Sse41 || form == FeedbackForm::Avx2;
}

[[nodiscard]] const char* NameOf(FeedbackForm form);

// Those that this processor can run, the slowest first.
[[nodiscard]] std::span<const FeedbackForm> RunnableForms();

[[nodiscard]] inline FeedbackForm BestForm() {
    return RunnableForms().back();
}

} // namespace orvane::zephor
