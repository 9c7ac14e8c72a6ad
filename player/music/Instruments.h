// The instruments that play notes. `brightness`, 0 to 1, is how far their filters are open.
#pragma once

#include "player/music/Sound.h"

#include <array>
#include <cstddef>

namespace orvane::player {

// A saw with a sine an octave below, through a filter that closes after each stroke.
class Bass {
public:
    explicit Bass(double framesPerSecond);
    void Play(int note, float strength);
    [[nodiscard]] float Next(float brightness);

private:
    const double mRate;
    const float mFall, mAttack;
    Oscillator mSaw, mSub;
    Filter mFilter;
    Glide mLevel;
    float mStep = 0, mTarget = 0;
};

// A chord of soft saws, wide; each new chord fades into the last.
class Pad {
public:
    explicit Pad(double framesPerSecond);
    void Play(const std::array<int, 4>& notes);
    void Release();
    [[nodiscard]] Frame Next(float brightness);

private:
    struct Note {
        Oscillator left, right;
        float leftStep = 0, rightStep = 0;
    };

    struct Voice {
        std::array<Note, 4> notes;
        Glide level;
        float target = 0;
    };

    [[nodiscard]] Frame NextOf(Voice& voice) const;

    const double mRate;
    const float mSlow;
    std::array<Voice, 2> mVoices;
    std::size_t mCurrent = 0;
    Filter mLeftFilter, mRightFilter;
};

// Short hollow notes, left and right in turn.
class Pluck {
public:
    explicit Pluck(double framesPerSecond);
    void Play(int note, float strength);
    [[nodiscard]] Frame Next(float brightness);

private:
    struct Voice {
        Oscillator tone;
        Filter filter;
        Glide level;
        float step = 0, target = 0;
        Frame sides;
    };

    const double mRate;
    const float mFall, mAttack;
    std::array<Voice, 4> mVoices;
    std::size_t mNext = 0;
};

// A glassy tone whose overtones fade before it does.
class Bell {
public:
    explicit Bell(double framesPerSecond);
    void Play(int note, float strength);
    [[nodiscard]] Frame Next();

private:
    struct Voice {
        Oscillator tone, overtone;
        Glide level;
        float step = 0, target = 0, glass = 0;
        Frame sides;
    };

    const double mRate;
    const float mFall, mGlassFall, mAttack;
    std::array<Voice, 4> mVoices;
    std::size_t mNext = 0;
};

// The tune: two saws a little apart, with a slow vibrato; notes are tied.
class Lead {
public:
    explicit Lead(double framesPerSecond);
    void Play(int note);
    void Release();
    [[nodiscard]] Frame Next(float brightness);

private:
    const double mRate;
    const float mAttack, mSlide;
    Oscillator mLeft, mRight, mVibrato;
    Filter mLeftFilter, mRightFilter;
    Glide mLevel, mPitch;
    float mTarget = 0, mTargetPitch = 0;
};

} // namespace orvane::player
