// Which delta field comes next.
#pragma once

#include "zephor/registry/EffectSequence.h"
#include "zephor/registry/PresetTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace orvane::zephor {

using DeltaLengths = std::array<std::size_t, 4>;

// An index drawn from list 1, 2 or 3, by the band that an earlier draw fell into.
[[nodiscard]] std::size_t DrawDeltaIndex(const DeltaLengths& lengths, float band);

// The last preset that a request for a delta field reaches; larger requests mean this one.
constexpr std::int32_t kLastDeltaRequest = 9;

// Makes the functor at an index the one in force; past the end the one in force stays. The old one goes before
// the new one is made, whichever list the new one comes from. (It might as well be forgotten when that is
// list 1: the picture would be the same, and an evening's fields would pile up in memory.)
template <typename Functor>
void InstallDelta(const EffectSequence<std::unique_ptr<Functor> (*)(), 4>& deltas, std::size_t index,
                  std::unique_ptr<Functor>& functor) {
    const FactoryOf<Functor> make = ResolveDelta(deltas, index);
    if (!make) return;
    functor.reset();
    functor = make();
}

// Puts a new functor in force and returns the index to store for it, other than `lastIndex`.
//
// KEEP: the functor is always drawn at random. A preset's is built, its parameters are drawn, and then it is
// replaced; a step gives the index to store and nothing else. So the stored index says little of what is
// shown. It stays: the keys promise another field, not a certain one. Pinned by
// DeltaChoice.APresetChangesTheStoredIndexOnlyNeverTheFunctor.
template <typename Functor>
[[nodiscard]] std::int32_t ChooseDeltaFunctor(const EffectSequence<std::unique_ptr<Functor> (*)(), 4>& deltas,
                                              std::unique_ptr<Functor>& functor, std::int32_t lastIndex,
                                              std::int32_t request) {
    functor.reset();
    const float band = DrawUnit();
    if (const PresetRow* row = FindPreset(std::min(request, kLastDeltaRequest)))
        InstallDelta(deltas, static_cast<std::size_t>(row->delta), functor);
    std::int32_t index = 0;
    do {
        const std::size_t drawn = DrawDeltaIndex(deltas.ListLengths(), band);
        InstallDelta(deltas, drawn, functor);
        index = static_cast<std::int32_t>(drawn);
        if (request != 0) {
            index = WrappingSum(lastIndex, request);
            lastIndex = kNoIndex;
        }
    } while (index == lastIndex);
    return index;
}

} // namespace orvane::zephor
