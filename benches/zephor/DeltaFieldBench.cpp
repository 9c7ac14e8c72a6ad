// Building a delta field beside the same loop on the C library's functions.
#include "SameAnswer.h"
#include "zephor/LibmField.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace orvane::zephor;
using namespace orvane::benches;
using single::LaneForm;

constexpr FieldSize kSizes[] = { { 1002, 802 }, { 1922, 1082 }, { 3840, 2160 } };
constexpr int kStorageKind = 5;
constexpr int kSlicesForThreads = 8;

void SetRate(benchmark::State& state, FieldSize size) {
    state.counters["ns/px"] =
        benchmark::Counter(double(size.width) * size.height * double(state.iterations()) * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Own(benchmark::State& state, const MeasuredMember& member, FieldSize size, int threadCount,
         LaneForm form) {
    ZephorLayerNextDeltaField field(kStorageKind);
    field.Resize(size.width, size.height);
    field.SetSliceCount(kSlicesForThreads);
    const auto functor = MakeMeasured(member.name);
    SliceThreads threads(threadCount);
    Cells cells(std::size_t(size.width) * std::size_t(size.height));
    member.byLibm(size, cells);
    ComputeDeltaField(field, *functor, threads, form);
    RequireSameAnswer(NearlyTheSame(field, cells), member.name);
    for ([[maybe_unused]] auto _ : state) {
        ComputeDeltaField(field, *functor, threads, form);
        benchmark::ClobberMemory();
    }
    SetRate(state, size);
}

void Libm(benchmark::State& state, const MeasuredMember& member, FieldSize size) {
    Cells cells(std::size_t(size.width) * std::size_t(size.height));
    for ([[maybe_unused]] auto _ : state) {
        member.byLibm(size, cells);
        benchmark::ClobberMemory();
    }
    SetRate(state, size);
}

void Register(const std::string& name, auto function) {
    benchmark::RegisterBenchmark(name.c_str(), function)->UseRealTime()->Unit(benchmark::kMicrosecond);
}

[[maybe_unused]] const bool kRegistered = [] {
    for (const MeasuredMember& member : kMeasuredMembers) {
        for (const FieldSize size : kSizes) {
            const std::string job =
                std::string("DeltaField/") + member.job + "-" + std::to_string(size.width);
            const auto own = [=](int threads, LaneForm form) {
                return [=](benchmark::State& state) { Own(state, member, size, threads, form); };
            };
            Register(job + "/own", own(1, single::WidestLaneForm()));
            Register(job + "/libm", [=](benchmark::State& state) { Libm(state, member, size); });
            Register(job + "/4-lanes", own(1, LaneForm::Four));
            Register(job + "/one-lane", own(1, LaneForm::One));
            Register(job + "/2-threads", own(2, single::WidestLaneForm()));
        }
    }
    return true;
}();

} // namespace
