// The feedback step as it is defined: what every faster form must agree with, bit for bit.
//
// Each pixel of the target is the average of a 2 x 2 block of the source (on the bottom row, of two pixels),
// taken at the address that the delta field gives for the pixel, and lowered by one through the decay.
#pragma once

#include "zephor/layers/DeltaCell.h"
#include "zephor/layers/Slices.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orvane::zephor {

// The images of one step. They don't overlap. Of each source row one byte past the last column is read: an
// address may name the last column, and its right neighbour counts.
struct FeedbackImages {
    const std::uint8_t* source = nullptr;
    std::ptrdiff_t sourceRowBytes = 0; // at least width + 1
    std::uint8_t* target = nullptr;
    std::ptrdiff_t targetRowBytes = 0;
    int width = 0, height = 0;
};

// At least as many rows and columns as the images have.
struct FeedbackField {
    const DeltaCell* cells = nullptr;
    std::ptrdiff_t rowBytes = 0;
    int width = 0, height = 0;

    [[nodiscard]] const DeltaCell* Row(int y) const {
        return reinterpret_cast<const DeltaCell*>(reinterpret_cast<const char*>(cells) + y * rowBytes);
    }
};

constexpr int kBrightestFedBack = 239;
constexpr int kAddressBits = 0x07FFFFFF;

// What an average of `index` becomes.
[[nodiscard]] constexpr std::uint8_t Decayed(int index) {
    return std::uint8_t(std::min(kBrightestFedBack, std::max(0, index - 1)));
}

// The column or row that a coordinate names, from 0 to `last`. The coordinate counts as 0 if it is negative
// or not a number.
// `Paired` rounds to nearest, ties to even. An odd width leaves one pixel at the end of each row without a
// partner; for that one the fraction is dropped.
// Of a rounded address the low 27 bits count, and a coordinate that no 32-bit integer holds counts as 0. A finished
// field names nothing past `last`; an address that does, of a field that was made for another size, is held to
// it.
[[nodiscard]] int PairedAddress(float coordinate, int last);
[[nodiscard]] int UnpairedAddress(float coordinate, int last);

// How many columns of a row have partners.
[[nodiscard]] constexpr int PairedColumns(int width) {
    return width & ~1;
}

// The address of column x in an image of such a width.
[[nodiscard]] inline int FeedbackAddress(float coordinate, int last, int x, int width) {
    const bool hasPartner = x < PairedColumns(width);
    return hasPartner ? PairedAddress(coordinate, last) : UnpairedAddress(coordinate, last);
}

void FeedbackRows(const FeedbackImages& images, const FeedbackField& field, RowRange rows);

} // namespace orvane::zephor
