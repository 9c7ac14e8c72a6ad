// Building a delta field beside the same loop on the C library's functions.
#include "SameAnswer.h"
#include "TakingTurns.h"
#include "zephor/LibmField.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

namespace {

using namespace orvane::zephor;
using namespace orvane::benches;
using single::LaneForm;

constexpr FieldSize kSizes[] = { { 1002, 802 }, { 1922, 1082 }, { 3840, 2160 } };
constexpr int kStorageKind = 5;
constexpr int kSlices = 8;

constexpr int kRounds = 3;

// The field that is being measured, and the same by the C library.
struct Scene {
    ZephorLayerNextDeltaField field{ kStorageKind };
    std::unique_ptr<DeltafieldFunctor> functor;
    Cells cells;

    Scene(const MeasuredMember& member, FieldSize size)
        : functor(MakeMeasured(member.name))
        , cells(std::size_t(size.width) * std::size_t(size.height)) {
        field.Resize(size.width, size.height);
        field.SetSliceCount(kSlices);
        member.byLibm(size, cells);
    }

    void Compute(SliceThreads& threads, LaneForm form) {
        ComputeDeltaField(field, *functor, threads, form);
        benchmark::ClobberMemory();
    }
};

void OneThread(benchmark::State& state, const MeasuredMember& member, FieldSize size) {
    Scene scene(member, size);
    SliceThreads threads(1);
    std::map<LaneForm, Rounds> own;
    Rounds libm;
    for ([[maybe_unused]] auto _ : state) {
        libm.Run([&] { member.byLibm(size, scene.cells); });
        for (const LaneForm form : single::RunnableLaneForms()) {
            own[form].Run([&] { scene.Compute(threads, form); });
            RequireSameAnswer(NearlyTheSame(scene.field, scene.cells), member.name);
        }
    }
    for (auto& [form, times] : own) {
        const std::string who = form == single::WidestLaneForm() ? "own" : NameOf(form);
        state.counters[who + "_us"] = times.Median();
    }
    state.counters["libm_us"] = libm.Median();
}

void TwoThreads(benchmark::State& state, const MeasuredMember& member, FieldSize size) {
    Scene scene(member, size);
    SliceThreads one(1), two(2);
    Rounds timesOfOne(Clock::Wall), timesOfTwo(Clock::Wall);
    for ([[maybe_unused]] auto _ : state) {
        timesOfTwo.Run([&] { scene.Compute(two, single::WidestLaneForm()); });
        timesOfOne.Run([&] { scene.Compute(one, single::WidestLaneForm()); });
    }
    state.counters["own_us"] = timesOfTwo.Median();
    state.counters["one thread_us"] = timesOfOne.Median();
}

using Measurement = void (*)(benchmark::State& state, const MeasuredMember& member, FieldSize size);

void Register(const char* topic, Measurement measure, const MeasuredMember& member, FieldSize size) {
    const std::string job = std::string(topic) + "/" + member.job + "-" + std::to_string(size.width);
    benchmark::RegisterBenchmark(job.c_str(), [=](benchmark::State& state) { measure(state, member, size); })
        ->Unit(benchmark::kMicrosecond)
        ->Iterations(kRounds);
}

[[maybe_unused]] const bool kRegistered = [] {
    for (const MeasuredMember& member : kMeasuredMembers) {
        for (const FieldSize size : kSizes) {
            Register("DeltaField", OneThread, member, size);
            Register("DeltaFieldOnTwoThreads", TwoThreads, member, size);
        }
    }
    return true;
}();

} // namespace
