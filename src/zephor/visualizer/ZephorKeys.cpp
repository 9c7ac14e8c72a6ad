// The keys of the classic visualizer.
#include "platform/Clock.h"
#include "zephor/visualizer/ZephorVisualizer.h"

namespace orvane::zephor {

using visualizer::IVisualizerCommandReceiver;

// One row a key. `act` may be run in any state of the visualizer.
struct ZephorVisualizer::Key {
    char16_t character; // upper case
    void (*act)(ZephorVisualizer& self, IVisualizerCommandReceiver& receiver);
};

// clang-format off
constinit const ZephorVisualizer::Key ZephorVisualizer::kKeys[] = {
    { u'/', [](auto& self, auto& receiver) { self.NextHelp(receiver); } },
    { u'H', [](auto& self, auto& receiver) { self.NextHelp(receiver); } },
    { u'A', [](auto& self, auto&) { self.StepDelta(-1); } },
    { u'S', [](auto& self, auto&) { self.StepDelta(+1); } },
    { u'Q', [](auto& self, auto&) { self.StepWaveform(-1); } },
    { u'W', [](auto& self, auto&) { self.StepWaveform(+1); } },
    { u'Z', [](auto& self, auto&) { self.StepColour(-1); } },
    { u'X', [](auto& self, auto&) { self.StepColour(+1); } },
    { u'C', [](auto& self, auto& receiver) { self.ToggleConfigDisplay(); receiver.ToggleConfigDisplay(); } },
    { u'F', [](auto& self, auto& receiver) { self.ToggleFPSDisplay(); receiver.FPSToggled(); } },
    { u'I', [](auto& self, auto& receiver) { self.RestartTrackInfoFade(); receiver.ResetTrackChangeTime(); } },
    { u'L', [](auto& self, auto& receiver) {
        self.mTrackInfoAlways = !self.mTrackInfoAlways;
        receiver.SetTrackInfoToDisplayAlways(self.mTrackInfoAlways); } },
    { u'M', [](auto& self, auto&) { self.NextChangeMode(); } },
    { u'O', [](auto&, auto&) {} }, // taken, so that the player doesn't act on it either
    { u'R', [](auto& self, auto&) { self.DrawAllAnew(); } },
    { u'T', [](auto& self, auto&) { self.mThemeFlag = !self.mThemeFlag; } },
};

// clang-format on

bool ZephorVisualizer::HandleKeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t,
                                      IVisualizerCommandReceiver* receiver) {
    constexpr char16_t kFirstBeyond = 128;
    constexpr char16_t kCaseStep = u'a' - u'A';
    if (count != 1 || characters[0] >= kFirstBeyond) return false;
    char16_t character = characters[0];
    if (character >= u'a' && character <= u'z') character = char16_t(character - kCaseStep);
    for (const Key& key : kKeys) {
        if (key.character != character) continue;
        key.act(*this, *receiver);
        return true;
    }
    return false;
}

void ZephorVisualizer::NextHelp(IVisualizerCommandReceiver& receiver) {
    constexpr std::uint32_t kHelpStates = 3;
    mHelpState = (mHelpState + 1) % kHelpStates;
    ShowHelp();
    // KEEP: one more than the state, so the receiver hears "shown" in every state, even as the help goes away.
    // Pinned by ZephorKeys.TheReceiverHearsThatHelpIsShownInEveryState.
    receiver.HelpToggled(mHelpState + 1 != 0);
}

void ZephorVisualizer::StepDelta(std::int32_t step) {
    mDeltaRequest = WrappingSum(mDeltaRequest, step);
    mDeltaChangeTime = 0;
    SelectDeltaField(platform::NowSeconds(), kSelect_Delta | kSelect_Force);
}

void ZephorVisualizer::StepWaveform(std::int32_t step) {
    mWaveformRequest = WrappingSum(mWaveformRequest, step);
    mWaveformChangeTime = 0;
    if (mDeltaFade.IsFieldInstalled())
        SelectWaveform(platform::NowSeconds(), kSelect_Waveform | kSelect_Force);
}

void ZephorVisualizer::StepColour(std::int32_t step) {
    mClut.request = WrappingSum(mClut.request, step);
    // KEEP: the key that steps back never gets below the first preset, so it always asks for that one. Pinned by
    // ZephorKeys.ZAlwaysAsksForTheFirstPreset.
    if (step < 0 && mClut.request < kFirstPreset) mClut.request = kFirstPreset;
    mClut.changeTime = 0;
    if (mDeltaFade.IsFieldInstalled()) SelectColorMap(platform::NowSeconds(), kSelect_Colour | kSelect_Force);
}

void ZephorVisualizer::NextChangeMode() {
    mChangeMode = (mChangeMode + 1) % kChangeModes;
    mDeltaRequest = mWaveformRequest = 0;
    mClut.request = kFirstPreset;
}

void ZephorVisualizer::DrawAllAnew() {
    mWaveformChangeTime = mDeltaChangeTime = mClut.changeTime = 0;
    mStage.fadeFrames = 0;
    mClut.fadeLevel = 0;
    if (mDeltaFade.IsFieldInstalled()) mDeltaRequest = -1;
    SelectAll(platform::NowSeconds(), kSelect_AllImmediate);
}

} // namespace orvane::zephor
