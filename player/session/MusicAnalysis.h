// The analysis of the player's own sound, two channels.
#pragma once

#include "player/analysis/Analyzer.h"
#include "player/session/Surroundings.h"

#include <optional>
#include <vector>

namespace orvane::player {

class MusicAnalysis final : public ISoundAnalysis {
public:
    void Begin(std::uint32_t rate) override;

    [[nodiscard]] std::size_t WindowFrames() const override { return mAnalyzer->WindowFrames(); }

    [[nodiscard]] records::AudioRenderData Analyze(std::span<const StereoFrame> window,
                                                   double seconds) override;

private:
    static constexpr double kUsualRate = 44100; // frames a second

    std::optional<Analyzer> mAnalyzer = Analyzer(kUsualRate, records::kAudioChannels);
    std::vector<float> mSamples; // of the window, left and right by turns
};

} // namespace orvane::player
