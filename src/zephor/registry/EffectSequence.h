// The lists of a family of effects as one sequence: an index counts through the first list, then the second,
// and so on. It stays valid as long as the lists do, and positions are stable, since lists only grow at their
// end.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace orvane::zephor {

template <typename Entry, std::size_t Count>
class EffectSequence {
public:
    using Lists = std::array<std::span<const Entry>, Count>;
    using Lengths = std::array<std::size_t, Count>;

    explicit EffectSequence(const Lists& lists)
        : mLists(lists) {}

    // Null past the end.
    [[nodiscard]] const Entry* Find(std::size_t index) const {
        for (const std::span<const Entry>& list : mLists) {
            if (index < list.size()) return &list[index];
            index -= list.size();
        }
        return nullptr;
    }

    [[nodiscard]] Lengths ListLengths() const {
        Lengths lengths{};
        for (std::size_t i = 0; i < Count; ++i) lengths[i] = mLists[i].size();
        return lengths;
    }

private:
    Lists mLists;
};

// Waveforms are objects, one of each effect.
template <typename Waveform>
using WaveformSequence = EffectSequence<Waveform*, 3>;

// Delta fields are made anew at each choice, with parameters of their own.
template <typename Functor>
using FactoryOf = std::unique_ptr<Functor> (*)();
template <typename Functor>
using DeltaSequence = EffectSequence<FactoryOf<Functor>, 4>;

// Null for a negative index and one past the end: the caller keeps the waveform that it has.
template <typename Waveform>
[[nodiscard]] Waveform* ResolveWaveform(const EffectSequence<Waveform*, 3>& waveforms, std::int32_t index) {
    if (index < 0) return nullptr;
    Waveform* const* entry = waveforms.Find(static_cast<std::size_t>(index));
    return entry ? *entry : nullptr;
}

// As ResolveWaveform, with the first waveform for an index that has none; null only if there is none at all.
template <typename Waveform>
[[nodiscard]] Waveform* ResolveOverlayWaveform(const EffectSequence<Waveform*, 3>& waveforms,
                                               std::int32_t index) {
    Waveform* found = ResolveWaveform(waveforms, index);
    return found ? found : ResolveWaveform(waveforms, 0);
}

// Null past the end.
template <typename Functor>
[[nodiscard]] FactoryOf<Functor> ResolveDelta(const EffectSequence<std::unique_ptr<Functor> (*)(), 4>& deltas,
                                              std::size_t index) {
    const FactoryOf<Functor>* entry = deltas.Find(index);
    return entry ? *entry : nullptr;
}

} // namespace orvane::zephor
