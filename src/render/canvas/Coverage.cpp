#include "render/canvas/Coverage.h"

#include "render/canvas/CoverageWide.h"

#include <cstring>

namespace orvane::render {

void BlendPiecesScalar(const CoverageSpan& span, const EdgePiece* pieces, int pieceCount) {
    for (int i = 0; i < span.count; ++i) {
        float coverage = span.base;
        for (int k = 0; k < pieceCount; ++k) coverage += ShareOfPixel(pieces[k], span.x + float(i));
        span.pixels[i] = Over(span.pixels[i], CoverageByte(coverage, span.opacity255));
    }
}

void BlendRun(const CoverageSpan& span) {
    const std::uint8_t coverage = CoverageByte(span.base, span.opacity255);
    if (span.count <= 0 || coverage == 0) return;
    if (coverage == 255)
        std::memset(span.pixels, coverage, std::size_t(span.count));
    else
        for (int i = 0; i < span.count; ++i) span.pixels[i] = Over(span.pixels[i], coverage);
}

#ifdef __SSE2__

void BlendPieces(const CoverageSpan& span, const EdgePiece* pieces, int pieceCount) {
    static_assert(sizeof(EdgePiece) == sizeof(__m128));
    const __m128 opacity255 = _mm_set1_ps(span.opacity255);
    const __m128 ramp = _mm_setr_ps(0, 1, 2, 3);
    for (int i = 0; i < span.count; i += wide::kGroup) {
        const __m128 x = _mm_add_ps(_mm_set1_ps(span.x + float(i)), ramp);
        __m128 coverage = _mm_set1_ps(span.base);
        for (int k = 0; k < pieceCount; ++k)
            coverage =
                _mm_add_ps(coverage, wide::ShareOfPixels(wide::Piece(_mm_loadu_ps(&pieces[k].right)), x));
        wide::BlendFour(span.pixels + i, span.count - i, coverage, opacity255);
    }
}

#else

void BlendPieces(const CoverageSpan& span, const EdgePiece* pieces, int pieceCount) {
    BlendPiecesScalar(span, pieces, pieceCount);
}

#endif

} // namespace orvane::render
