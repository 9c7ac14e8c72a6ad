#include "zephor/waveforms/DrawWaveforms.h"
#include "zephor/waveforms/Overlays.h"
#include "zephor/waveforms/WaveformPen.h"
#include "zephor/waveforms/WaveformTrace.h"

#include <algorithm>

namespace orvane::zephor {

namespace {

constexpr float kOneOf60 = 0.016666668f;
constexpr float kGrowth = 4; // an overlay starts at 1 + this times its size

// KEEP: the waveform starts with the time of the slot's last frame, 0 in the first, because the frame's time is
// written behind the call. Effects that keep their start so reckon from there.
// Pinned by Overlays.AWaveformStartsWithTheTimeOfTheSlotsLastFrame.
void StartIfNew(ZephorOverlaySlot& slot, AsyncWaveFormFunctor& waveform, double time) {
    if (slot.started) return;
    slot.started = true;
    slot.context.pointSize = 1;
    slot.context.endTime = float(slot.endTime - time) * kOneOf60;
    waveform.Start(slot.context);
}

void PrepareContext(WaveFormContext& context, const WaveformFrame& frame) {
    const WaveFormContext fresh;
    context.time = frame.time;
    context.sampleStep = fresh.sampleStep;
    context.colorIndex = fresh.colorIndex;
    context.pass = 0;
}

// Toward the place that the map gave: from the side for a drifting overlay, from five times the size otherwise.
void Approach(WaveFormPoint& point, const ZephorOverlaySlot& slot) {
    if (slot.strength == 0) return;
    if (slot.drift) {
        point.x += (slot.targetX - point.x) * slot.strength;
        point.y += (slot.targetY - point.y) * slot.strength;
    } else {
        const float scale = slot.strength * kGrowth + 1;
        point.x *= scale;
        point.y *= scale;
    }
}

// KEEP: there is no centring term, and the two sides have factors of their own, so an overlay lies around the
// upper left corner, wide and flat, and three quarters of it are off the image.
// Pinned by Overlays.PixelsAreCountedFromTheUpperLeftCorner.
PenPoint ToPixels(const WaveFormPoint& point, const ZephorOverlaySlot& slot, const WaveformFrame& frame) {
    const std::int32_t capped = std::min<std::int32_t>(point.colorIndex, slot.colorCap);
    return { .x = double(point.x) * (frame.width / 2) * 1.5,
             .y = double(point.y) * (frame.height / 2) * 0.5,
             .size = point.size,
             .colorIndex = std::uint8_t(std::max(capped, 0)) };
}

// KEEP: the factors that keep a square a square are for effects that fill the frame, the reverse of what the main
// waveform does. Pinned by Overlays.TheAspectAppliesToFullFrameEffectsOnly.
Aspect AspectFor(const AsyncWaveFormFunctor& waveform, const WaveformFrame& frame) {
    return waveform.fullFrame ? AspectOf(frame.width, frame.height) : Aspect{ 1, 1 };
}

void DrawPass(ZephorOverlaySlot& slot, AsyncWaveFormFunctor& waveform, const WaveformFrame& frame,
              WaveformPen& pen) {
    WaveFormContext& context = slot.context;
    const Aspect aspect = AspectFor(waveform, frame);
    WaveformTrace trace(waveform, context);
    for (int line = 0; line < waveform.lineCount; ++line) {
        pen.BeginLine();
        ForSamples(UsableStep(float(context.sampleStep)), [&](int sample, float t) {
            context.sampleWave = context.waveform[sample];
            context.sampleSpectrum = context.spectrum[sample];
            WaveFormPoint point = trace.Map(line, t);
            point.x *= aspect.x;
            point.y *= aspect.y;
            Approach(point, slot);
            pen.Draw(ToPixels(point, slot, frame));
        });
    }
}

} // namespace

void DrawOverlay(ZephorOverlaySlot& slot, AsyncWaveFormFunctor& waveform, const WaveformFrame& frame) {
    WaveFormContext& context = slot.context;
    context.waveform = frame.audio.waveform[0];
    context.spectrum = frame.audio.spectrum[0];
    StartIfNew(slot, waveform, frame.time);
    PrepareContext(context, frame);
    waveform.PrepareFrame(context);
    WaveformPen pen(frame, waveform);
    for (std::int32_t pass = 0; pass < waveform.passCount; ++pass) {
        if (pass > 0) {
            context.pass = pass;
            waveform.PrepareFrame(context);
        }
        DrawPass(slot, waveform, frame, pen);
    }
    SeedRandByClock();
}

} // namespace orvane::zephor
