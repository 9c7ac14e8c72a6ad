#include "zephor/effects/waveforms/WaveformLists.h"

#include "zephor/effects/waveforms/Curves.h"
#include "zephor/effects/waveforms/Dots.h"
#include "zephor/effects/waveforms/Figures.h"
#include "zephor/effects/waveforms/Nothing.h"
#include "zephor/effects/waveforms/Sparks.h"
#include "zephor/effects/waveforms/Traces.h"

namespace orvane::zephor {

namespace {

// The one object of an effect. It stays to the end of the process, since a frame may be drawn up to there.
template <class Effect>
AsyncWaveFormFunctor* The() {
    static Effect& sEffect = *new Effect();
    return &sEffect;
}

} // namespace

WaveformList WaveformList1() {
    static AsyncWaveFormFunctor* const sList[] = {
        The<RadarSweepFunctor>(),
        The<BigAndBandedFunctor>(),
        The<RandomCorridorFunctor>(),
    };
    return sList;
}

WaveformList WaveformList2() {
    static AsyncWaveFormFunctor* const sList[] = {
        The<DTSineDotFunctor>(),
        The<DTWildFunctor>(),
        The<HourGlassFunctor>(),
        The<DoubleHelixFunctor>(),
    };
    return sList;
}

WaveformList WaveformList3() {
    static AsyncWaveFormFunctor* const sList[] = {
        The<DTZoomPlanetFunctor>(),    The<AttackFunctor>(),          The<Explosion1Functor>(),
        The<FallingOrbsFunctor>(),     The<DefaultWaveformFunctor>(), The<KaleidoscopeFunctor>(),
        The<ExampleSpectrumFunctor>(), The<NullWaveformFunctor>(),    The<NullFunctor>(),
        The<ParticlePulseFunctor>(),
    };
    return sList;
}

WaveformSequence<AsyncWaveFormFunctor> WaveformLists() {
    return WaveformSequence<AsyncWaveFormFunctor>({ WaveformList1(), WaveformList2(), WaveformList3() });
}

} // namespace orvane::zephor
