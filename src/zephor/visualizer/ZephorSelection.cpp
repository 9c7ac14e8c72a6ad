// When each of the three ingredients of the classic visualizer changes, and to what.
#include "zephor/deltafields/ComputeDeltaField.h"
#include "zephor/effects/deltafields/DeltaLists.h"
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/layers/DefaultGenerator.h"
#include "zephor/registry/DeltaChoice.h"
#include "zephor/registry/WaveformChoice.h"
#include "zephor/visualizer/ZephorVisualizer.h"

namespace orvane::zephor {

namespace {

DeltaSequence<DeltafieldFunctor> DeltaLists() {
    return DeltaSequence<DeltafieldFunctor>({ DeltaList1(), DeltaList2(), DeltaList3(), DeltaList4() });
}

constexpr bool Has(std::uint32_t flags, SelectionFlag flag) {
    return (flags & flag) != 0;
}

// Does a selection act now, whatever the timers say?
constexpr bool ActsAtOnce(std::uint32_t flags, std::int32_t request) {
    return Has(flags, kSelect_Immediate) || (Has(flags, kSelect_Force) && request != 0);
}

} // namespace

void ZephorVisualizer::SelectAll(double now, std::uint32_t flags) {
    SelectDeltaField(now, flags);
    if (!mDeltaFade.IsFieldInstalled()) return;
    SelectWaveform(now, flags);
    SelectColorMap(now, flags);
}

// ---- The delta field.

void ZephorVisualizer::SelectDeltaField(double now, std::uint32_t flags) {
    const bool held = mChangeMode == kChangeMode_Held;
    const bool awake = !held || mDeltaRequest != 0 || Has(flags, kSelect_Force);
    bool chosen = false;
    if (awake && ActsAtOnce(flags, mDeltaRequest)) {
        ChooseDelta();
        chosen = true;
    } else if (awake && !held && now > mDeltaChangeTime && mLayers->nextDeltaField->ready) {
        ChooseDelta();
        // KEEP: a large negative number, neither 0 nor a preset. So the keys that step the request count on from
        // there, and a forced selection acts on it. Pinned by
        // ZephorSelection.ATimedChangeOfTheDeltaFieldLeavesALargeNegativeRequest.
        mDeltaRequest = WrappingSum(std::int32_t(DefaultGeneratorValue()), kFirstPreset);
        chosen = true;
    }
    if (chosen && ComputeFieldIfReady()) {
        mDeltaChangeTime = now + mDeltaPeriod;
        mDeltaFade.FieldChanged();
    }
    if (held && !mDeltaFade.IsFieldInstalled()) ComputeFieldIfReady();
}

void ZephorVisualizer::ChooseDelta() {
    mDeltaIndex = ChooseDeltaFunctor(DeltaLists(), mDeltaFunctor, mDeltaIndex, mDeltaRequest);
}

// On the calling thread, and whole: on return the new field is in force. True if it was computed.
bool ZephorVisualizer::ComputeFieldIfReady() {
    ZephorLayerNextDeltaField& field = *mLayers->nextDeltaField;
    if (!field.ready || !mDeltaFunctor) return false;
    field.ready = false;
    ComputeDeltaField(field, *mDeltaFunctor, mLayers->engine.Threads());
    return true;
}

// ---- The waveform.

void ZephorVisualizer::SelectWaveform(double now, std::uint32_t flags) {
    const bool held = mChangeMode == kChangeMode_Held;
    if (held && mWaveformRequest == 0 && !Has(flags, kSelect_Force)) return;
    if (!ActsAtOnce(flags, mWaveformRequest) &&
        (held || !(now > mWaveformChangeTime) || mStage.fadeFrames != 0))
        return;
    if (mHold) {
        mStage.PutOn(0, WaveformList1().front());
        return;
    }
    std::int32_t index = kNoIndex;
    if (mWaveformRequest < kFirstPreset) {
        index = ChooseWaveformIndex(WaveformLists().ListLengths(), mStage.waveformIndex, mWaveformRequest);
        if (index < 0) return; // with the request as it is
    } else if (const PresetRow* row = FindPreset(mWaveformRequest)) {
        index = row->waveform;
    }
    mWaveformRequest = 0;
    if (AsyncWaveFormFunctor* waveform = ResolveWaveform(WaveformLists(), index))
        mStage.PutOn(index, waveform);
}

void ZephorVisualizer::SelectColorMap(double now, std::uint32_t flags) {
    mClut.SelectColorMap(now, flags, mChangeMode);
}

// ---- Presets.

// KEEP: never true today, because a field is computed within the call that asks for it and so is ready whenever
// a frame looks. The path stands ready for a field that is built beside the frames.
// Pinned by ZephorFrame.ThePresetPathDoesNotRunBecauseTheFieldIsReadyInEveryFrame.
bool ZephorVisualizer::PresetIsDue() const {
    const bool mismatch = (mStage.waveformIndex != 0) == mHold; // of the waveform and the hold flag
    return mChangeMode == kChangeMode_Presets && (mismatch || mNow > mDeltaChangeTime) &&
           !mLayers->nextDeltaField->ready;
}

void ZephorVisualizer::StartPreset() {
    // KEEP: always 4, because the generator always gives the same value.
    // Pinned by ZephorSelection.ThePresetOfThePresetPathIsAlwaysFour.
    constexpr std::uint32_t kPresets = 9;
    const auto preset = std::int32_t(DefaultGeneratorValue() % kPresets) + kFirstPreset;
    mDeltaRequest = mWaveformRequest = mClut.request = preset;
    mWaveformChangeTime = mDeltaChangeTime = mClut.changeTime = 0;
    SelectAll(mNow, kSelect_AllForced);
}

} // namespace orvane::zephor
