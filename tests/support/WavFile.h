// A WAV file made in memory: 16-bit samples.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace orvane::tests {

struct WavShape {
    std::uint32_t rate = 44100; // frames a second
    std::uint16_t channels = 2;
    std::uint32_t frames = 0;
};

// `sample` gives each value by its frame and its channel.
[[nodiscard]] std::string WavFile(const WavShape& shape,
                                  const std::function<std::int16_t(std::uint32_t, std::uint16_t)>& sample);

} // namespace orvane::tests
