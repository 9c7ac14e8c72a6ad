#include "zephor/visualizer/LogoData.h"

namespace orvane::zephor {

// clang-format off
const std::array<const char*, kLogoSide> kLogoRows = {
#include "LogoRows.inc"
};
// clang-format on

} // namespace orvane::zephor
