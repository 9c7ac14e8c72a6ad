// A formula of two arguments, applied to many in one of the widths.
#pragma once

#include "zephor/math/LaneForm.h"
#include "zephor/math/Single.h"

#include <cstddef>
#include <vector>

namespace orvane::tests {

using Floats = std::vector<float>;

template <class T, class Formula>
[[gnu::always_inline]] inline void ApplyLanes(Formula formula, const Floats& a, const Floats& b,
                                              Floats& results) {
    namespace single = zephor::single;
    constexpr std::size_t kLanes = single::kLaneCount<T>;
    for (std::size_t i = 0; i + kLanes <= a.size(); i += kLanes)
        single::Store(&results[i], formula(single::Load<T>(&a[i]), single::Load<T>(&b[i])));
}

#ifdef __x86_64__
template <class Formula>
[[gnu::target("avx2")]] void ApplyEight(Formula formula, const Floats& a, const Floats& b, Floats& results) {
    ApplyLanes<zephor::single::Lanes8>(formula, a, b, results);
}
#endif

// `a` and `b` have the same length, a multiple of 8. `formula` is a class with an operator() for every width.
template <class Formula>
Floats Applied(Formula formula, zephor::single::LaneForm form, const Floats& a, const Floats& b) {
    using zephor::single::LaneForm;
    Floats results(a.size());
    if (form == LaneForm::One) ApplyLanes<float>(formula, a, b, results);
    if (form == LaneForm::Four) ApplyLanes<zephor::single::Lanes4>(formula, a, b, results);
#ifdef __x86_64__
    if (form == LaneForm::Eight) ApplyEight(formula, a, b, results);
#endif
    return results;
}

} // namespace orvane::tests
