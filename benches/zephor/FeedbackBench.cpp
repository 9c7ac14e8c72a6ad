// The feedback step beside OpenCV's remap, the fastest library call that does nearly the same: both move each pixel
// by a field of float pairs and mix the neighbours of the place. remap interpolates linearly, and does neither the
// decay nor the fixed 2 x 2 average, so its pictures are not ours. What is compared before a time is taken is our
// step with its definition.
#include "FeedbackScene.h"

#include "SameAnswer.h"
#include "TakingTurns.h"

#include <benchmark/benchmark.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <string>
#include <vector>

namespace {

using namespace orvane::zephor;
using namespace orvane::benches;

constexpr int kSlices = 8;

// The engine with the scene's field prepared, after its picture was seen to be the right one.
void PrepareAndCompare(FeedbackEngine& engine, FeedbackScene& scene) {
    FeedbackRows(scene.Images(), scene.Field(), { 0, scene.size.height });
    const std::vector<std::uint8_t> expected = scene.target;
    std::fill(scene.target.begin(), scene.target.end(), std::uint8_t(0));
    engine.Step(scene.Images(), scene.Field(), 1, kSlices);
    RequireSameAnswer(scene.target == expected, "feedback step");
}

void Own(benchmark::State& state, Size size, FieldKind kind, FeedbackForm form) {
    FeedbackScene scene(size, kind);
    FeedbackEngine engine(1, form);
    PrepareAndCompare(engine, scene);
    for ([[maybe_unused]] auto _ : state) {
        engine.Step(scene.Images(), scene.Field(), 1, kSlices);
        benchmark::ClobberMemory();
    }
}

void OpenCv(benchmark::State& state, Size size, FieldKind kind) {
    FeedbackScene scene(size, kind);
    cv::setNumThreads(1);
    const cv::Mat source(size.height, size.width, CV_8UC1, scene.source.data(), std::size_t(scene.rowBytes));
    cv::Mat target(size.height, size.width, CV_8UC1, scene.target.data(), std::size_t(scene.rowBytes));
    const cv::Mat map(size.height, size.width, CV_32FC2, scene.cells.data());
    for ([[maybe_unused]] auto _ : state) {
        cv::remap(source, target, map, cv::Mat(), cv::INTER_LINEAR);
        benchmark::ClobberMemory();
    }
}

// A frame with a new field: the addresses and blocks made anew.
void NewField(benchmark::State& state, Size size, FieldKind kind) {
    FeedbackScene scene(size, kind);
    FeedbackEngine engine;
    std::uint64_t version = 0;
    for ([[maybe_unused]] auto _ : state) engine.Step(scene.Images(), scene.Field(), ++version, kSlices);
}

void TwoThreads(benchmark::State& state, Size size) {
    FeedbackScene scene(size, FieldKind::Turn);
    FeedbackEngine one(1), two(2);
    PrepareAndCompare(one, scene);
    PrepareAndCompare(two, scene);
    Rounds timesOfOne(Clock::Wall), timesOfTwo(Clock::Wall);
    for ([[maybe_unused]] auto _ : state) {
        // Several in a row, so that the second thread is awake as it is not at sixty frames a second.
        for (int i = 0; i < kTurn; ++i)
            timesOfTwo.Run([&] { two.Step(scene.Images(), scene.Field(), 1, kSlices); });
        for (int i = 0; i < kTurn; ++i)
            timesOfOne.Run([&] { one.Step(scene.Images(), scene.Field(), 1, kSlices); });
    }
    state.counters["own_us"] = timesOfTwo.Median();
    state.counters["one thread_us"] = timesOfOne.Median();
}

void RegisterKernels(Size size, FieldKind kind) {
    const std::string job = std::string("Feedback/") + NameOf(kind) + "-" + std::to_string(size.width);
    const auto add = [&](const std::string& who, auto function) {
        benchmark::RegisterBenchmark((job + "/" + who).c_str(), function)->Unit(benchmark::kMicrosecond);
    };
    add("own", [=](benchmark::State& s) { Own(s, size, kind, BestForm()); });
    add("opencv", [=](benchmark::State& s) { OpenCv(s, size, kind); });
    add("new field", [=](benchmark::State& s) { NewField(s, size, kind); });
    for (const FeedbackForm form : RunnableForms())
        if (form != BestForm()) add(NameOf(form), [=](benchmark::State& s) { Own(s, size, kind, form); });
}

[[maybe_unused]] const bool kRegistered = [] {
    for (const Size size : kSizes) {
        for (const FieldKind kind : kFieldKinds) RegisterKernels(size, kind);
        const std::string job = "FeedbackOnTwoThreads/" + std::to_string(size.width);
        benchmark::RegisterBenchmark(job.c_str(), [=](benchmark::State& s) { TwoThreads(s, size); })
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(20);
    }
    return true;
}();

} // namespace
