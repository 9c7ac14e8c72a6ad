// A stage, sound, and a recording layer of 200 by 100 pixels to draw them on.
#pragma once

#include "RecordingLayer.h"
#include "TestWaveform.h"

#include "platform/Random.h"
#include "support/SetClock.h"
#include "zephor/waveforms/DrawWaveforms.h"

#include <gtest/gtest.h>

#include <array>

namespace orvane::zephor {

class WaveformFixture : public testing::Test {
protected:
    WaveformFixture() {
        for (std::uint32_t index = 0; index < mTable.size(); ++index) mTable[index] = index;
    }

    [[nodiscard]] WaveformFrame Frame() {
        return { mLayer, mAudio, mTime, mWidth, mHeight, ColourTable(mTable) };
    }

    // One frame of two waveforms that were there before; `before` may be null.
    void Draw(AsyncWaveFormFunctor& now, AsyncWaveFormFunctor* before = nullptr, int fadeFrames = 0) {
        mStage.waveform = &now;
        mStage.previousWaveform = before;
        mStage.fadeFrames = fadeFrames;
        mStage.contextsReady = true;
        DrawWaveforms(mStage, Frame());
    }

    // The index of the colour of a call: the table holds each index as blue.
    [[nodiscard]] int IndexOfColour(std::size_t call) const {
        return int(mLayer.mColours.at(call)[2] * 255 + 0.5f);
    }

    tests::SetClock mClock{ 77.0 };
    tests::RecordingLayer mLayer;
    ZephorAudioState mAudio{};
    double mTime = 1000;
    double mWidth = 200, mHeight = 100;
    std::array<std::uint32_t, 256> mTable{};
    WaveformStage mStage;
};

} // namespace orvane::zephor
