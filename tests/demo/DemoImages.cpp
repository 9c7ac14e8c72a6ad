#include "demo/DemoImages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::demo {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

std::uint32_t Texel(double r, double g, double b, double a) {
    const auto byte = [](double value) {
        return static_cast<std::uint32_t>(std::clamp(value, 0.0, 1.0) * 255 + 0.5);
    };
    return byte(r) | byte(g) << 8 | byte(b) << 16 | byte(a) << 24;
}

// `texel` of (x, y), both -1 to 1, for every texel.
template <class Formula>
std::vector<std::uint32_t> ImageOf(Formula texel) {
    std::vector<std::uint32_t> image;
    for (std::uint32_t row = 0; row < kImageSide; ++row)
        for (std::uint32_t column = 0; column < kImageSide; ++column)
            image.push_back(texel((column + 0.5) / kImageSide * 2 - 1, (row + 0.5) / kImageSide * 2 - 1));
    return image;
}

} // namespace

Rgba ColourOfTurn(double turn, float alpha) {
    const auto part = [turn](double shift) {
        return static_cast<float>(0.5 + 0.5 * std::cos(kTurn * (turn - shift)));
    };
    return { part(0), part(1.0 / 3), part(2.0 / 3), alpha };
}

std::vector<std::uint32_t> RingsImage() {
    return ImageOf([](double x, double y) {
        const double radius = std::hypot(x, y), ring = 0.5 + 0.5 * std::cos(radius * 4 * kTurn);
        return Texel(ring, 0.4 + 0.6 * ring, 1, radius < 0.95 ? 0.35 + 0.65 * ring : 0);
    });
}

std::vector<std::uint32_t> GlowImage() {
    return ImageOf([](double x, double y) {
        const double light = std::clamp(1 - std::hypot(x, y), 0.0, 1.0);
        return Texel(light, light, light, light);
    });
}

std::vector<std::uint32_t> TilesImage() {
    return ImageOf([](double x, double y) {
        constexpr double kFrame = 0.94;
        if (std::max(std::abs(x), std::abs(y)) > kFrame) return Texel(1, 1, 1, 1);
        return Texel(x < 0, y<0, x> 0 && y > 0, 1);
    });
}

std::vector<std::uint8_t> RingsFile() {
    constexpr std::uint32_t kHeaders = 14 + 40, kPixels = kImageSide * kImageSide * 3; // bytes
    std::vector<std::uint8_t> file = { 'B', 'M' };
    const auto put = [&file](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) file.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    };
    for (const std::uint32_t value : { kHeaders + kPixels, 0u, kHeaders, 40u, kImageSide, kImageSide })
        put(value, 4);
    put(1, 2);  // planes
    put(24, 2); // bits a pixel
    for (const std::uint32_t value : { 0u, kPixels, 0u, 0u, 0u, 0u }) put(value, 4);
    for (const std::uint32_t texel :
         RingsImage()) { // the lowest row first: the picture is the same either way
        put(texel >> 16, 1);
        put(texel >> 8, 1);
        put(texel, 1);
    }
    return file;
}

std::vector<std::uint8_t> WavesImage(double seconds) {
    std::vector<std::uint8_t> image;
    for (std::uint32_t row = 0; row < kImageSide; ++row)
        for (std::uint32_t column = 0; column < kImageSide; ++column) {
            const double x = column / 16.0, y = row / 16.0;
            const double wave = std::sin(x + seconds) + std::sin(y * 1.3 - seconds) +
                                std::sin(std::hypot(x - 4, y - 4) * 1.7 - 2 * seconds);
            image.push_back(static_cast<std::uint8_t>((wave + 3) / 6 * 255));
        }
    return image;
}

std::vector<Rgba> WheelTable(double seconds) {
    std::vector<Rgba> table;
    for (std::uint32_t entry = 0; entry < kTableEntries; ++entry)
        table.push_back(ColourOfTurn(entry / double(kTableEntries) - seconds / 8, 1));
    return table;
}

} // namespace orvane::demo
