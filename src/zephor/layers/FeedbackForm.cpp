#include "zephor/layers/FeedbackForm.h"

#include <cstddef>

namespace orvane::zephor {

namespace {

struct FormRow {
    FeedbackForm form;
    const char* name;
};

constexpr FormRow kForms[] = {
    { FeedbackForm::Definition, "definition" },
    { FeedbackForm::Portable, "portable" },
    { FeedbackForm::Sse41, "sse41" },
    { FeedbackForm::Avx2, "avx2" },
};

constexpr FeedbackForm kInOrder[] = { FeedbackForm::Definition, FeedbackForm::Portable, FeedbackForm::Sse41,
                                      FeedbackForm::Avx2 };

std::size_t CountRunnable() {
#ifdef __x86_64__
    if (!__builtin_cpu_supports("sse4.1")) return 2;
    return __builtin_cpu_supports("avx2") ? 4 : 3;
#else
    return 2;
#endif
}

} // namespace

const char* NameOf(FeedbackForm form) {
    for (const FormRow& row : kForms)
        if (row.form == form) return row.name;
    return "";
}

std::span<const FeedbackForm> RunnableForms() {
    static const std::size_t sCount = CountRunnable();
    return { kInOrder, sCount };
}

} // namespace orvane::zephor
