// A place off the screen: above it or below it, or else to its left or right.
#pragma once

#include <cstdint>

namespace orvane::zephor {

struct ParkPosition {
    float x = 0, y = 0; // -1 to 1 would be on the screen
};

// Draws a place: two numbers of rand(). `decider` is the default generator's value: its sign picks the form, x
// anywhere and y beyond the screen or the other way round, and which side. (A value that isn't negative has never
// been seen; see DefaultGeneratorValue.)
[[nodiscard]] ParkPosition DrawParkPosition(std::uint32_t decider);

} // namespace orvane::zephor
