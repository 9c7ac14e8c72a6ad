// The members' definitions once more, in double precision and as plainly as they can be said.
#pragma once

#include "unit/zephor/deltafields/ScriptedRandom.h"

#include <functional>
#include <span>

namespace orvane::tests {

struct OraclePoint {
    double first, second; // r and theta, or x and y
};

using OracleFormula = std::function<OraclePoint(double first, double second, OracleRandom& random)>;

struct OracleRow {
    const char* name;
    bool isPolar;
    OracleFormula (*make)(OracleRandom& random); // draws the parameters
};

[[nodiscard]] std::span<const OracleRow> MemberOracles();

} // namespace orvane::tests
