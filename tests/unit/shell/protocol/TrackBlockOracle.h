// What becomes of a track block, worked out from a description of its layout and nothing of the parser's.
#pragma once

#include "records/TrackParam.h"
#include "support/Wire.h"

#include <string>
#include <vector>

namespace orvane::tests {

// Every value of a track in wire order, as text: a number's bits in hexadecimal, a string's count and units.
using TrackValues = std::vector<std::string>;

struct TrackOutcome {
    bool parsed = false;
    TrackValues values; // without the keys
    std::string log;
    std::size_t position = 0; // where the reader is left

    bool operator==(const TrackOutcome&) const = default;
};

[[nodiscard]] TrackOutcome ExpectedOutcome(const Bytes& block);

// The values that a parsed record holds.
[[nodiscard]] TrackValues ValuesOf(const records::TrackParamObj& track);

} // namespace orvane::tests
