// The same seeds, sound and requests make the same image: in every form of the feedback step, on one thread and on
// several, and in every build. A run of 300 frames; the environment variable ORVANE_SOAK=1 asks for the whole minute.
#include "ZephorFixture.h"

#include "support/AcrossBuilds.h"
#include "unit/zephor/layers/LayerPixels.h"
#include "zephor/layers/FeedbackForm.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace orvane::zephor {
namespace {

constexpr int kFramesBetweenRequests = 45;

constexpr int kFrames = 300, kFramesOfSoak = 3600; // 60 in a second
constexpr int kMarks[] = { 60, 300, 3600 };        // frames at which images are compared

bool IsSoak() {
    const char* wish = std::getenv("ORVANE_SOAK");
    return wish && std::string(wish) == "1";
}

class ZephorSameBytes : public ZephorFixture {
protected:
    // Something of everything, and no two frames alike.
    static std::vector<std::uint8_t> SoundOf(int frame) {
        std::vector<std::uint8_t> sound(sizeof(records::AudioRenderData));
        std::uint32_t state = std::uint32_t(frame) * 2654435761u + 1;
        int level = 127;
        for (std::uint8_t& byte : sound) {
            state = state * 1664525u + 1013904223u;
            level += int(state >> 28) - 7 - (level > 127 ? 1 : 0); // wanders about the middle
            level = std::clamp(level, 0, 255);
            byte = std::uint8_t(level);
        }
        return sound;
    }

    // The waveforms of lists 1 and 2 in turn, by their presets, and a field that a seed of the request's own draws.
    void AskForEffects(int request) {
        constexpr std::int32_t kPresetsOfTheseLists[] = { 2, 3, 5, 7, 8, 9, 10 };
        platform::SeedRand(std::uint32_t(request) + 77);
        mZephor->mDeltaRequest = 1;
        mZephor->SelectDeltaField(mClock.Now(), kSelect_Delta | kSelect_Force);
        mZephor->mWaveformRequest =
            kPresetsOfTheseLists[std::size_t(request) % std::size(kPresetsOfTheseLists)];
        if (mZephor->mDeltaFade.IsFieldInstalled())
            mZephor->SelectWaveform(mClock.Now(), kSelect_Waveform | kSelect_Force);
    }

    // Held, so that nothing but the requests chooses an effect: not even an overlay, which repeats its slot's last.
    void StartRun(FeedbackForm form, int threads) {
        platform::SeedRand(1);
        Make(160, 120);
        mZephor->mLayers = std::make_unique<ZephorLayerSet>(threads);
        mZephor->mLayers->engine.UseForm(form);
        mZephor->mChangeMode = kChangeMode_Held;
        mZephor->mOverlays.recent = { 6, 3, 1 };
        ASSERT_TRUE(mZephor->Start(mWindow->Window(), {}));
    }

    void Pulse(int frame) {
        mClock.SetTo(kStart + double(frame) / 60);
        if (frame % kFramesBetweenRequests == 0) AskForEffects(frame / kFramesBetweenRequests);
        const auto sound = SoundOf(frame);
        mZephor->StorePulse(sound.data(), sound.size(), std::uint32_t(frame) + 1, 1);
        Recorder().ForgetRecords();
        mZephor->AudioDataArrived(std::uint32_t(frame) + 1);
    }

    // Of the images of all frames so far, at the marks.
    std::vector<std::uint64_t> ChecksumsOf(FeedbackForm form, int threads) {
        StartRun(form, threads);
        std::vector<std::uint64_t> sums;
        tests::Checksum sum;
        for (int frame = 1; frame <= (IsSoak() ? kFramesOfSoak : kFrames); ++frame) {
            Pulse(frame);
            sum.Add(tests::LayerPixels(*mZephor->mLayers->targetLayer).bytes);
            if (std::ranges::find(kMarks, frame) != std::end(kMarks)) sums.push_back(sum.Get());
        }
        return sums;
    }
};

TEST_F(ZephorSameBytes, InEveryFormOnOneThreadAndOnTwo) {
    const auto defined = ChecksumsOf(FeedbackForm::Definition, 1);
    for (const FeedbackForm form : RunnableForms())
        for (const int threads : { 1, 2 })
            EXPECT_EQ(ChecksumsOf(form, threads), defined) << NameOf(form) << " on " << threads;
    for (std::size_t i = 0; i < defined.size(); ++i)
        tests::SayForEveryBuild("classic visualizer, frame " + std::to_string(kMarks[i]), defined[i]);
}

TEST_F(ZephorSameBytes, TheRunHasAPictureThatMoves) {
    StartRun(BestForm(), 1);
    std::vector<std::uint8_t> last;
    int moved = 0;
    for (int frame = 1; frame <= 60; ++frame) {
        Pulse(frame);
        const tests::LayerPixels image(*mZephor->mLayers->targetLayer);
        EXPECT_GT(std::ranges::count_if(image.bytes, [](int value) { return value > 0; }), 100) << frame;
        moved += image.bytes != last;
        last = image.bytes;
    }
    EXPECT_EQ(moved, 60);
}

} // namespace
} // namespace orvane::zephor
