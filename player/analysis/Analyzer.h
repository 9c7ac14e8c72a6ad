// What a pulse carries of the sound around a moment: a waveform and a spectrum for each of two channels.
//
// Shapes
//   The waveform is the 11.6 ms around the moment, 512 samples at 44.1 kHz: 127 is silence, 0 and 254 are full
//   scale. The spectrum is that of the 23 ms around the moment under a Hann window, whose side lobes fall away
//   fast enough that a loud bass doesn't show in the treble; 512 bins of 43 Hz, bin 0 lowest. Other rates use the
//   power of two of frames that is nearest to that time, so that a bin keeps its width (30 to 61 Hz) and a sound its
//   place; bins above half the rate stay 0. Mono sound is in both channels; of more than two the first two count.
//
// Levels
//   A bin is the square root of its amplitude: 255 for a sine 12 dB below full scale, 0 from 80 dB below it down. So
//   6 dB are a factor of 1.4: a scale between the linear one, on which treble and quiet passages round to nothing,
//   and that of decibels, on which a beat hardly stands out from the music around it. The visualizers compare bins
//   with their own average and look for the sudden rise. Above 500 Hz each octave counts 3 dB more, by about as
//   much as music is weaker there. Music near full scale so has a mean byte of some 10 to 30 over the lower half
//   of the bins, which is where the visualizer that wants a mean of 20 has its gain near 1.
//   One of them adapts to how loud music is by itself, by a factor of 16, the other hardly at all. So a slow
//   automatic gain stands in front of both waveform and spectrum: it brings the loudest peak of the last seconds
//   up to 0.7 of full scale, by 18 dB at most, and down at once when it gets louder. It never lowers what is loud,
//   and a break or a swell of some seconds stays one.
//
// The same calls give the same bytes. One call costs some 0.02 ms, and 0.07 ms at 192 kHz.
#pragma once

#include "records/AudioRenderData.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace orvane::player {

class Analyzer {
public:
    // `framesPerSecond` above 0. No channels are taken as one.
    Analyzer(double framesPerSecond, std::size_t channels);
    Analyzer(Analyzer&&) noexcept;
    ~Analyzer();

    // How many frames Analyze wants; the moment is before the one in the middle, WindowFrames() / 2.
    [[nodiscard]] std::size_t WindowFrames() const;

    // `window` holds WindowFrames() frames of `channels` samples, of -1 to 1; what is not in the song is 0. Samples
    // beyond that range are cut there, and those that are no number are silence. A window of another size is silence
    // too. `seconds` is how much time the song has gone on since the last call, for the automatic gain; 0 or less
    // leaves it where it is.
    [[nodiscard]] records::AudioRenderData Analyze(std::span<const float> window, double seconds);

    // The factor that was last applied, 1 to 8.
    [[nodiscard]] float Gain() const;

private:
    struct State;
    std::unique_ptr<State> mState;
};

// The sound of no music: what the host itself takes for silence.
[[nodiscard]] records::AudioRenderData SilentRenderData();

} // namespace orvane::player
