// How much of each pixel a shape covers, and how that goes onto an 8-bit surface.
//
// A pixel is covered by a shape as far as the shape's area within the pixel's square, exactly: within one row
// of pixels, an edge of the shape that runs from yA to yB covers, of pixel i, the integral over y of
// clamp(x(y) - i, 0, 1), the part of the pixel's width to the left of the edge. The sum over the shape's right
// edges less the sum over its left edges is the shape's area in the pixel. No edge is sampled.
//
// Only single additions, multiplications, minima and maxima of floats are used, each rounded by itself, so
// every platform and every form of the code makes the same bytes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::render {

// The pixels of a canvas. Rows are padded: kRowPadding bytes past the last column may be read and written
// back, and hold zero.
struct CoverageSurface {
    static constexpr int kRowPadding = 8;

    std::uint8_t* pixels = nullptr;
    int width = 0, height = 0;
    std::ptrdiff_t rowBytes = 0;

    [[nodiscard]] std::uint8_t* Row(int y) const { return pixels + y * rowBytes; }
};

// The part of an edge within one row of pixels.
struct EdgePiece {
    float right = 0;  // x of the piece's right end, in pixels from an origin that the caller chooses
    float extent = 0; // distance from its left end to its right end, at least kLeastExtent
    float limit = 1;  // 1 + extent
    float weight = 0; // half the piece's height divided by its extent; negative for a left edge

    // A piece that stands upright is taken to lean by this much. That moves no pixel by more than an eighth
    // of it, and keeps the weight finite.
    static constexpr float kLeastExtent = 1.0f / 1024;
    static constexpr float kMostSteepness = 1.0f / kLeastExtent; // y per x
};

// Twice the area, within the pixel whose left side is at x, to the left of a piece, times the weight: the
// piece's share of the pixel.
[[nodiscard]] inline float ShareOfPixel(const EdgePiece& piece, float x) {
    const auto clamp = [](float u) {
        const float low = u > 0.0f ? u : 0.0f;
        return low < 1.0f ? low : 1.0f;
    };
    // Twice the integral of clamp(u, 0, 1) from minus infinity to u is clamp(u) * (2u - clamp(u)).
    // Holding `end` to the limit changes nothing, since beyond it the whole pixel lies to the left of the
    // piece; but it keeps the difference of the two integrals exact far from the piece.
    const float distance = piece.right - x;
    const float end = distance < piece.limit ? distance : piece.limit;
    const float start = end - piece.extent;
    const float endClamped = clamp(end);
    const float startClamped = clamp(start);
    const float area = endClamped * (end + end - endClamped) - startClamped * (start + start - startClamped);
    return area * piece.weight;
}

// What is added before the fraction is dropped. An upright edge on a pixel's boundary loses 1/8192 of the
// pixel to its lean, some 1/32 of a 255th. It is given back, so that a pixel half covered becomes 128 whether
// its edges are level or upright.
constexpr float kRounding = 0.5f + 1.0f / 32;

// Coverage (held to 0..1) in 255ths, rounded to nearest, halves up. `opacity255` is the colour's alpha times
// 255.
[[nodiscard]] inline std::uint8_t CoverageByte(float coverage, float opacity255) {
    const float low = coverage > 0.0f ? coverage : 0.0f;
    const float held = low < 1.0f ? low : 1.0f;
    return std::uint8_t(int(held * opacity255 + kRounding));
}

// Coverage c over a value b: c + b(1 - c), in 255ths, the product rounded to the nearest (255 is odd, so there
// are no halves).
[[nodiscard]] inline std::uint8_t Over(std::uint8_t under, std::uint8_t coverage) {
    constexpr unsigned kHalf = 128;
    const unsigned product = under * (255u - coverage) + kHalf;
    return std::uint8_t(coverage + ((product + (product >> 8)) >> 8));
}

// A span of `count` pixels from `pixels`, the first with its left side at `x`, gets the coverage
// `base` + the share of each of the `pieceCount` pieces. Up to kRowPadding - 1 bytes past the span may be read
// and written back unchanged.
struct CoverageSpan {
    std::uint8_t* pixels = nullptr;
    int count = 0;
    float x = 0;
    float base = 0;
    float opacity255 = 255;
};

void BlendPiecesScalar(const CoverageSpan& span, const EdgePiece* pieces, int pieceCount);
// The same bytes, four pixels at a time; the scalar form where the processor family has no SSE2.
void BlendPieces(const CoverageSpan& span, const EdgePiece* pieces, int pieceCount);

// The same coverage, `span.base`, for every pixel of the span.
void BlendRun(const CoverageSpan& span);

} // namespace orvane::render
