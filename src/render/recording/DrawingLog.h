// What recording canvases were given besides shapes. Surfaces of this program live for one panel and no
// longer, so the list is shared: a test keeps it and the surfaces come and go.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orvane::render {

struct DrawnText {
    std::u16string text;
    float fontSize = 0;          // pixels
    std::uint32_t alignment = 0; // TextAlignment
    bool ellipsis = false;
    std::array<double, 4> rect{};
    std::array<float, 4> colour{};

    bool operator==(const DrawnText&) const = default;
};

struct DrawnImage {
    std::uint32_t width = 0, height = 0; // of the image
    float opacity = 0;                   // as drawn: held to 1
    std::array<double, 4> rect{};

    bool operator==(const DrawnImage&) const = default;
};

struct DrawingLog {
    std::vector<DrawnText> texts;
    std::vector<DrawnImage> images;
    int surfaces = 0;     // made so far
    int liveSurfaces = 0; // that exist
    int drawings = 0;     // BeginDraw to EndDraw
};

} // namespace orvane::render
