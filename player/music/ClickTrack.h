// A click each half second, to see whether picture and sound come together: a flash in silence is easy to place.
#pragma once

#include "player/music/StereoSource.h"

namespace orvane::player {

class ClickTrack final : public IStereoSource {
public:
    static constexpr double kSecondsBetween = 0.5; // the first click is at the beginning
    static constexpr double kClickSeconds = 0.03;
    static constexpr float kPeak = 0.9f;

    ClickTrack(double framesPerSecond, double seconds)
        : mFramesPerSecond(framesPerSecond)
        , mFrames(std::uint64_t(framesPerSecond * seconds)) {}

    [[nodiscard]] double FramesPerSecond() const override { return mFramesPerSecond; }

    [[nodiscard]] std::uint64_t Frames() const override { return mFrames; }

    std::size_t Read(std::span<float> interleaved) override;

private:
    [[nodiscard]] float SampleAt(std::uint64_t frame) const;

    const double mFramesPerSecond;
    const std::uint64_t mFrames;
    std::uint64_t mAt = 0;
};

} // namespace orvane::player
