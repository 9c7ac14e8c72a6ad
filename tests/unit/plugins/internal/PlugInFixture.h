// The test visualizer's plug-in in a window, on recording sites, with a set clock.
#pragma once

#include "plugins/PlugInMemory.h"
#include "support/ChildWindow.h"
#include "support/LogCapture.h"
#include "support/SetClock.h"
#include "support/SetDpi.h"
#include "support/TestVisualPlugIn.h"
#include "visualizer/recording/RecordingSites.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace orvane::plugins {

class PlugInFixture : public testing::Test {
protected:
    PlugInFixture() { visualizer::SitesInForce() = visualizer::RecordingSites(); }

    // A plug-in has no destructor, so what it owns is let go here.
    ~PlugInFixture() override {
        tests::TestVisualizer::sOnCall = nullptr;
        mPlugIn->Deactivate();
        mPlugIn->ForgetParked();
        visualizer::SitesInForce() = visualizer::RecordingSites();
    }

    void Activate() { ASSERT_TRUE(mPlugIn->ActivateInWindow(mWindow.Window())); }

    [[nodiscard]] tests::TestVisualizer& Visualizer() const { return *mPlugIn->Test(); }

    void Play() {
        const auto track = records::MakeTrackParam();
        track->mTrackName.Assign(u"Name");
        mPlugIn->StartExternalVisualPlayback(track.get(), &track->mAudioFormat, -2, 8);
    }

    std::uint64_t Pulse(std::uint32_t stamp, std::uint8_t value = 3, std::uint32_t position = 5) {
        const std::vector<std::uint8_t> sound(2050, value);
        return mPlugIn->Pulse(sound.data(), sound.size(), stamp, position);
    }

    tests::SetClock mClock{ 100 };
    tests::SetDpi mDpi{ 96 };
    tests::ChildWindow mWindow{ 320, 200 };
    PlugInOwner<tests::TestVisualPlugIn> mPlugIn = MakePlugIn<tests::TestVisualPlugIn>();
};

} // namespace orvane::plugins
