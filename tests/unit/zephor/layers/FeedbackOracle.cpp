#include "FeedbackOracle.h"

#include <array>
#include <cmath>
#include <limits>

namespace orvane::tests {

using zephor::DeltaCell;
using zephor::FeedbackEngine;

namespace {

// To the nearest integer and of two equally near ones the even one.
std::int64_t Rounded(double value) {
    const double below = std::floor(value);
    const auto whole = std::int64_t(below);
    if (value - below > 0.5) return whole + 1;
    if (value - below < 0.5) return whole;
    return whole % 2 == 0 ? whole : whole + 1;
}

std::int64_t Address(float coordinate, bool hasPartner, int last) {
    const double value = double(coordinate);
    if (std::isnan(value) || value < 0) return 0;
    if (value > 2147483647.0) return 0; // no 32-bit integer holds it
    const std::int64_t address = hasPartner ? Rounded(value) & 0x07FFFFFF : std::int64_t(std::floor(value));
    return std::min<std::int64_t>(address, last);
}

std::array<std::uint8_t, 256> DecayTable() {
    std::array<std::uint8_t, 256> table{};
    for (int i = 0; i < 256; ++i) table[std::size_t(i)] = std::uint8_t(i < 1 ? 0 : i > 240 ? 239 : i - 1);
    return table;
}

float Between(std::mt19937& random, double low, double high) {
    return float(low + (high - low) * (double(random()) / 4294967296.0));
}

float Outside(std::mt19937& random, int size) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kEndless = std::numeric_limits<float>::infinity();
    const float values[] = { kNan,
                             -kNan,
                             kEndless,
                             -kEndless,
                             -0.0f,
                             -0.4f,
                             -3.7f,
                             -1e9f,
                             std::numeric_limits<float>::denorm_min(),
                             float(size - 1),
                             float(size) - 0.5f,
                             float(size) + 0.5f,
                             1e5f,
                             134217728.0f, // 2^27: 0 under the mask
                             134217728.0f + 16.0f,
                             134217720.0f,
                             2147483520.0f, // the last float that a 32-bit integer holds
                             2147483648.0f,
                             4e9f,
                             1e30f };
    return values[random() % std::size(values)];
}

DeltaCell MakeCell(int x, int y, const TestField& field, CellKind kind, std::mt19937& random) {
    const float width = float(field.width), height = float(field.height);
    switch (kind) {
    case CellKind::Turn: {
        const float fromX = float(x) - width / 2, fromY = float(y) - height / 2;
        return { width / 2 + fromX * 0.97f + fromY * 0.02f, height / 2 + fromY * 0.97f - fromX * 0.02f };
    }
    case CellKind::Anywhere:
        return { Between(random, -2, width + 2), Between(random, -2, height + 2) };
    case CellKind::Ties:
        return { float(int(random() % unsigned(field.width + 2))) - 0.5f,
                 float(int(random() % unsigned(field.height + 2))) - 0.5f };
    case CellKind::Outside:
        return { Outside(random, field.width), Outside(random, field.height) };
    }
    return {};
}

} // namespace

TestImage::TestImage(int imageWidth, int imageHeight, std::uint8_t value)
    : width(imageWidth)
    , height(imageHeight)
    , rowBytes(imageWidth + 1)
    , bytes(std::size_t(rowBytes) * std::size_t(imageHeight), value) {}

TestField::TestField(int fieldWidth, int fieldHeight, DeltaCell value)
    : width(fieldWidth)
    , height(fieldHeight)
    , cells(std::size_t(fieldWidth) * std::size_t(fieldHeight), value) {}

zephor::FeedbackField TestField::Get() const {
    return { cells.data(), std::ptrdiff_t(sizeof(DeltaCell)) * width, width, height };
}

TestImage FedBack(const TestImage& source, const TestField& field) {
    static const std::array<std::uint8_t, 256> sDecay = DecayTable();
    TestImage target(source.width, source.height);
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x) {
            const bool hasPartner = x < source.width / 2 * 2;
            const DeltaCell cell = field.cells[std::size_t(y * field.width + x)];
            const int sx = int(Address(cell.x, hasPartner, source.width - 1));
            const int sy = int(Address(cell.y, hasPartner, source.height - 1));
            int sum = source.At(sx, sy) + source.At(sx + 1, sy);
            if (sy < source.height - 1) sum = (sum + source.At(sx + 1, sy + 1) + source.At(sx, sy + 1)) / 2;
            target.At(x, y) = sDecay[std::size_t(sum / 2)];
        }
    return target;
}

TestImage Step(FeedbackEngine& engine, const TestImage& source, const TestField& field, int sliceCount) {
    static std::uint64_t sVersion = 0;
    TestImage target(source.width, source.height);
    engine.Step({ source.bytes.data(), source.rowBytes, target.bytes.data(), target.rowBytes, source.width,
                  source.height },
                field.Get(), ++sVersion, sliceCount);
    return target;
}

std::vector<NamedEngine> AllEngines() {
    std::vector<NamedEngine> engines;
    for (const zephor::FeedbackForm form : zephor::RunnableForms())
        for (const int threads : { 1, 2 })
            engines.push_back({ std::string(NameOf(form)) + " on " + std::to_string(threads),
                                std::make_unique<FeedbackEngine>(threads, form) });
    return engines;
}

TestField MakeField(int width, int height, CellKind kind, std::mt19937& random) {
    TestField field(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) field.At(x, y) = MakeCell(x, y, field, kind, random);
    return field;
}

TestImage MakeNoise(int width, int height, std::mt19937& random) {
    TestImage image(width, height);
    for (std::uint8_t& byte : image.bytes) byte = std::uint8_t(random());
    return image;
}

} // namespace orvane::tests
