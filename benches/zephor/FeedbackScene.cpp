#include "FeedbackScene.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace orvane::benches {

using zephor::DeltaCell;

namespace {

struct FieldRow {
    FieldKind kind;
    const char* name;
    double zoom, turn;
};

constexpr FieldRow kFields[] = { { FieldKind::Turn, "turn", 0.97, 0.021 },
                                 { FieldKind::HardTurn, "hard-turn", 0.66, 0.201 },
                                 { FieldKind::Noise, "noise", 1, 0 } };

const FieldRow& RowOf(FieldKind kind) {
    return *std::find_if(std::begin(kFields), std::end(kFields),
                         [=](const FieldRow& row) { return row.kind == kind; });
}

// From the plane, which is [-1, 1] in both directions, to pixels.
float Coordinate(double value, int size) {
    return float(std::clamp((value + 1) * 0.5 * size, 0.0, size - 1.0));
}

} // namespace

const char* NameOf(FieldKind kind) {
    return RowOf(kind).name;
}

std::vector<DeltaCell> MakeField(Size size, FieldKind kind) {
    const FieldRow& field = RowOf(kind);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-1, 1);
    std::vector<DeltaCell> cells;
    cells.reserve(std::size_t(size.width) * std::size_t(size.height));
    for (int row = 0; row < size.height; ++row)
        for (int column = 0; column < size.width; ++column) {
            const double x = column * 2.0 / size.width - 1, y = row * 2.0 / size.height - 1;
            const double r = std::sqrt(x * x + y * y) * field.zoom, theta = std::atan2(y, x) - field.turn;
            const bool isNoise = kind == FieldKind::Noise;
            cells.push_back({ Coordinate(isNoise ? anywhere(random) : std::cos(theta) * r, size.width),
                              Coordinate(isNoise ? anywhere(random) : std::sin(theta) * r, size.height) });
        }
    return cells;
}

FeedbackScene::FeedbackScene(Size imageSize, FieldKind kind)
    : size(imageSize)
    , rowBytes((imageSize.width + 8 + 15) / 16 * 16)
    , cells(MakeField(imageSize, kind))
    , source(std::size_t(rowBytes) * std::size_t(imageSize.height))
    , target(source.size()) {
    std::mt19937 random(1);
    for (std::uint8_t& pixel : source) pixel = std::uint8_t(random());
}

zephor::FeedbackImages FeedbackScene::Images() {
    return { source.data(), rowBytes, target.data(), rowBytes, size.width, size.height };
}

zephor::FeedbackField FeedbackScene::Field() const {
    return { cells.data(), std::ptrdiff_t(sizeof(DeltaCell)) * size.width, size.width, size.height };
}

} // namespace orvane::benches
