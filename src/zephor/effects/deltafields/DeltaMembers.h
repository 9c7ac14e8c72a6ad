// The members of the family by the files that they are in. They have a namespace of their own, since other families
// have effects of the same names.
#pragma once

#include "zephor/deltafields/DeltafieldFunctor.h"

#include <memory>

namespace orvane::zephor::deltafields {

// A new functor, with parameters of its own. Each member's file makes it for its own members.
template <class Member>
std::unique_ptr<DeltafieldFunctor> MakeMember();

// TurnsAndFlows.cpp
class TrippingHardFunctor;
class HipNoTherapyFunctor;
class ExpandAndTurnFunctor;
class CollapseAndTurnFunctor;
class ConstantOutFunctor;
class RightTurnFunctor;
class LeftTurnAndFlowOutFunctor;
class ScatteredFlowOutFunctor;

// Ripples.cpp
class SimpleSineSphereFunctor;
class SineMultiCircFunctor;
class QuantumRippleFunctor;
class GravityBallFunctor;
class RadialBreakawayFunctor;
class SphereFunctor;
class ThetaDivergenceFunctor;

// Petals.cpp
class FlowerPowerFunctor;
class SunburntFunctor;
class DreamscapeFunctor;
class PoinsettiaFunctor;
class DandelionPsycFunctor;
class PsychoDiscoBallFunctor;

// Vortices.cpp
class TheMAWFunctor;
class DTSwirlFunctor;
class SwirlyFunctor;

// Drifts.cpp
class ContrailFunctor;
class OnceUponATimeFunctor;
class SOLsBaseFunctor;
class WeierstraussSpreadFunctor;

// Scatters.cpp
class FleeFunctor;
class LinearSpreadFunctor;
class PhantomMistFunctor;
class SOLsWarpFunctor;
class GravityFunctor;

// Lattices.cpp
class BoxilightFunctor;
class TrafficFlowFunctor;
class DTChaosFunctor;

// Maps.cpp
class FractalSweetnessFunctor;
class JuliaSeahorseFunctor;
class StandardMapFunctor;
class TunnelFunctor;

} // namespace orvane::zephor::deltafields
