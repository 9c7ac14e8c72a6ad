// One track being played: keeps the device supplied, and knows what is heard.
//
// Feed is called again and again by a thread of its own, so that the sound doesn't wait for anybody's picture;
// everything else may be called by another thread at any time. A call lasts as long as decoding one chunk does.
#pragma once

#include "player/pacing/ListeningClock.h"
#include "player/sound/HeardSound.h"
#include "player/sound/SoundDevice.h"
#include "player/sound/SoundHistory.h"
#include "player/sound/SoundSource.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace orvane::player {

class Deck final : public IHeardSound {
public:
    // A clock that never runs backwards, in seconds.
    using Clock = std::function<double()>;

    // Plays on `device`, and on `spare` as soon as `device` can't be opened or goes away. `spare` must always
    // open. CopyHeard answers with the sound that was heard `delaySeconds` ago; a negative delay looks ahead.
    Deck(ISoundDevice& device, ISoundDevice& spare, Clock clock, double delaySeconds = 0);

    // Plays a track from that second on, in the place of what was played before; a pause ends.
    void Load(std::unique_ptr<ISoundSource> source, double seconds);

    // Decodes and writes as much as the device takes. Does nothing without a track.
    void Feed();

    void Pause(bool paused);
    [[nodiscard]] bool IsPaused() const;

    // Goes on from that second; before the beginning is the beginning.
    void Seek(double seconds);

    // What second of the track is heard.
    [[nodiscard]] double Position() const;

    // Of the track; 0 if nobody knows, or there is none.
    [[nodiscard]] double Duration() const;

    // Whether the track has been heard to its end.
    [[nodiscard]] bool IsOver() const;

    // Whether it plays on the spare device.
    [[nodiscard]] bool IsOnSpare() const;

    [[nodiscard]] std::uint32_t Rate() const override;
    void CopyHeard(std::span<StereoFrame> window) const override;

private:
    void SwitchToSpare();
    void Restart(std::int64_t frame);
    void BeginAt(std::int64_t frame);
    void FillDevice();
    [[nodiscard]] std::int64_t HeardFrame() const;
    [[nodiscard]] double Now() const;

    mutable std::mutex mMutex; // guards everything below
    ISoundDevice* mDevice;
    ISoundDevice* const mSpare;
    const Clock mClock;
    const double mDelaySeconds;
    std::unique_ptr<ISoundSource> mSource;
    SoundHistory mHistory;
    std::int64_t mFirstFrame = 0; // of the track: the first one written since the last seek
    bool mSourceEnded = false;
    bool mPaused = false;
    double mPausedAt = 0;                             // seconds of the clock
    mutable std::optional<ListeningClock> mListening; // of the track: a device tells its place in steps
};

} // namespace orvane::player
