// Sound that is made as it is asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::player {

class IStereoSource {
public:
    virtual ~IStereoSource() = default;

    [[nodiscard]] virtual double FramesPerSecond() const = 0;

    // Frames from the beginning to the end.
    [[nodiscard]] virtual std::uint64_t Frames() const = 0;

    // Fills `interleaved`, left and right in turn, with the next frames; at the end with fewer. Returns how many
    // frames came; 0 at the end. Samples are below 1 and above -1.
    virtual std::size_t Read(std::span<float> interleaved) = 0;
};

} // namespace orvane::player
