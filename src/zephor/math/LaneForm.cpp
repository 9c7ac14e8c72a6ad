#include "zephor/math/LaneForm.h"

#include <cstddef>

namespace orvane::zephor::single {

namespace {

struct FormRow {
    LaneForm form;
    const char* name;
};

constexpr FormRow kForms[] = {
    { LaneForm::One, "one lane" },
    { LaneForm::Four, "4 lanes" },
    { LaneForm::Eight, "8 lanes" },
};

constexpr LaneForm kInOrder[] = { LaneForm::One, LaneForm::Four, LaneForm::Eight };

std::size_t CountRunnable() {
#ifdef __x86_64__
    return __builtin_cpu_supports("avx2") ? 3 : 2;
#else
    return 2;
#endif
}

} // namespace

const char* NameOf(LaneForm form) {
    for (const FormRow& row : kForms)
        if (row.form == form) return row.name;
    return "";
}

std::span<const LaneForm> RunnableLaneForms() {
    static const std::size_t sCount = CountRunnable();
    return { kInOrder, sCount };
}

} // namespace orvane::zephor::single
