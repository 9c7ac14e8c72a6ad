// What a canvas ought to show, in double precision and without any of its code: a shape is a polygon, and a
// pixel's coverage is the area of the polygon cut by the pixel's square.
#pragma once

#include "render/IRenderer2D.h"

#include <cstdint>
#include <random>
#include <vector>

namespace orvane::tests {

struct Vertex {
    double x, y;
};

using Polygon = std::vector<Vertex>; // convex, either way round

// The rectangle of that width around the segment, with flat ends.
Polygon SegmentPolygon(const double segment[4], double width);
Polygon RectanglePolygon(double left, double top, double right, double bottom);
// All that lies within `distance` of the ellipse and its inside, as a polygon of some thousand corners.
Polygon GrownEllipse(double centreX, double centreY, double radiusX, double radiusY, double distance);
// All that lies within the ellipse and at least `distance` from its edge: what thousands of tangents, moved
// inwards, leave. May be empty.
Polygon ShrunkEllipse(double centreX, double centreY, double radiusX, double radiusY, double distance);

// Coverage of every pixel, 0 to 1, row by row.
struct CoverageMap {
    int width, height;
    std::vector<double> coverage;

    CoverageMap(int w, int h)
        : width(w)
        , height(h)
        , coverage(std::size_t(w) * std::size_t(h)) {}

    double& At(int x, int y) { return coverage[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }

    // Adds the area of the polygon in every pixel, times `sign`.
    void Add(const Polygon& polygon, double sign);

    // Sets each pixel to the part of its 64 x 64 samples for which `inside`(x, y) holds.
    template <typename Inside>
    void Sample(const Inside& inside);
};

// The bytes of an 8-bit surface, without the padding.
std::vector<std::uint8_t> PixelsOf(render::IRenderer2D& canvas);

// The largest difference, in 255ths, between the pixels and the coverage over a background of 255ths.
double LargestError(const std::vector<std::uint8_t>& pixels, const CoverageMap& map,
                    const std::vector<std::uint8_t>& background);

// Random numbers that are the same with every library.
class Dice {
public:
    explicit Dice(std::uint32_t seed)
        : mEngine(seed) {}

    double Between(double low, double high) {
        return low + (high - low) * (double(mEngine()) / 4294967296.0);
    }

    int Below(int limit) { return int(mEngine() % std::uint32_t(limit)); }

private:
    std::mt19937 mEngine;
};

template <typename Inside>
void CoverageMap::Sample(const Inside& inside) {
    constexpr int kSamples = 64;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            int hits = 0;
            for (int j = 0; j < kSamples; ++j)
                for (int i = 0; i < kSamples; ++i)
                    hits += inside(x + (i + 0.5) / kSamples, y + (j + 0.5) / kSamples);
            At(x, y) = double(hits) / (kSamples * kSamples);
        }
}

} // namespace orvane::tests
