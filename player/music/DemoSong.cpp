#include "player/music/DemoSong.h"

#include <cmath>

namespace orvane::player {

namespace {

constexpr double kLowestRate = 8000;

constexpr double kHatSeconds = 0.035, kCrashSeconds = 0.7; // to 1/e
constexpr float kHatHertz = 7000, kCrashHertz = 4500;
constexpr std::uint32_t kHatSeed = 0x51ED270B, kCrashSeed = 0x2545F491;

constexpr double kEchoSeconds = 3 / kStepsPerSecond; // three sixteenths: it falls between the beats

// How loud each instrument is, and how much of it goes to echo and room.
struct Fader {
    float level, echo, room;
};

constexpr Fader kKickFader = { 0.95f, 0, 0 };
constexpr Fader kSnareFader = { 0.5f, 0, 0.15f };
constexpr Fader kHatFader = { 0.16f, 0, 0 };
constexpr Fader kCrashFader = { 0.16f, 0, 0.1f };
constexpr Fader kRiserFader = { 0.22f, 0, 0.2f };
constexpr Fader kBassFader = { 0.29f, 0, 0 };
constexpr Fader kPadFader = { 0.34f, 0, 0.25f };
constexpr Fader kPluckFader = { 0.22f, 0.4f, 0.15f };
constexpr Fader kBellFader = { 0.2f, 0.4f, 0.4f };
constexpr Fader kLeadFader = { 0.17f, 0.35f, 0.25f };
constexpr float kRoomLevel = 0.3f;

constexpr float kGiveWay = 0.7f; // of bass and pad under the kick

constexpr int kArpNotes[] = { 0, 2, 1, 3, 2, 0, 3, 1, 0, 2, 3, 1, 2, 3, 1, 2 }; // of the chord, step by step
constexpr int kOctave = 12;
constexpr float kBellStrength = 0.9f;

constexpr double kFaderSeconds = 0.02; // to 1/e of a change

constexpr double kFadeInSeconds = 0.02, kFadeOutSeconds = 1.5;

std::uint64_t FrameOfStep(int step, double framesPerSecond) {
    return std::uint64_t(std::llround(step * framesPerSecond / kStepsPerSecond));
}

// Bends loud samples over instead of cutting them: close to a straight line below 0.5, 1 at 3 and above.
float Bend(float sample) {
    const float x = std::clamp(sample, -3.0f, 3.0f), square = x * x;
    return x * (27 + square) / (27 + 9 * square);
}

} // namespace

DemoSong::DemoSong(double framesPerSecond)
    : mRate(std::max(framesPerSecond, kLowestRate))
    , mFrames(FrameOfStep(SongBars() * kStepsPerBar, mRate) + std::uint64_t(kTailSeconds * mRate))
    , mFaderSlope(FallPerFrame(kFaderSeconds, mRate))
    , mKick(mRate)
    , mSnare(mRate)
    , mHat(mRate, kHatSeconds, kHatHertz, kHatSeed)
    , mCrash(mRate, kCrashSeconds, kCrashHertz, kCrashSeed)
    , mRiser(mRate)
    , mBass(mRate)
    , mPad(mRate)
    , mPluck(mRate)
    , mBell(mRate)
    , mLead(mRate)
    , mEcho(mRate, kEchoSeconds)
    , mRoom(mRate) {}

std::size_t DemoSong::Read(std::span<float> interleaved) {
    const auto frames = std::size_t(std::min<std::uint64_t>(interleaved.size() / 2, mFrames - mAt));
    for (std::size_t i = 0; i < frames; ++i) {
        const Frame frame = NextFrame();
        interleaved[2 * i] = frame.left;
        interleaved[2 * i + 1] = frame.right;
    }
    return frames;
}

Frame DemoSong::NextFrame() {
    if (mAt == mNextStep) {
        BeginStep(++mStep);
        mNextStep = FrameOfStep(mStep + 1, mRate);
    }
    const double partOfStep = double(mAt) / mRate * kStepsPerSecond - mStep;
    const float progress = std::min(ProgressAt(mPlace, partOfStep), 1.0f);
    const Section& section = *mPlace.section;
    Mix mix;
    AddDrums(mix, progress);
    AddNotes(mix, mBrightness.Toward(std::lerp(section.brightnessFrom, section.brightnessTo, progress),
                                     mFaderSlope));
    const Frame echo = mEcho.Next(mix.echo);
    const Frame room = mRoom.Next(mix.room + echo * kRoomLevel);
    const Frame all = mix.dry + echo + room * kRoomLevel;
    const Frame loud =
        all * mLevel.Toward(std::lerp(section.levelFrom, section.levelTo, progress), mFaderSlope);
    const float fade = EdgeFade() * kCeiling;
    ++mAt;
    return { Bend(loud.left) * fade, Bend(loud.right) * fade };
}

void DemoSong::BeginStep(int step) {
    if (step >= SongBars() * kStepsPerBar) return EndSong();
    mPlace = PlaceOf(step);
    StrikeDrums();
    PlayNotes(step);
    PlayTunes();
}

void DemoSong::StrikeDrums() {
    const Section& section = *mPlace.section;
    if (const float stroke = StrokeAt(section.kick, mPlace.step); stroke > 0) mKick.Strike(stroke);
    if (const float stroke = StrokeAt(section.snare, mPlace.step); stroke > 0) mSnare.Strike(stroke);
    if (const float stroke = StrokeAt(section.hat, mPlace.step); stroke > 0) mHat.Strike(stroke);
    if (section.crash && mPlace.bar == 0 && mPlace.step == 0) mCrash.Strike(1);
}

void DemoSong::PlayNotes(int step) {
    const Section& section = *mPlace.section;
    const Chord& chord = section.chords[std::size_t(mPlace.bar) % section.chords.size()];
    if (mPlace.step == 0) mPad.Play(chord.notes);
    if (const float stroke = StrokeAt(section.bass, mPlace.step); stroke > 0) mBass.Play(chord.bass, stroke);
    if (const float stroke = StrokeAt(section.arp, mPlace.step); stroke > 0)
        mPluck.Play(chord.notes[std::size_t(kArpNotes[step % kStepsPerBar])] + kOctave, stroke);
}

void DemoSong::PlayTunes() {
    const Section& section = *mPlace.section;
    if (section.lead.empty() && mPlace.step == 0) mLead.Release();
    constexpr int stepsPerNote = kStepsPerBar / int(std::tuple_size_v<TuneBar>);
    if (mPlace.step % stepsPerNote != 0) return;
    const auto noteOf = [this](std::span<const TuneBar> tune) {
        return tune.empty()
                   ? kHold
                   : tune[std::size_t(mPlace.bar) % tune.size()][std::size_t(mPlace.step / stepsPerNote)];
    };
    if (const int note = noteOf(section.lead); note != kHold) mLead.Play(note);
    if (const int note = noteOf(section.bell); note != kHold) mBell.Play(note, kBellStrength);
}

void DemoSong::EndSong() {
    mPad.Release();
    mLead.Release();
}

void DemoSong::AddDrums(Mix& mix, float progress) {
    const auto add = [&mix](const Frame& sound, const Fader& fader) {
        mix.dry += sound * fader.level;
        mix.room += sound * (fader.level * fader.room);
    };
    const float kick = mKick.Next();
    add({ kick, kick }, kKickFader);
    add(mSnare.Next(), kSnareFader);
    add(mHat.Next(), kHatFader);
    add(mCrash.Next(), kCrashFader);
    add(mRiser.Next(mPlace.section->riser ? progress : 0), kRiserFader);
}

void DemoSong::AddNotes(Mix& mix, float brightness) {
    const auto add = [&mix](const Frame& sound, const Fader& fader, float level) {
        mix.dry += sound * level;
        mix.echo += sound * (level * fader.echo);
        mix.room += sound * (level * fader.room);
    };
    const float way = 1 - kGiveWay * mKick.Pressure();
    const float bass = mBass.Next(brightness);
    add({ bass, bass }, kBassFader, kBassFader.level * way);
    add(mPad.Next(brightness), kPadFader, kPadFader.level * way);
    add(mPluck.Next(brightness), kPluckFader, kPluckFader.level);
    add(mBell.Next(), kBellFader, kBellFader.level);
    add(mLead.Next(brightness), kLeadFader, kLeadFader.level);
}

// Up from silence at the beginning and down to it at the end.
float DemoSong::EdgeFade() const {
    const double in = double(mAt) / mRate / kFadeInSeconds;
    const double out = double(mFrames - 1 - mAt) / mRate / kFadeOutSeconds;
    return float(std::clamp(std::min(in, out), 0.0, 1.0));
}

} // namespace orvane::player
