// Images and fields of the sizes that screens have.
#pragma once

#include "zephor/layers/FeedbackEngine.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvane::benches {

// Of a layer: the drawing area's plus 2.
struct Size {
    int width, height;
};

constexpr Size kSizes[] = { { 1002, 802 }, { 1922, 1082 }, { 3842, 2162 } };

enum class FieldKind {
    Turn,     // r * 0.97, theta - 0.021
    HardTurn, // r * 0.66, theta - 0.201
    Noise     // from anywhere
};

constexpr FieldKind kFieldKinds[] = { FieldKind::Turn, FieldKind::HardTurn, FieldKind::Noise };

[[nodiscard]] const char* NameOf(FieldKind kind);

[[nodiscard]] std::vector<zephor::DeltaCell> MakeField(Size size, FieldKind kind);

// A field and an image of noise.
struct FeedbackScene {
    Size size;
    std::ptrdiff_t rowBytes;
    std::vector<zephor::DeltaCell> cells;
    std::vector<std::uint8_t> source, target;

    FeedbackScene(Size imageSize, FieldKind kind);

    [[nodiscard]] zephor::FeedbackImages Images();
    [[nodiscard]] zephor::FeedbackField Field() const;
};

} // namespace orvane::benches
