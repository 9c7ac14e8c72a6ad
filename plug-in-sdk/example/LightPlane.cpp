#include "LightPlane.h"

#include <algorithm>

namespace example {

namespace {

constexpr float kLightScale = 255.0f * 256.0f;

void Brighten(std::uint16_t& light, float value) {
    light = std::max(light, std::uint16_t(int(std::min(value, 1.0f) * kLightScale)));
}

} // namespace

void LightPlane::Resize(int width, int height) {
    mWidth = width;
    mHeight = height;
    mFirstLitRow = height;
    mEndOfLitRows = 0;
    mLight.assign(RowLength() * std::size_t(height), 0);
}

void LightPlane::Fade(float tint, float white) {
    const auto keepTint = std::uint32_t(tint * 65535.0f), keepWhite = std::uint32_t(white * 65535.0f);
    const std::uint32_t keep[kChannels] = { keepTint, keepTint, keepTint, keepWhite };
    for (int y = mFirstLitRow; y < mEndOfLitRows; ++y) {
        std::uint16_t* row = mLight.data() + std::size_t(y) * RowLength();
        for (std::size_t i = 0; i < RowLength(); i += kChannels)
            for (std::size_t c = 0; c < kChannels; ++c)
                row[i + c] = std::uint16_t(row[i + c] * keep[c] >> 16);
    }
}

void LightPlane::Line(const Point& from, const Point& to, const Beam& beam, const Colour& colour) {
    const float alongX = to.x - from.x, alongY = to.y - from.y;
    const float perLength = 1.0f / (alongX * alongX + alongY * alongY);
    const int firstX = std::max(0, int(std::min(from.x, to.x) - beam.reach));
    const int endX = std::min(mWidth, int(std::max(from.x, to.x) + beam.reach) + 1);
    const int firstY = std::max(0, int(std::min(from.y, to.y) - beam.reach));
    const int endY = std::min(mHeight, int(std::max(from.y, to.y) + beam.reach) + 1);
    if (firstX >= endX || firstY >= endY) return;
    mFirstLitRow = std::min(mFirstLitRow, firstY);
    mEndOfLitRows = std::max(mEndOfLitRows, endY);
    const float reachSquared = beam.reach * beam.reach;
    for (int y = firstY; y < endY; ++y) {
        const float toY = float(y) + 0.5f - from.y;
        std::uint16_t* light = mLight.data() + std::size_t(y) * RowLength() + std::size_t(firstX) * kChannels;
        for (int x = firstX; x < endX; ++x, light += kChannels) {
            const float toX = float(x) + 0.5f - from.x;
            const float share = std::clamp((toX * alongX + toY * alongY) * perLength, 0.0f, 1.0f);
            const float offX = toX - share * alongX, offY = toY - share * alongY;
            const float squared = offX * offX + offY * offY;
            if (squared >= reachSquared) continue;
            const auto entry = std::size_t(int(squared * Beam::kSteps));
            Brighten(light[0], colour.blue * beam.tint[entry]);
            Brighten(light[1], colour.green * beam.tint[entry]);
            Brighten(light[2], colour.red * beam.tint[entry]);
            Brighten(light[kWhite], beam.white[entry]);
        }
    }
}

} // namespace example
