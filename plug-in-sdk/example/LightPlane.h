// Light on a grid: lines add to it, time takes from it.
#pragma once

#include "Surface.h"

#include <cstdint>
#include <vector>

namespace example {

// What a beam leaves at a distance from its centre; looked up by the square of the distance.
struct Beam {
    static constexpr float kSteps = 8.0f; // entries for each unit of squared distance

    float reach = 0;          // beyond it there is nothing
    std::vector<float> tint;  // 0 to 1, takes the line's colour
    std::vector<float> white; // over-exposure, on top of that

    // Sized for `reachOfBeam`, dark.
    explicit Beam(float reachOfBeam = 0)
        : reach(reachOfBeam)
        , tint(std::size_t(reachOfBeam * reachOfBeam * kSteps) + 2)
        , white(tint.size()) {}
};

class LightPlane {
public:
    struct Point {
        float x, y;
    };

    // Blue, green, red and white for each cell.
    static constexpr std::size_t kChannels = 4;
    static constexpr std::size_t kWhite = 3;

    // A dark plane of that size.
    void Resize(int width, int height);

    // Leaves these shares (0 to 1) of tint and white.
    void Fade(float tint, float white);

    // A straight line; where light lies already, the brighter of the two stays. `from` and `to` differ.
    void Line(const Point& from, const Point& to, const Beam& beam, const Colour& colour);

    // 8 bits of fraction.
    [[nodiscard]] const std::uint16_t* Row(int y) const {
        return mLight.data() + std::size_t(y) * RowLength();
    }

    // Rows from the first to the end can have light; the others never had any.
    [[nodiscard]] int FirstLitRow() const { return mFirstLitRow; }

    [[nodiscard]] int EndOfLitRows() const { return mEndOfLitRows; }

private:
    [[nodiscard]] std::size_t RowLength() const { return std::size_t(mWidth) * kChannels; }

    int mWidth = 0;
    int mHeight = 0;
    int mFirstLitRow = 0;
    int mEndOfLitRows = 0;
    std::vector<std::uint16_t> mLight;
};

} // namespace example
