// The waveforms of a frame beside the feedback step of the same frame: two connected traces, 510 segments, with a
// second waveform that is mapped and weighs nothing, as at rest. Nobody else does this job; the canvas's own bench
// stands its segments beside a library's.
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/layers/ZephorLayerSet.h"
#include "zephor/waveforms/DrawWaveforms.h"

#include "FeedbackScene.h"
#include "SameAnswer.h"
#include "TakingTurns.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace {

using namespace orvane::zephor;
using orvane::benches::FieldKind;
using orvane::benches::MakeField;
using orvane::benches::RequireSameAnswer;
using orvane::benches::Rounds;

constexpr int kWidth = 1002, kHeight = 802;

AsyncWaveFormFunctor* Named(std::string_view name) {
    for (AsyncWaveFormFunctor* waveform : WaveformList3())
        if (waveform->name == name) return waveform;
    return nullptr;
}

struct Scene {
    ZephorLayerSet layers;
    ZephorAudioState audio{};
    WaveformStage stage;
    std::array<std::uint32_t, 256> table{};
    double seconds = 5000;

    Scene() {
        layers.Resize(kWidth, kHeight);
        ZephorLayerNextDeltaField& field = *layers.nextDeltaField;
        const std::vector<DeltaCell> cells = MakeField({ kWidth, kHeight }, FieldKind::Turn);
        field.WillWrite();
        for (int y = 0; y < kHeight; ++y)
            std::copy_n(cells.begin() + std::ptrdiff_t(y) * kWidth, kWidth, field.RowToWrite(y));
        stage.waveform = Named("Default Waveform");
        stage.previousWaveform = Named("Example Spectrum");
        RequireSameAnswer(stage.waveform && stage.previousWaveform, "the effects of the scene");
    }

    // Another sound in each frame.
    void MakeSound() {
        seconds += 1.0 / 40;
        for (int i = 0; i < kAudioPoints; ++i)
            audio.waveform[0][i] = audio.waveform[1][i] = float(std::sin(i * 0.7 + seconds * 40) * 0.5);
    }

    void DrawSound() {
        DrawWaveforms(stage, { *layers.targetLayer, audio, seconds, kWidth, kHeight, ColourTable(table) });
    }
};

// Whole frames, so that the image is as full of trails as it always is.
void Frames(benchmark::State& state) {
    constexpr int kSettling = 250; // after so many frames the trails are as old as they get
    constexpr int kFrames = 300, kFramesByDefinition = 60;
    Scene scene;
    Rounds settling, step, stepByDefinition, traces;
    const auto run = [&](int frames, Rounds& steps, Rounds& drawings) {
        for (int frame = 0; frame < frames; ++frame) {
            scene.MakeSound();
            steps.Run([&] { scene.layers.StepFeedback(); });
            drawings.Run([&] { scene.DrawSound(); });
        }
    };
    run(kSettling, settling, settling);
    for ([[maybe_unused]] auto _ : state) {
        run(kFrames, step, traces);
        scene.layers.engine.UseForm(FeedbackForm::Definition);
        run(kFramesByDefinition, stepByDefinition, traces);
    }
    state.counters["own_us"] = traces.Median();
    state.counters["feedback step_us"] = step.Median();
    state.counters["step by definition_us"] = stepByDefinition.Median();
}

BENCHMARK(Frames)->Name("Waveforms/510-segments-1002")->Unit(benchmark::kMicrosecond)->Iterations(1);

} // namespace
