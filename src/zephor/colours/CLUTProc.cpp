#include "zephor/colours/CLUTProc.h"

#include <utility>

namespace orvane::zephor {

CLUTProc::CLUTProc(std::string displayName, std::int32_t mapId, bool isInRotation)
    : id(mapId)
    , inRotation(isInRotation)
    , name(std::move(displayName)) {}

CLUTProc::~CLUTProc() = default;

void CLUTProc::Reset(float seconds) {
    time = seconds;
}

void ClutWithReset::Reset(float seconds) {
    CLUTProc::Reset(seconds);
    DrawParameters();
}

} // namespace orvane::zephor
