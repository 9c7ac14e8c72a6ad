// The coverage canvas beside Cairo: a trace of 512 connected antialiased segments on an 8-bit surface, the
// same geometry for both, both in every round.
//
// "each" strokes segment by segment, which is what the canvas does; "path" gives Cairo the whole trace as one
// path, its quickest way, though the picture then differs where segments meet. The pictures are compared
// before anything is timed. It is an error not to be faster than both.
#include "render/canvas/CoverageCanvas.h"

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

namespace {

using orvane::render::BitmapProcessingFunctor;
using orvane::render::CoverageCanvas;

constexpr int kWidth = 1002, kHeight = 802;
constexpr int kSegments = 512;

// Segments of an oscilloscope trace: 2 to 20 pixels long, in all directions, none leaving the surface.
std::vector<double> Trace() {
    std::mt19937 random(20);
    const auto unit = [&] { return double(random()) / 4294967296.0; };
    std::vector<double> segments;
    double x = kWidth / 2.0, y = kHeight / 2.0;
    while (segments.size() < kSegments * 4) {
        const double length = 2 + 18 * unit();
        const double angle = 6.283185307 * unit();
        const double toX = x + length * std::cos(angle), toY = y + length * std::sin(angle);
        if (toX < 4 || toY < 4 || toX > kWidth - 4 || toY > kHeight - 4) continue;
        segments.insert(segments.end(), { x, y, toX, toY });
        x = toX;
        y = toY;
    }
    return segments;
}

class CairoSurface {
public:
    explicit CairoSurface(double width)
        : mSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, kWidth, kHeight))
        , mCairo(cairo_create(mSurface)) {
        cairo_set_line_cap(mCairo, CAIRO_LINE_CAP_BUTT);
        cairo_set_line_width(mCairo, width);
        cairo_set_source_rgba(mCairo, 1, 1, 1, 1);
    }

    ~CairoSurface() {
        cairo_destroy(mCairo);
        cairo_surface_destroy(mSurface);
    }

    CairoSurface(const CairoSurface&) = delete;
    CairoSurface& operator=(const CairoSurface&) = delete;

    void DrawEach(const std::vector<double>& segments) {
        for (std::size_t i = 0; i < segments.size(); i += 4) {
            cairo_move_to(mCairo, segments[i], segments[i + 1]);
            cairo_line_to(mCairo, segments[i + 2], segments[i + 3]);
            cairo_stroke(mCairo);
        }
    }

    void DrawPath(const std::vector<double>& segments) {
        cairo_move_to(mCairo, segments[0], segments[1]);
        for (std::size_t i = 0; i < segments.size(); i += 4)
            cairo_line_to(mCairo, segments[i + 2], segments[i + 3]);
        cairo_stroke(mCairo);
    }

    [[nodiscard]] const unsigned char* Row(int y) {
        cairo_surface_flush(mSurface);
        return cairo_image_surface_get_data(mSurface) + y * cairo_image_surface_get_stride(mSurface);
    }

private:
    cairo_surface_t* mSurface;
    cairo_t* mCairo;
};

// The largest and the mean difference of two pictures, the mean over the pixels that either has touched.
class Compare final : public BitmapProcessingFunctor {
public:
    explicit Compare(CairoSurface& other)
        : mOther(other) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t) override {
        int touched = 0;
        double sum = 0;
        for (int y = 0; y < height; ++y) {
            const auto* const row = static_cast<const unsigned char*>(pixels) + std::ptrdiff_t(y) * rowBytes;
            const auto* const otherRow = mOther.Row(y);
            for (int x = 0; x < width; ++x) {
                const int difference = std::abs(row[x] - otherRow[x]);
                touched += row[x] != 0 || otherRow[x] != 0;
                sum += difference;
                mLargest = std::max(mLargest, difference);
            }
        }
        mMean = touched > 0 ? sum / touched : 255;
    }

    CairoSurface& mOther;
    int mLargest = 0;
    double mMean = 255;
};

// Processor time of this thread, so that others on the machine don't count.
double Microseconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e6 + double(time.tv_nsec) * 1e-3;
}

// The times of one of the contenders, a round each.
class Rounds {
public:
    template <typename Draw>
    double Run(const Draw& draw) {
        const double start = Microseconds();
        draw();
        mTimes.push_back(Microseconds() - start);
        return mTimes.back();
    }

    [[nodiscard]] double Median() {
        const auto middle = mTimes.begin() + std::ptrdiff_t(mTimes.size() / 2);
        std::nth_element(mTimes.begin(), middle, mTimes.end());
        return *middle;
    }

private:
    std::vector<double> mTimes;
};

void BesideCairo(benchmark::State& state) {
    const auto lineWidth = double(state.range(0));
    const std::vector<double> segments = Trace();
    const auto canvas = CoverageCanvas::Create(kWidth, kHeight);
    CairoSurface each(lineWidth), path(lineWidth);
    canvas->DrawLines(segments.data(), kSegments, float(lineWidth));
    each.DrawEach(segments);
    Compare compare(each);
    canvas->ReadPixels(compare);
    // Cairo samples its edges on a grid, so its own error is some hundredths of a pixel.
    constexpr int kMostDifference = 32;
    constexpr double kMostMeanDifference = 4;
    if (compare.mLargest > kMostDifference || compare.mMean > kMostMeanDifference) {
        state.SkipWithError("the pictures differ");
        return;
    }
    Rounds ours, theirsEach, theirsPath;
    for (auto _ : state) {
        const double time =
            ours.Run([&] { canvas->DrawLines(segments.data(), kSegments, float(lineWidth)); });
        theirsEach.Run([&] { each.DrawEach(segments); });
        theirsPath.Run([&] { path.DrawPath(segments); });
        state.SetIterationTime(time * 1e-6);
    }
    state.counters["own_us"] = ours.Median();
    state.counters["cairo, each_us"] = theirsEach.Median();
    state.counters["cairo, one path_us"] = theirsPath.Median();
    state.counters["mean_difference"] = compare.mMean;
    if (theirsEach.Median() <= ours.Median() || theirsPath.Median() <= ours.Median())
        state.SkipWithError("not faster than Cairo");
}

BENCHMARK(BesideCairo)
    ->Name("CanvasSegments")
    ->ArgName("width")
    ->DenseRange(1, 3)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(200)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);

} // namespace
