// Frames of a fade of delta fields beside frames at rest. Nobody should see a fade in the time that a frame takes.
#include "FeedbackScene.h"

#include "TakingTurns.h"

#include "zephor/layers/DeltaFieldFade.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>

namespace {

using namespace orvane::zephor;
using namespace orvane::benches;

constexpr Size kSize = { 1922, 1082 };
constexpr int kFades = 15;

void Install(ZephorLayerSet& layers, DeltaFieldFade& fade, const std::vector<DeltaCell>& cells) {
    ZephorLayerNextDeltaField& next = *layers.nextDeltaField;
    next.WillWrite();
    for (int y = 0; y < kSize.height; ++y)
        std::copy_n(cells.begin() + std::ptrdiff_t(y) * kSize.width, kSize.width, next.RowToWrite(y));
    fade.FieldChanged();
}

// "own" is the slowest of the fade's frames, each taken as the median of its kind over the fades; "field" is the one
// that takes in the new field, without what computes it.
void Fade(benchmark::State& state) {
    ZephorLayerSet layers;
    DeltaFieldFade fade;
    layers.Resize(kSize.width, kSize.height);
    const std::vector<DeltaCell> fields[] = { MakeField(kSize, FieldKind::Turn),
                                              MakeField(kSize, FieldKind::HardTurn) };
    const auto frame = [&] {
        fade.StartFrame(layers);
        layers.StepFeedback();
    };
    frame();
    Rounds atRest, field;
    std::array<Rounds, DeltaFieldFade::kFrames> ofFade;
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < kFades; ++i) {
            // The frame picks its fields before it steps; the new one shows with this step.
            field.Run([&] {
                fade.StartFrame(layers);
                Install(layers, fade, fields[i % 2]);
                layers.StepFeedback();
            });
            for (Rounds& rounds : ofFade) rounds.Run(frame);
            for (int k = 0; k < DeltaFieldFade::kFrames; ++k) atRest.Run(frame);
        }
    }
    double slowest = 0;
    for (Rounds& rounds : ofFade) slowest = std::max(slowest, rounds.Median());
    state.counters["own_us"] = slowest;
    state.counters["at rest_us"] = atRest.Median();
    state.counters["field_us"] = field.Median();
}

BENCHMARK(Fade)->Name("FrameOfAFade/1922")->Unit(benchmark::kMicrosecond)->Iterations(1);

} // namespace
