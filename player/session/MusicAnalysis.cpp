#include "player/session/MusicAnalysis.h"

namespace orvane::player {

void MusicAnalysis::Begin(std::uint32_t rate) {
    mAnalyzer.emplace(rate, records::kAudioChannels);
}

records::AudioRenderData MusicAnalysis::Analyze(std::span<const StereoFrame> window, double seconds) {
    mSamples.clear();
    for (const StereoFrame& frame : window) mSamples.insert(mSamples.end(), { frame.left, frame.right });
    return mAnalyzer->Analyze(mSamples, seconds);
}

} // namespace orvane::player
