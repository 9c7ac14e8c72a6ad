#include "zephor/colourmaps/FixedTables.h"

#include <array>

namespace orvane::zephor {

namespace {

struct Stop {
    int place; // entry of the table; the first stop's is 0, the last's 255, and they rise
    std::array<int, 3> colour;
};

using Stops = std::span<const Stop>;

// Between two stops each channel runs in a straight line, rounded down from half an entry above.
constexpr ColourBytes Between(const Stop& a, const Stop& b, int place) {
    const int length = b.place - a.place;
    ColourBytes colour{};
    for (std::size_t i = 0; i < colour.size(); ++i) {
        const int sum = a.colour[i] * (b.place - place) + b.colour[i] * (place - a.place);
        colour[i] = std::uint8_t((sum * 2 + length) / (length * 2));
    }
    return colour;
}

constexpr ColourTable Gradient(Stops stops) {
    ColourTable table{};
    for (std::size_t s = 0; s + 1 < stops.size(); ++s)
        for (int place = stops[s].place; place <= stops[s + 1].place; ++place)
            table[static_cast<std::size_t>(place)] = Between(stops[s], stops[s + 1], place);
    return table;
}

constexpr Stop kTropicSea[] = {
    { 0, { 0, 0, 0 } }, { 64, { 0, 200, 252 } }, { 128, { 84, 252, 252 } }, { 255, { 228, 228, 255 } }
};
constexpr Stop kEmbers[] = { { 0, { 0, 0, 0 } },
                             { 56, { 96, 0, 24 } },
                             { 120, { 224, 60, 8 } },
                             { 190, { 252, 184, 40 } },
                             { 255, { 255, 250, 220 } } };
constexpr Stop kSpringWood[] = { { 0, { 0, 0, 0 } },
                                 { 64, { 0, 72, 44 } },
                                 { 140, { 60, 164, 40 } },
                                 { 210, { 220, 240, 90 } },
                                 { 255, { 255, 255, 235 } } };
constexpr Stop kPlanet[] = {
    { 0, { 0, 0, 0 } }, { 72, { 0, 0, 168 } }, { 150, { 56, 132, 12 } }, { 255, { 252, 252, 252 } }
};
constexpr Stop kOrchid[] = { { 0, { 0, 0, 0 } },
                             { 60, { 44, 0, 96 } },
                             { 128, { 144, 24, 172 } },
                             { 200, { 250, 110, 190 } },
                             { 255, { 255, 232, 242 } } };
constexpr Stop kOldPhotograph[] = { { 0, { 0, 0, 0 } },
                                    { 64, { 66, 36, 18 } },
                                    { 140, { 156, 102, 54 } },
                                    { 205, { 228, 192, 132 } },
                                    { 255, { 255, 248, 228 } } };
constexpr Stop kShore[] = { { 0, { 0, 0, 0 } },
                            { 60, { 0, 48, 92 } },
                            { 120, { 0, 136, 144 } },
                            { 190, { 236, 206, 140 } },
                            { 255, { 255, 250, 236 } } };
constexpr Stop kCandleInSnow[] = { { 0, { 0, 0, 0 } },
                                   { 64, { 20, 44, 128 } },
                                   { 128, { 104, 140, 216 } },
                                   { 190, { 252, 144, 60 } },
                                   { 255, { 255, 242, 176 } } };
constexpr Stop kRedToBlue[] = { { 0, { 219, 0, 0 } }, { 128, { 123, 3, 3 } }, { 255, { 0, 0, 255 } } };
constexpr Stop kAurora[] = { { 0, { 0, 0, 0 } },         { 40, { 10, 20, 64 } },
                             { 104, { 0, 144, 104 } },   { 160, { 124, 240, 120 } },
                             { 215, { 216, 132, 240 } }, { 255, { 255, 240, 255 } } };
constexpr Stop kCopperRoof[] = { { 0, { 0, 0, 0 } },
                                 { 60, { 72, 26, 10 } },
                                 { 124, { 184, 92, 48 } },
                                 { 190, { 92, 176, 154 } },
                                 { 255, { 232, 252, 242 } } };

// In the order of their ids.
constexpr std::array<ColourTable, kFixedTables> kTables = {
    Gradient(kTropicSea), Gradient(kEmbers),        Gradient(kSpringWood), Gradient(kPlanet),
    Gradient(kOrchid),    Gradient(kOldPhotograph), Gradient(kShore),      Gradient(kCandleInSnow),
    Gradient(kRedToBlue), Gradient(kAurora),        Gradient(kCopperRoof),
};

} // namespace

std::span<const ColourTable, kFixedTables> FixedTables() {
    return kTables;
}

} // namespace orvane::zephor
