// The rows of a short segment in vectors of eight, for processors that have AVX2.
#pragma once

#include "render/canvas/SegmentRows.h"

namespace orvane::render {

#ifdef __x86_64__

// Whether this processor can run it.
[[nodiscard]] bool HasAvx2();

// The bytes of FillRowsScalar.
void FillRowsAvx2(const SegmentRows& rows);

#endif

} // namespace orvane::render
