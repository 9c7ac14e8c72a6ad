// The classic visualizer as the host sees it.
#include "zephor/visualizer/Z_InternalVisualPlugIn.h"

#include "ZephorFixture.h"

#include "plugins/PlugInMemory.h"
#include "support/LogCapture.h"

namespace orvane::plugins {
namespace {

using zephor::kStart;

// With its fields open. The visualizer's own come by OpenZephor.
class OpenPlugIn final : public Z_InternalVisualPlugIn {
public:
    using InternalVisualPlugIn::mVisualizer;

    // A plug-in has no destructor: what a test parked, it lets go by this.
    void ForgetParked() { records::LocalizedStrings().swap(mLocalizedStrings); }

private:
    ~OpenPlugIn() = default;
};

class ClassicPlugIn : public testing::Test {
protected:
    ClassicPlugIn() { visualizer::SitesInForce() = visualizer::RecordingSites(); }

    ~ClassicPlugIn() override {
        mPlugIn->Deactivate();
        mPlugIn->ForgetParked();
        visualizer::SitesInForce() = visualizer::RecordingSites();
    }

    void Activate() { ASSERT_TRUE(mPlugIn->ActivateInWindow(mWindow.Window())); }

    render::RecordingRenderer& Recorder() {
        return static_cast<render::RecordingRenderer&>(*mPlugIn->mVisualizer->Renderer());
    }

    void Pulse() {
        const std::vector<std::uint8_t> sound(sizeof(records::AudioRenderData), 200);
        EXPECT_EQ(mPlugIn->Pulse(sound.data(), sound.size(), 1, 5), 0u);
    }

    std::size_t Frames() { return Recorder().CountOf(render::DeviceCall::Present); }

    // The texts drawn while `work` runs.
    template <typename Work>
    std::vector<std::u16string> TextsOf(Work&& work) {
        auto& log = *visualizer::SitesInForce().drawing;
        log.texts.clear();
        work();
        std::vector<std::u16string> texts;
        for (const auto& drawn : log.texts) texts.push_back(drawn.text);
        return texts;
    }

    tests::SetClock mClock{ kStart };
    tests::SetDpi mDpi{ 96 };
    tests::ChildWindow mWindow{ 64, 48 };
    PlugInOwner<OpenPlugIn> mPlugIn = MakePlugIn<OpenPlugIn>();
};

TEST_F(ClassicPlugIn, IsOfItsKindAndHasItsFixedNameAndNoTitle) {
    EXPECT_EQ(mPlugIn->Kind(), PlugInKind::kZephor);
    EXPECT_EQ(mPlugIn->Name().View(), u"Orvane Classic Visualizer");
    EXPECT_EQ(mPlugIn->Name().View().size(), 25u);
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"");
}

TEST_F(ClassicPlugIn, ActivationMakesTheVisualizerInTheWindow) {
    const tests::LogCapture log;
    Activate();
    ASSERT_NE(mPlugIn->mVisualizer, nullptr);
    EXPECT_EQ(mPlugIn->Window(), mWindow.Window());
    EXPECT_EQ(visualizer::SitesInForce().lastWindow, mWindow.Window());
    EXPECT_NE(Recorder().FindResource("ZephorVisualizer clut buffer"), nullptr);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(ClassicPlugIn, AFailedActivationPrintsNothingAndLeavesNoVisualizer) {
    Activate();
    visualizer::SitesInForce().refuseRenderer = true;
    const tests::LogCapture log;
    EXPECT_FALSE(mPlugIn->ActivateInWindow(mWindow.Window()));
    EXPECT_EQ(mPlugIn->mVisualizer, nullptr);
    EXPECT_FALSE(mPlugIn->ActivateInWindow({}));
    EXPECT_FALSE(mPlugIn->Window()) << "kept, whatever came of it";
    EXPECT_EQ(log.Text(), "");
    visualizer::SitesInForce().refuseRenderer = false;
    Activate();
}

TEST_F(ClassicPlugIn, APulseDrawsAFrame) {
    Activate();
    Pulse();
    EXPECT_EQ(Frames(), 1u);
    mClock.Advance(0.025);
    Pulse();
    EXPECT_EQ(Frames(), 2u);
    EXPECT_EQ(Recorder().FindResource("Zephor Indexed texture")->fills, 1u);
}

TEST_F(ClassicPlugIn, ADrawIsAFrameToo) {
    Activate();
    mPlugIn->Draw();
    EXPECT_EQ(Frames(), 1u);
}

TEST_F(ClassicPlugIn, BelowAMinimisedWindowAPulseDrawsNothing) {
    const tests::ChildWindow window(64, 48, tests::ChildWindow::Parent::Iconic);
    ASSERT_TRUE(mPlugIn->ActivateInWindow(window.Window()));
    Pulse();
    EXPECT_EQ(Frames(), 0u);
}

TEST_F(ClassicPlugIn, ANewSizeOfTheWindowReachesTheImage) {
    Activate();
    Pulse();
    mWindow.Resize(100, 70);
    mPlugIn->Reshape();
    Pulse();
    EXPECT_EQ(Recorder().FindResource("Zephor Indexed texture")->image->width, 102u);
}

TEST_F(ClassicPlugIn, KeysReachTheVisualizerAndTheReceiverPrintsWhatItHears) {
    Activate();
    const std::string handled = "InternalVisualPlugIn::KeyInput calling mVisualizer->HandleKeyInput.\n";
    const auto linesOf = [&](const char16_t* key, bool taken) {
        const tests::LogCapture log;
        EXPECT_EQ(mPlugIn->KeyInput(1, key, 0), taken);
        return log.Text();
    };
    EXPECT_EQ(linesOf(u"i", true), handled + "InternalVisualPlugInCommandReceiver::ResetTrackChangeTime\n");
    EXPECT_EQ(linesOf(u"l", true),
              handled + "InternalVisualPlugInCommandReceiver::SetTrackInfoToDisplayAlways\n");
    EXPECT_EQ(linesOf(u"c", true), handled + "InternalVisualPlugInCommandReceiver::ToggleConfigDisplay\n");
    EXPECT_EQ(linesOf(u"h", true), handled);
    EXPECT_EQ(linesOf(u"f", true), handled);
    EXPECT_EQ(linesOf(u"n", false), handled);
}

TEST_F(ClassicPlugIn, ATitleComesFromTheLastParkedStringAndTheOthersAreReadAtCreation) {
    records::LocalizedStrings list;
    for (const char* key : { "all", "one", "two", "three", "four", "five", "six", "seven", "Classic" })
        list.push_back(records::MakeLocalizedString(key, "k"));
    mPlugIn->ParkLocalizedStrings(list);
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"Classic");
    using Texts = std::vector<std::u16string>;
    const auto texts = TextsOf([&] { Activate(); });
    Texts keys;
    for (const auto& text : texts)
        if (text != u"k") keys.push_back(text);
    EXPECT_EQ(keys, (Texts{ u"all", u"one", u"two", u"three", u"four", u"all", u"five", u"six", u"seven" }));
    // What is parked later is for the next creation.
    const auto later = TextsOf([&] { mPlugIn->ParkLocalizedStrings({ list[1] }); });
    EXPECT_TRUE(later.empty());
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"one");
}

} // namespace
} // namespace orvane::plugins
