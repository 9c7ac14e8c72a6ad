// When each pulse went out and what it carried, in a file: for those who want to know how evenly the frames come and
// how far a sound is from its picture.
//
// A line for each pulse, three numbers: the seconds of the clock at which it was sent, the seconds of the track that
// it says are heard by then, and how far its waveform goes from silence (0 to 128, both channels).
#pragma once

#include "records/AudioRenderData.h"

#include <fstream>
#include <string>

namespace orvane::player {

class PulseLog {
public:
    // `path` is UTF-8; an empty one keeps no log. What the file held is gone.
    explicit PulseLog(const std::string& path);

    // Whether all that was to be written so far could be.
    [[nodiscard]] bool IsWell() const { return mFile.good(); }

    void Sent(double seconds, double position, const records::AudioRenderData& sound);

private:
    std::ofstream mFile; // not open: nothing is written
};

} // namespace orvane::player
