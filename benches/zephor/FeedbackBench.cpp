// The feedback step beside OpenCV's remap. Both move each pixel by a field of float pairs and average the
// neighbours of the place; remap interpolates linearly, and does neither the decay nor the fixed 2 x 2 average.
//
// remap's pictures are so not ours: what is compared before a time is taken is our step with its definition.
#include "zephor/layers/FeedbackEngine.h"

#include "SameAnswer.h"

#include <benchmark/benchmark.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace orvane::zephor;
using orvane::benches::RequireSameAnswer;

struct Size {
    int width, height;
};

constexpr Size kSizes[] = { { 1002, 802 }, { 1922, 1082 }, { 3842, 2162 } };

enum class FieldKind { ExpandAndTurn, HardTurn, NearNoise, Noise };

struct FieldRow {
    FieldKind kind;
    const char* name;
};

constexpr FieldRow kFields[] = { { FieldKind::ExpandAndTurn, "turn" },
                                 { FieldKind::HardTurn, "hard-turn" },
                                 { FieldKind::NearNoise, "near-noise" },
                                 { FieldKind::Noise, "noise" } };

float Held(double value, int size) {
    return float(std::min(std::max(value, 0.0), size - 1.0));
}

std::vector<DeltaCell> MakeField(Size size, FieldKind kind) {
    std::vector<DeltaCell> cells;
    cells.reserve(std::size_t(size.width) * std::size_t(size.height + 1));
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0, 1);
    for (int row = 0; row < size.height; ++row) {
        for (int column = 0; column < size.width; ++column) {
            const double x = column * 2.0 / size.width - 1, y = row * 2.0 / size.height - 1;
            double r = std::sqrt(x * x + y * y), theta = std::atan2(y, x), noiseX = 0, noiseY = 0;
            switch (kind) {
            case FieldKind::ExpandAndTurn:
                r *= 0.97, theta -= 0.021;
                break;
            case FieldKind::HardTurn:
                r *= 0.66, theta -= 0.201;
                break;
            case FieldKind::NearNoise:
                noiseX = unit(random) * 0.01, noiseY = unit(random) * 0.01;
                break;
            case FieldKind::Noise:
                noiseX = unit(random) * 2 - 1, noiseY = unit(random) * 2 - 1;
                break;
            }
            cells.push_back({ Held((std::cos(theta) * r + noiseX + 1) * 0.5 * size.width, size.width),
                              Held((std::sin(theta) * r + noiseY + 1) * 0.5 * size.height, size.height) });
        }
    }
    cells.resize(std::size_t(size.width) * std::size_t(size.height + 1));
    return cells;
}

struct Scene {
    Size size;
    std::ptrdiff_t rowBytes;
    std::vector<DeltaCell> cells;
    std::vector<std::uint8_t> source, target;

    Scene(Size imageSize, FieldKind kind)
        : size(imageSize)
        , rowBytes((imageSize.width + 8 + 15) / 16 * 16)
        , cells(MakeField(imageSize, kind))
        , source(std::size_t(rowBytes) * std::size_t(imageSize.height))
        , target(source.size()) {
        std::mt19937 random(1);
        for (std::uint8_t& pixel : source) pixel = std::uint8_t(random());
    }

    [[nodiscard]] FeedbackImages Images() {
        return { source.data(), rowBytes, target.data(), rowBytes, size.width, size.height };
    }

    [[nodiscard]] FeedbackField Field() const {
        return { cells.data(), std::ptrdiff_t(sizeof(DeltaCell)) * size.width, size.width, size.height };
    }
};

void SetRates(benchmark::State& state, Size size, bool isWall) {
    const double pixels = double(size.width) * size.height;
    state.counters["ns/px"] = benchmark::Counter(pixels * double(state.iterations()) * 1e-9,
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    static_cast<void>(isWall);
}

void Own(benchmark::State& state, Size size, FieldKind kind, int threads, FeedbackForm form) {
    Scene scene(size, kind);
    FeedbackEngine engine(threads, form);
    FeedbackRows(scene.Images(), scene.Field(), { 0, size.height });
    const std::vector<std::uint8_t> expected = scene.target;
    std::fill(scene.target.begin(), scene.target.end(), std::uint8_t(0));
    const int slices = std::max(2, threads * 4);
    engine.Step(scene.Images(), scene.Field(), 1, slices);
    RequireSameAnswer(scene.target == expected, "feedback step");
    for ([[maybe_unused]] auto _ : state) {
        engine.Step(scene.Images(), scene.Field(), 1, slices);
        benchmark::ClobberMemory();
    }
    SetRates(state, size, threads > 1);
    state.counters["plan B/px"] = double(engine.PreparedBytes()) / (double(size.width) * size.height);
}

void OpenCv(benchmark::State& state, Size size, FieldKind kind) {
    Scene scene(size, kind);
    cv::setNumThreads(1);
    const cv::Mat source(size.height, size.width, CV_8UC1, scene.source.data(), std::size_t(scene.rowBytes));
    cv::Mat target(size.height, size.width, CV_8UC1, scene.target.data(), std::size_t(scene.rowBytes));
    const cv::Mat map(size.height, size.width, CV_32FC2, scene.cells.data());
    for ([[maybe_unused]] auto _ : state) {
        cv::remap(source, target, map, cv::Mat(), cv::INTER_LINEAR);
        benchmark::ClobberMemory();
    }
    SetRates(state, size, false);
}

void Prepare(benchmark::State& state, Size size, FieldKind kind) {
    Scene scene(size, kind);
    FeedbackEngine engine;
    std::uint64_t version = 0;
    for ([[maybe_unused]] auto _ : state) engine.Step(scene.Images(), scene.Field(), ++version, 2);
    SetRates(state, size, false);
}

void Register(const std::string& name, auto function) {
    benchmark::RegisterBenchmark(name.c_str(), function)->UseRealTime()->Unit(benchmark::kMicrosecond);
}

[[maybe_unused]] const bool kRegistered = [] {
    for (const Size size : kSizes) {
        for (const FieldRow& field : kFields) {
            const FieldKind kind = field.kind;
            const std::string job = std::string("Feedback/") + field.name + "-" + std::to_string(size.width);
            Register(job + "/own", [=](benchmark::State& s) { Own(s, size, kind, 1, BestForm()); });
            Register(job + "/opencv", [=](benchmark::State& s) { OpenCv(s, size, kind); });
            Register(job + "/2-threads", [=](benchmark::State& s) { Own(s, size, kind, 2, BestForm()); });
            Register(job + "/sse41",
                     [=](benchmark::State& s) { Own(s, size, kind, 1, FeedbackForm::Sse41); });
            Register(job + "/portable",
                     [=](benchmark::State& s) { Own(s, size, kind, 1, FeedbackForm::Portable); });
            Register(job + "/definition",
                     [=](benchmark::State& s) { Own(s, size, kind, 1, FeedbackForm::Definition); });
            Register(job + "/new-field", [=](benchmark::State& s) { Prepare(s, size, kind); });
        }
    }
    return true;
}();

} // namespace
