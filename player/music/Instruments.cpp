#include "player/music/Instruments.h"

namespace orvane::player {

namespace {

// Seconds to 1/e
constexpr double kQuickAttack = 0.002;
constexpr double kBassFall = 0.28, kPadSlope = 0.18, kPluckFall = 0.13;
constexpr double kBellFall = 0.9, kGlassFall = 0.25, kLeadAttack = 0.03, kLeadSlide = 0.02;

constexpr float kSilent = 1e-5f; // 100 dB down: a voice that needs no work

constexpr float kBassLow = 120, kBassHigh = 900, kBassDamping = 0.7f; // Hz; the filter moves between them
constexpr float kSubShare = 0.6f;

constexpr float kDetune = 0.004f; // of the frequency, some 7 hundredths of a semitone either way
constexpr float kPadLow = 250, kPadHigh = 5000, kPadDamping = 1.2f, kPadLevel = 0.25f;

constexpr float kPluckLow = 500, kPluckHigh = 6000, kPluckDamping = 0.8f, kPluckPlace = 0.7f;

constexpr float kGlassRatio = 3.5f, kGlassDepth = 0.25f,
                kBellPlace = 0.4f; // overtone by tone; turns; panning

constexpr float kVibratoHertz = 5.2f, kVibratoDepth = 0.004f;
constexpr float kLeadLow = 900, kLeadHigh = 6500, kLeadDamping = 0.9f;

// A filter opens by ratios, as an ear hears.
float Between(float low, float high, float part) {
    return low * std::pow(high / low, part);
}

} // namespace

Bass::Bass(double framesPerSecond)
    : mRate(framesPerSecond)
    , mFall(FallPerFrame(kBassFall, framesPerSecond))
    , mAttack(FallPerFrame(kQuickAttack, framesPerSecond)) {}

void Bass::Play(int note, float strength) {
    mStep = HertzOf(note) / float(mRate);
    mTarget = strength;
}

float Bass::Next(float brightness) {
    mTarget *= mFall;
    const float level = mLevel.Toward(mTarget, mAttack);
    const float cutoff =
        Filter::Coefficient(kBassLow + (kBassHigh * (0.5f + brightness)) * level * level, mRate);
    return mFilter.Low(mSaw.Saw(mStep * 2), cutoff, kBassDamping) * level +
           mSub.Sine(mStep) * level * kSubShare;
}

Pad::Pad(double framesPerSecond)
    : mRate(framesPerSecond)
    , mSlow(FallPerFrame(kPadSlope, framesPerSecond)) {
    float phase = 0.1f; // all apart, so that they never start together
    for (auto& voice : mVoices)
        for (auto& note : voice.notes) {
            note.left = Oscillator(phase);
            note.right = Oscillator(phase += 0.11f);
        }
}

void Pad::Play(const std::array<int, 4>& notes) {
    mVoices[mCurrent].target = 0;
    mCurrent = (mCurrent + 1) % mVoices.size();
    Voice& voice = mVoices[mCurrent];
    voice.target = kPadLevel;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const float step = HertzOf(notes[i]) / float(mRate);
        voice.notes[i].leftStep = step * (1 - kDetune);
        voice.notes[i].rightStep = step * (1 + kDetune);
    }
}

void Pad::Release() {
    for (auto& voice : mVoices) voice.target = 0;
}

Frame Pad::NextOf(Voice& voice) const {
    const float level = voice.level.Toward(voice.target, mSlow);
    if (level < kSilent) return {};
    Frame sum;
    for (auto& note : voice.notes) sum += { note.left.Saw(note.leftStep), note.right.Saw(note.rightStep) };
    return sum * level;
}

Frame Pad::Next(float brightness) {
    Frame sum;
    for (auto& voice : mVoices) sum += NextOf(voice);
    const float cutoff = Filter::Coefficient(Between(kPadLow, kPadHigh, brightness), mRate);
    return { mLeftFilter.Low(sum.left, cutoff, kPadDamping),
             mRightFilter.Low(sum.right, cutoff, kPadDamping) };
}

Pluck::Pluck(double framesPerSecond)
    : mRate(framesPerSecond)
    , mFall(FallPerFrame(kPluckFall, framesPerSecond))
    , mAttack(FallPerFrame(kQuickAttack, framesPerSecond)) {}

void Pluck::Play(int note, float strength) {
    Voice& voice = mVoices[mNext];
    voice.step = HertzOf(note) / float(mRate);
    voice.target = strength;
    voice.sides = Panning(mNext % 2 == 0 ? -kPluckPlace : kPluckPlace);
    mNext = (mNext + 1) % mVoices.size();
}

Frame Pluck::Next(float brightness) {
    const float open = Between(kPluckLow, kPluckHigh, brightness);
    Frame sum;
    for (auto& voice : mVoices) {
        voice.target *= mFall;
        const float level = voice.level.Toward(voice.target, mAttack);
        if (level < kSilent) continue;
        const float cutoff = Filter::Coefficient(open * (0.3f + level), mRate);
        sum += voice.sides * (voice.filter.Low(voice.tone.Square(voice.step), cutoff, kPluckDamping) * level);
    }
    return sum;
}

Bell::Bell(double framesPerSecond)
    : mRate(framesPerSecond)
    , mFall(FallPerFrame(kBellFall, framesPerSecond))
    , mGlassFall(FallPerFrame(kGlassFall, framesPerSecond))
    , mAttack(FallPerFrame(kQuickAttack, framesPerSecond)) {}

void Bell::Play(int note, float strength) {
    Voice& voice = mVoices[mNext];
    voice.step = HertzOf(note) / float(mRate);
    voice.target = strength;
    voice.glass = kGlassDepth;
    voice.sides = Panning(mNext % 2 == 0 ? -kBellPlace : kBellPlace);
    mNext = (mNext + 1) % mVoices.size();
}

Frame Bell::Next() {
    Frame sum;
    for (auto& voice : mVoices) {
        voice.target *= mFall;
        voice.glass *= mGlassFall;
        const float level = voice.level.Toward(voice.target, mAttack);
        if (level < kSilent) continue;
        const float shift = voice.overtone.Sine(voice.step * kGlassRatio) * voice.glass;
        sum += voice.sides * (voice.tone.Sine(voice.step, shift) * level);
    }
    return sum;
}

Lead::Lead(double framesPerSecond)
    : mRate(framesPerSecond)
    , mAttack(FallPerFrame(kLeadAttack, framesPerSecond))
    , mSlide(FallPerFrame(kLeadSlide, framesPerSecond)) {}

void Lead::Play(int note) {
    mTargetPitch = HertzOf(note) / float(mRate);
    mTarget = 1;
}

void Lead::Release() {
    mTarget = 0;
}

Frame Lead::Next(float brightness) {
    const float level = mLevel.Toward(mTarget, mAttack);
    const float vibrato = 1 + kVibratoDepth * mVibrato.Sine(kVibratoHertz / float(mRate));
    const float step = mPitch.Toward(mTargetPitch, mSlide) * vibrato;
    const float cutoff = Filter::Coefficient(Between(kLeadLow, kLeadHigh, brightness), mRate);
    return { mLeftFilter.Low(mLeft.Saw(step * (1 - kDetune)), cutoff, kLeadDamping) * level,
             mRightFilter.Low(mRight.Saw(step * (1 + kDetune)), cutoff, kLeadDamping) * level };
}

} // namespace orvane::player
