#include "zephor/effects/deltafields/DeltaLists.h"

#include "zephor/effects/deltafields/DeltaMembers.h"

namespace orvane::zephor {

namespace {

using namespace deltafields;

// Row order is registration order, and so index order: never sort, add at the end.
constexpr DeltaFactory kList1[] = {
    MakeMember<TrippingHardFunctor>,
    MakeMember<ScatteredFlowOutFunctor>,
    MakeMember<QuantumRippleFunctor>,
};

constexpr DeltaFactory kList2[] = {
    MakeMember<FlowerPowerFunctor>, MakeMember<SineMultiCircFunctor>, MakeMember<SimpleSineSphereFunctor>,
    MakeMember<SunburntFunctor>,    MakeMember<HipNoTherapyFunctor>,  MakeMember<RadialBreakawayFunctor>,
    MakeMember<FleeFunctor>,        MakeMember<DTChaosFunctor>,
};

constexpr DeltaFactory kList3[] = {
    MakeMember<DandelionPsycFunctor>, MakeMember<DreamscapeFunctor>,  MakeMember<GravityBallFunctor>,
    MakeMember<SphereFunctor>,        MakeMember<TheMAWFunctor>,      MakeMember<ThetaDivergenceFunctor>,
    MakeMember<BoxilightFunctor>,     MakeMember<ContrailFunctor>,    MakeMember<LinearSpreadFunctor>,
    MakeMember<OnceUponATimeFunctor>, MakeMember<PhantomMistFunctor>, MakeMember<SOLsBaseFunctor>,
    MakeMember<SOLsWarpFunctor>,      MakeMember<TrafficFlowFunctor>,
};

constexpr DeltaFactory kList4[] = {
    MakeMember<CollapseAndTurnFunctor>,
    MakeMember<ConstantOutFunctor>,
    MakeMember<DTSwirlFunctor>,
    MakeMember<ExpandAndTurnFunctor>,
    MakeMember<LeftTurnAndFlowOutFunctor>,
    MakeMember<PoinsettiaFunctor>,
    MakeMember<PsychoDiscoBallFunctor>,
    MakeMember<RightTurnFunctor>,
    MakeMember<FractalSweetnessFunctor>,
    MakeMember<GravityFunctor>,
    MakeMember<SwirlyFunctor>,
    MakeMember<JuliaSeahorseFunctor>,
    MakeMember<StandardMapFunctor>,
    MakeMember<WeierstraussSpreadFunctor>,
    MakeMember<TunnelFunctor>,
};

} // namespace

std::span<const DeltaFactory> DeltaList1() {
    return kList1;
}

std::span<const DeltaFactory> DeltaList2() {
    return kList2;
}

std::span<const DeltaFactory> DeltaList3() {
    return kList3;
}

std::span<const DeltaFactory> DeltaList4() {
    return kList4;
}

} // namespace orvane::zephor
