// The song that the player plays when it is given none: made in code, to show what the visualizers do.
//
//   section   bars  seconds  what happens                                  what it shows
//   dawn         4    0 -  8  a chord that swells out of silence, bells      slow growth
//   pulse        4    8 - 16  kick drum, bass, plucked chords                a plain beat
//   verse        8   16 - 32  snare and hats, everything opens               all bands
//   lift         2   32 - 36  no kick: a roll and rising noise               a swell without a beat
//   chorus       8   36 - 52  the tune, full                                 loud
//   still        4   52 - 60  chord and bells alone                          quiet
//   rise         2   60 - 64  kick, roll, rising noise                       a swell with a beat
//   finale       8   64 - 80  the tune again, everything                     loudest
//   end          2   80 - 84  the last chord; the room dies away by 86       fading out
//
// 120 beats a minute, A minor. It is made as it is read, in blocks of any size, always the same samples; nothing is
// above 0.95 of full scale, and it begins and ends with silence.
#pragma once

#include "player/music/Drums.h"
#include "player/music/Instruments.h"
#include "player/music/Room.h"
#include "player/music/Score.h"
#include "player/music/StereoSource.h"

namespace orvane::player {

class DemoSong final : public IStereoSource {
public:
    static constexpr double kTailSeconds = 2.0; // behind the last bar
    static constexpr float kCeiling = 0.95f;

    // 8,000 frames a second at least; less is taken as that.
    explicit DemoSong(double framesPerSecond);

    [[nodiscard]] double FramesPerSecond() const override { return mRate; }

    [[nodiscard]] std::uint64_t Frames() const override { return mFrames; }

    std::size_t Read(std::span<float> interleaved) override;

private:
    // One frame of the drums, and of the rest with what goes on to echo and room.
    struct Mix {
        Frame dry, echo, room;
    };

    [[nodiscard]] Frame NextFrame();
    void BeginStep(int step);
    void StrikeDrums();
    void PlayNotes(int step);
    void PlayTunes();
    void EndSong();
    void AddDrums(Mix& mix, float progress);
    void AddNotes(Mix& mix, float brightness);
    [[nodiscard]] float EdgeFade() const;

    const double mRate;
    const std::uint64_t mFrames;
    std::uint64_t mAt = 0;       // frames that were made
    int mStep = -1;              // the step that sounds
    std::uint64_t mNextStep = 0; // frame at which the next one begins
    Place mPlace;

    const float mFaderSlope;
    Glide mLevel, mBrightness; // so that a new section begins without a click

    Kick mKick;
    Snare mSnare;
    Cymbal mHat, mCrash;
    Riser mRiser;
    Bass mBass;
    Pad mPad;
    Pluck mPluck;
    Bell mBell;
    Lead mLead;
    Echo mEcho;
    Room mRoom;
};

} // namespace orvane::player
