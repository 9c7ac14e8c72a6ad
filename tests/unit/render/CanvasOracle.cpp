#include "CanvasOracle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::tests {

namespace {

constexpr int kDirections = 800; // of an ellipse's normals

// The part of the polygon where a * x + b * y >= c.
Polygon Cut(const Polygon& polygon, double a, double b, double c) {
    Polygon result;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vertex p = polygon[i];
        const Vertex q = polygon[(i + 1) % polygon.size()];
        const double insideP = a * p.x + b * p.y - c;
        const double insideQ = a * q.x + b * q.y - c;
        if (insideP >= 0) result.push_back(p);
        if ((insideP >= 0) != (insideQ >= 0)) {
            const double t = insideP / (insideP - insideQ);
            result.push_back({ p.x + (q.x - p.x) * t, p.y + (q.y - p.y) * t });
        }
    }
    return result;
}

double Area(const Polygon& polygon) {
    double twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        // Relative to the first corner, so that nothing is lost far from the origin.
        const Vertex p = polygon[i], q = polygon[(i + 1) % polygon.size()], o = polygon[0];
        twice += (p.x - o.x) * (q.y - o.y) - (q.x - o.x) * (p.y - o.y);
    }
    return std::abs(twice) / 2;
}

// Unit normals, close together both where the ellipse bends much and where it bends little.
std::vector<Vertex> Normals(double radiusX, double radiusY) {
    std::vector<Vertex> normals;
    for (int i = 0; i < kDirections; ++i) {
        const double angle = 2 * std::numbers::pi * i / kDirections;
        const double c = std::cos(angle), s = std::sin(angle);
        const double length = std::hypot(radiusY * c, radiusX * s);
        normals.push_back({ c, s });
        if (length > 0) normals.push_back({ radiusY * c / length, radiusX * s / length });
    }
    std::sort(normals.begin(), normals.end(),
              [](Vertex p, Vertex q) { return std::atan2(p.y, p.x) < std::atan2(q.y, q.x); });
    return normals;
}

double Reach(double radiusX, double radiusY, Vertex normal) {
    return std::hypot(radiusX * normal.x, radiusY * normal.y);
}

class ReadBytes final : public render::BitmapProcessingFunctor {
public:
    void Process(void* pixels, int width, int height, int rowBytes, std::size_t) override {
        for (int y = 0; y < height; ++y) {
            const auto* const row = static_cast<const std::uint8_t*>(pixels) + std::ptrdiff_t(y) * rowBytes;
            mBytes.insert(mBytes.end(), row, row + width);
        }
    }

    std::vector<std::uint8_t> mBytes;
};

} // namespace

Polygon SegmentPolygon(const double segment[4], double width) {
    const double dx = segment[2] - segment[0], dy = segment[3] - segment[1];
    const double length = std::hypot(dx, dy);
    if (!(length > 0) || !(width > 0)) return {};
    const double x = -dy / length * width / 2, y = dx / length * width / 2;
    return { { segment[0] + x, segment[1] + y },
             { segment[2] + x, segment[3] + y },
             { segment[2] - x, segment[3] - y },
             { segment[0] - x, segment[1] - y } };
}

Polygon RectanglePolygon(double left, double top, double right, double bottom) {
    if (!(left < right && top < bottom)) return {};
    return { { left, top }, { right, top }, { right, bottom }, { left, bottom } };
}

Polygon GrownEllipse(double centreX, double centreY, double radiusX, double radiusY, double distance) {
    Polygon polygon;
    for (const Vertex n : Normals(radiusX, radiusY)) {
        const double reach = Reach(radiusX, radiusY, n);
        const double scaleX = reach > 0 ? radiusX * radiusX / reach : 0;
        const double scaleY = reach > 0 ? radiusY * radiusY / reach : 0;
        polygon.push_back(
            { centreX + scaleX * n.x + distance * n.x, centreY + scaleY * n.y + distance * n.y });
    }
    return polygon;
}

Polygon ShrunkEllipse(double centreX, double centreY, double radiusX, double radiusY, double distance) {
    Polygon polygon =
        RectanglePolygon(centreX - radiusX, centreY - radiusY, centreX + radiusX, centreY + radiusY);
    for (const Vertex n : Normals(radiusX, radiusY)) {
        const double reach = Reach(radiusX, radiusY, n) - distance;
        polygon = Cut(polygon, -n.x, -n.y, -(reach + n.x * centreX + n.y * centreY));
    }
    return polygon;
}

void CoverageMap::Add(const Polygon& polygon, double sign) {
    for (int y = 0; y < height; ++y) {
        const Polygon row = Cut(Cut(polygon, 0, 1, y), 0, -1, -(y + 1));
        for (int x = 0; x < width && !row.empty(); ++x) {
            const Polygon square = Cut(Cut(row, 1, 0, x), -1, 0, -(x + 1));
            if (!square.empty()) At(x, y) += sign * Area(square);
        }
    }
}

std::vector<std::uint8_t> PixelsOf(render::IRenderer2D& canvas) {
    ReadBytes read;
    canvas.ReadPixels(read);
    return read.mBytes;
}

double LargestError(const std::vector<std::uint8_t>& pixels, const CoverageMap& map,
                    const std::vector<std::uint8_t>& background) {
    double largest = pixels.size() == map.coverage.size() ? 0 : 255;
    for (std::size_t i = 0; i < map.coverage.size() && i < pixels.size(); ++i) {
        const double c = std::clamp(map.coverage[i], 0.0, 1.0);
        const double expected = 255 * c + background[i] * (1 - c);
        largest = std::max(largest, std::abs(pixels[i] - expected));
    }
    return largest;
}

} // namespace orvane::tests
