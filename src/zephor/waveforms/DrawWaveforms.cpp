#include "zephor/waveforms/DrawWaveforms.h"

#include "platform/Clock.h"
#include "platform/Random.h"
#include "zephor/layers/DefaultGenerator.h"
#include "zephor/waveforms/ParkPosition.h"
#include "zephor/waveforms/WaveformPen.h"
#include "zephor/waveforms/WaveformTrace.h"

#include <algorithm>

namespace orvane::zephor {

namespace {

constexpr float kFadePerFrame = 0.0078125f; // 1 / WaveformStage::kFadeFrames
constexpr float kLastFadeOfOldStyle = 0.5f; // beyond it the old waveform's style holds

void RenewContext(WaveFormContext& context, double time) {
    const WaveFormContext fresh;
    context.time = time;
    context.pointSize = fresh.pointSize;
    context.sampleStep = fresh.sampleStep;
    context.colorIndex = fresh.colorIndex;
}

// KEEP: no line is ever parked, because the value that decides it never changes (see DefaultGeneratorValue);
// the positions are drawn all the same, 30 numbers of rand(), on which what is drawn next depends.
// Pinned by DrawWaveforms.NoLineIsParkedWhenAFadeBeginsButEachGetsAPlaceAboveTheScreen.
void ParkLines(WaveformStage& stage) {
    constexpr std::uint32_t kDeciderBits = 3;
    const std::uint32_t decider = DefaultGeneratorValue();
    for (std::size_t line = 0; line < stage.parked.size(); ++line) {
        stage.parked[line] = (decider & kDeciderBits) != 0;
        const ParkPosition position = DrawParkPosition(decider);
        stage.parkX[line] = position.x;
        stage.parkY[line] = position.y;
    }
}

void BeginFade(WaveformStage& stage) {
    ParkLines(stage);
    stage.contextsReady = true;
    stage.previousContext = stage.currentContext;
    stage.waveform->Start(stage.currentContext);
}

// Contexts and functors, up to where points can be made.
void PrepareStage(WaveformStage& stage, const WaveformFrame& frame) {
    constexpr std::int32_t kFirstFrameOfFade = WaveformStage::kFadeFrames - 1;
    stage.currentContext.waveform = frame.audio.waveform[0];
    stage.currentContext.spectrum = frame.audio.spectrum[0];
    RenewContext(stage.previousContext, frame.time);
    RenewContext(stage.currentContext, frame.time);
    if (!stage.contextsReady && stage.previousWaveform) stage.previousWaveform->Start(stage.previousContext);
    if (stage.fadeFrames == kFirstFrameOfFade || !stage.contextsReady) BeginFade(stage);
    if (stage.previousWaveform) stage.previousWaveform->PrepareFrame(stage.previousContext);
    stage.waveform->PrepareFrame(stage.currentContext);
}

// Without a fade exactly the new value, whatever the old one is.
float Mix(float now, float before, float fade) {
    return fade == 0 ? now : now + (before - now) * fade;
}

std::uint8_t MixColour(std::uint8_t now, std::uint8_t before, float fade) {
    return std::uint8_t(now + int(float(before - now) * fade));
}

// One of the two waveforms of the stage.
class StageTrace {
public:
    StageTrace(const WaveformStage& stage, AsyncWaveFormFunctor& functor, const WaveFormContext& context,
               Aspect aspect)
        : mStage(stage)
        , mFunctor(functor)
        , mAspect(functor.fullFrame ? Aspect{ 1, 1 } : aspect)
        , mTrace(functor, context) {}

    // The point of line `line` of the walk, which the functor needn't have: it then repeats one of its own, or
    // the line waits where it is parked.
    WaveFormPoint PointAt(int line, float t) {
        const std::int32_t own = mFunctor.lineCount;
        const std::int32_t repeated = line < own || own <= 0 ? line : line % own;
        const auto parkedLine = std::size_t(line);
        if (line >= own && parkedLine < mStage.parked.size() && mStage.parked[parkedLine])
            return mTrace.Place(repeated, t, mStage.parkX[parkedLine], mStage.parkY[parkedLine]);
        WaveFormPoint point = mTrace.Map(repeated, t);
        point.x *= mAspect.x;
        point.y *= mAspect.y;
        return point;
    }

private:
    const WaveformStage& mStage;
    const AsyncWaveFormFunctor& mFunctor;
    Aspect mAspect;
    WaveformTrace mTrace;
};

// KEEP: even lines show channel 1 and odd ones channel 0, where one might expect the opposite. Effects are drawn
// for it. Pinned by DrawWaveforms.EvenLinesTakeChannel1AndOddOnesChannel0.
void TakeSample(WaveformStage& stage, const ZephorAudioState& audio, int line, int sample) {
    const int channel = line % 2 == 0 ? 1 : 0;
    WaveFormContext& current = stage.currentContext;
    current.sampleWave = audio.waveform[channel][sample];
    current.sampleSpectrum = audio.spectrum[channel][sample];
    stage.previousContext.sampleWave = current.sampleWave;
    stage.previousContext.sampleSpectrum = current.sampleSpectrum;
}

PenPoint ToPixels(const WaveFormPoint& now, const WaveFormPoint& before, float fade,
                  const WaveformFrame& frame) {
    const double x = double(Mix(now.x, before.x, fade)), y = double(Mix(now.y, before.y, fade));
    return { .x = (x + 1) * 0.5 * frame.width,
             .y = (y + 1) * 0.5 * frame.height,
             .size = Mix(now.size, before.size, fade),
             .colorIndex = MixColour(now.colorIndex, before.colorIndex, fade) };
}

void DrawLines(WaveformStage& stage, const WaveformFrame& frame) {
    const float fade = float(stage.fadeFrames) * kFadePerFrame;
    AsyncWaveFormFunctor& waveform = *stage.waveform;
    AsyncWaveFormFunctor* const previous = stage.previousWaveform;
    const WaveFormContext& before = previous ? stage.previousContext : stage.currentContext;
    const int lines = std::max(waveform.lineCount, previous ? previous->lineCount : 0);
    const auto stepNow = float(stage.currentContext.sampleStep), stepBefore = float(before.sampleStep);
    const int step = UsableStep(Mix(stepNow, stepBefore, fade));

    const Aspect aspect = AspectOf(frame.width, frame.height);
    StageTrace trace(stage, waveform, stage.currentContext, aspect);
    // KEEP: the old waveform's points are made in every frame, at rest too, where they weigh nothing: effects draw
    // from rand() as they make points, so leaving it out would change what others draw.
    // Pinned by DrawWaveforms.AtRestTheOldWaveformIsStillMappedAndWeighsNothing.
    StageTrace previousTrace(stage, previous ? *previous : waveform, before, aspect);
    WaveformPen pen(frame, previous && fade > kLastFadeOfOldStyle ? *previous : waveform);
    for (int line = 0; line < lines; ++line) {
        pen.BeginLine();
        ForSamples(step, [&](int sample, float t) {
            TakeSample(stage, frame.audio, line, sample);
            const WaveFormPoint point = trace.PointAt(line, t);
            const WaveFormPoint old = previous ? previousTrace.PointAt(line, t) : point;
            pen.Draw(ToPixels(point, old, fade, frame));
        });
    }
}

} // namespace

void DrawWaveforms(WaveformStage& stage, const WaveformFrame& frame) {
    if (!stage.waveform) return;
    frame.target.BeginDraw();
    PrepareStage(stage, frame);
    DrawLines(stage, frame);
    frame.target.EndDraw();
    SeedRandByClock();
}

void SeedRandByClock() {
    platform::SeedRand(std::uint32_t(std::int64_t(platform::NowSeconds())));
}

} // namespace orvane::zephor
