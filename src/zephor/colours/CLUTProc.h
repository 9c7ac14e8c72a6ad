// A computed colour map: a function from an intensity to a colour.
#pragma once

#include <cstdint>
#include <string>

namespace orvane::zephor {

class CLUTProc {
public:
    CLUTProc(std::string displayName, std::int32_t mapId, bool isInRotation);
    CLUTProc(const CLUTProc&) = delete;
    CLUTProc& operator=(const CLUTProc&) = delete;

    virtual ~CLUTProc(); // slot 0

    // Slot 1. The colour of an intensity from 0 to 1: red, green, blue. The same until the next Reset.
    virtual void Map(float value, std::uint8_t rgb[3]) const = 0;

    // Slot 2. Called before the map is made into a table, with the clock in seconds: a table is a still
    // picture of a map that depends on time.
    virtual void Reset(float seconds);

    const std::int32_t id;
    const bool inRotation; // nothing reads it
    const std::string name;
    float time = 0.0f; // of the last Reset
};

// A map with parameters that each Reset draws anew.
class ClutWithReset : public CLUTProc {
public:
    using CLUTProc::CLUTProc;

    void Reset(float seconds) final;

private:
    virtual void DrawParameters() = 0;
};

} // namespace orvane::zephor
