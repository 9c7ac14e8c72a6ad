// The cells of a field as addresses in an image.
#pragma once

#include "zephor/layers/DeltaCell.h"
#include "zephor/layers/FeedbackForm.h"

#include <cstdint>

namespace orvane::zephor {

struct ImageShape {
    int width, height;
    std::uint32_t rowBytes;
};

// out[x] is where the pixel that cells[x] names begins in an image of such a shape, for each column x of a row.
using RowAddressesFunction = void (*)(const DeltaCell* cells, const ImageShape& shape, std::uint32_t* out);

[[nodiscard]] RowAddressesFunction RowAddressesOf(FeedbackForm form);

} // namespace orvane::zephor
