#include "zephor/effects/deltafields/DeltaLists.h"

#include "zephor/effects/deltafields/Jitters.h"
#include "zephor/effects/deltafields/TurnsAndFlows.h"

namespace orvane::zephor {

namespace {

template <class Member>
std::unique_ptr<DeltafieldFunctor> Make() {
    return std::make_unique<Member>();
}

constexpr DeltaFactory kList1[] = {
    Make<TrippingHardFunctor>,
    Make<ScatteredFlowOutFunctor>,
};

constexpr DeltaFactory kList2[] = {
    Make<FleeFunctor>,
};

} // namespace

std::span<const DeltaFactory> DeltaList1() {
    return kList1;
}

std::span<const DeltaFactory> DeltaList2() {
    return kList2;
}

std::span<const DeltaFactory> DeltaList3() {
    return {};
}

std::span<const DeltaFactory> DeltaList4() {
    return {};
}

} // namespace orvane::zephor
