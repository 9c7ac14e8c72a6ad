// Which waveform comes next.
//
// The bands are nested: a third of the choices are from list 1, a third from lists 1 and 2, a third from all
// three. So list 1 is favoured, and every waveform can come.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::zephor {

using WaveformLengths = std::array<std::size_t, 3>;

// The index of the next waveform, other than `previousIndex`, the one in force; with a `request` that isn't 0,
// the step from it. The result may be negative (the caller leaves everything as it is, its request included)
// or past the end (ResolveWaveform finds nothing). Draws once for the band and once for each try, with a
// request too. List 1 has two entries or more: with one the tries could go on for very long.
[[nodiscard]] std::int32_t ChooseWaveformIndex(const WaveformLengths& lengths, std::int32_t previousIndex,
                                               std::int32_t request);

// The same bands, and no index of `recent`. Where those are all of list 1 and the band is that list's, the
// tries go on until the draw that lands one past its end, some 32,768 of them.
[[nodiscard]] std::int32_t ChooseOverlayIndex(const WaveformLengths& lengths,
                                              std::span<const std::int32_t> recent);

} // namespace orvane::zephor
