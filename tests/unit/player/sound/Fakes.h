// Sound without a machine: a source whose frames tell their own place, and a device that hears what it is told to.
#pragma once

#include "player/sound/SoundDevice.h"
#include "player/sound/SoundSource.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace orvane::tests {

constexpr std::uint32_t kRampRate = 1000; // frames a second: one for each millisecond

// The frame that a ramp has at a place: the left channel counts, the right one counts down.
inline player::StereoFrame RampFrame(std::int64_t place) {
    return { float(place), -float(place) };
}

// Counts its frames from 0 up to its length.
class RampSource final : public player::ISoundSource {
public:
    explicit RampSource(std::int64_t length, std::uint32_t rate = kRampRate)
        : mLength(length)
        , mRate(rate) {}

    [[nodiscard]] std::uint32_t Rate() const override { return mRate; }

    [[nodiscard]] std::int64_t Length() const override { return mLength; }

    [[nodiscard]] bool Seek(std::int64_t frame) override {
        if (!mSeekable) return false;
        mNext = std::min(frame, mLength);
        return true;
    }

    [[nodiscard]] std::size_t Read(std::span<player::StereoFrame> frames) override {
        const auto count = std::size_t(std::min(std::int64_t(frames.size()), mLength - mNext));
        for (std::size_t i = 0; i < count; ++i) frames[i] = RampFrame(mNext++);
        return count;
    }

    bool mSeekable = true;

private:
    const std::int64_t mLength;
    const std::uint32_t mRate;
    std::int64_t mNext = 0;
};

// Hears frames when a test says so.
class ScriptedDevice final : public player::ISoundDevice {
public:
    [[nodiscard]] bool Open(std::uint32_t rate) override {
        if (!mPresent) return false;
        mOpenedRates.push_back(rate);
        Drop();
        return true;
    }

    [[nodiscard]] std::size_t Room() override { return mLost ? 0 : mCapacity - (mWritten.size() - mHeard); }

    void Write(std::span<const player::StereoFrame> frames) override {
        mWritten.insert(mWritten.end(), frames.begin(), frames.end());
    }

    void Run(bool running) override { mRunning = running; }

    void Drop() override {
        mWritten.clear();
        mHeard = 0;
        mRunning = false;
    }

    [[nodiscard]] std::int64_t Heard() override { return std::int64_t(mHeard); }

    [[nodiscard]] bool IsEmpty() override { return mHeard == mWritten.size(); }

    [[nodiscard]] bool IsLost() const override { return mLost; }

    // Plays so many frames more, or what there is.
    void Play(std::size_t frames) {
        if (mRunning) mHeard = std::min(mHeard + frames, mWritten.size());
    }

    bool mPresent = true;
    bool mLost = false;
    std::size_t mCapacity = 100; // frames
    std::vector<std::uint32_t> mOpenedRates;
    std::vector<player::StereoFrame> mWritten; // since Open or Drop
    std::size_t mHeard = 0;
    bool mRunning = false;
};

} // namespace orvane::tests
