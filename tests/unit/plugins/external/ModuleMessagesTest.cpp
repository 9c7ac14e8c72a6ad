#include "plugins/external/ModuleMessages.h"

#include "plugins/external/ExternalVisualPlugIn.h"
#include "support/LogCapture.h"
#include "unit/plugins/BarePlugIn.h"
#include "unit/plugins/external/FakeModule.h"

#include <gtest/gtest.h>

#include <thread>

namespace orvane::plugins {
namespace {

using tests::FakeModule;
using tests::LogCapture;

constexpr std::uint32_t kRegister = 0x72656776;
constexpr std::uint32_t kRequestArtwork = 0x72617274;

class ModuleMessages : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mPlugIn->Initialize());
        mModule.mCalls.clear();
        mLog.Clear();
    }

    LogCapture mLog;
    FakeModule mModule;
    PlugInOwner<ExternalVisualPlugIn> mPlugIn =
        MakePlugIn<ExternalVisualPlugIn>(u"C:\\x.dll", FakeModule::Handle());
};

TEST_F(ModuleMessages, EachIsHeardWithItsLineAndNothingFollows) {
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), 0x72617274, nullptr), 0);
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), 0x73666F70, nullptr), 0);
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), 0x7366756C, nullptr), 0);
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), 0x7A7A7A7A, nullptr), 0);
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), 0, nullptr), 0);
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{
                                "InitializeRequestForTrackCoverArt received from plugin.\n",
                                "kPlayerSetFullScreenOptionsMessage received from plugin.\n",
                                "kPlayerSetFullScreenMessage received from plugin.\n",
                                "unhandled message received from plugin.\n",
                                "unhandled message received from plugin.\n",
                            }));
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ModuleMessages, TheRecordsOfHeardMessagesAreNeverRead) {
    auto* nowhere = reinterpret_cast<void*>(std::uintptr_t(8));
    EXPECT_EQ(HandleModuleMessage(mPlugIn.get(), kRequestArtwork, nowhere), 0);
}

TEST_F(ModuleMessages, AnUnknownCookieGetsMinus50InSilenceBeforeAnythingElse) {
    int stranger = 0;
    for (void* cookie : { static_cast<void*>(nullptr), static_cast<void*>(&stranger),
                          reinterpret_cast<void*>(~std::uintptr_t(0)) })
        for (const std::uint32_t message : { kRegister, kRequestArtwork, 0u })
            EXPECT_EQ(HandleModuleMessage(cookie, message, nullptr), -50);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ModuleMessages, ABuiltInIsNoCookie) {
    const auto builtIn = MakePlugIn<tests::BarePlugIn>(PlugInKind::kZephor);
    auto record = mModule.mRegistration.Get();
    EXPECT_EQ(HandleModuleMessage(builtIn.get(), kRegister, record.data()), -50);
    EXPECT_EQ(mLog.Text(), "");
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ModuleMessages, AFreedPlugInIsNoCookieAnyMore) {
    mPlugIn.reset();
    EXPECT_EQ(mModule.Register(mModule.mRegistration), -50);
    EXPECT_EQ(mModule.CallHost(kRequestArtwork, nullptr), -50);
    EXPECT_EQ(mLog.Text(), "");
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ModuleMessages, TheCallbackMayComeAfterDeactivation) {
    EXPECT_TRUE(mPlugIn->Deactivate());
    mLog.Clear();
    mModule.mRegistration.SetName(u"late");
    EXPECT_EQ(mModule.Register(mModule.mRegistration), 0);
    EXPECT_EQ(mModule.CallHost(kRequestArtwork, nullptr), 0);
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"late");
    EXPECT_EQ(mLog.Text(), "InitializeRequestForTrackCoverArt received from plugin.\n");
}

TEST_F(ModuleMessages, TheCallbackMayComeFromAnotherThread) {
    mModule.mRegistration.SetName(u"other");
    std::int32_t registered = -1;
    std::int32_t heard = -1;
    std::thread module([&] {
        registered = mModule.Register(mModule.mRegistration);
        heard = mModule.CallHost(kRequestArtwork, nullptr);
    });
    const auto id = module.get_id();
    module.join();
    EXPECT_EQ(registered, 0);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"other");
    ASSERT_EQ(mModule.mCalls.size(), 1u);
    EXPECT_EQ(mModule.mCalls[0].thread, id);
}

// The handler is in its 'init' when the host gives the plug-in up: what the registration still has to store
// goes to memory that is still there.
TEST_F(ModuleMessages, APlugInThatIsFreedDuringItsRegistrationStaysInMemoryUntilThatEnds) {
    mModule.mOnMessage = [&](std::uint32_t, std::uint8_t*) {
        mPlugIn.reset();
        EXPECT_EQ(mModule.CallHost(kRequestArtwork, nullptr), -50);
        return 3;
    };
    EXPECT_EQ(mModule.Register(mModule.mRegistration), 3);
    EXPECT_EQ(mModule.CallHost(kRequestArtwork, nullptr), -50);
    EXPECT_EQ(mLog.Text(), "");
}

// Callbacks of several threads while plug-ins come and go: each gets 0 or -50, and nothing else happens.
TEST_F(ModuleMessages, ThreadsMayCallWhilePlugInsComeAndGo) {
    constexpr int kRounds = 2000;
    std::atomic<void*> cookie = nullptr;
    std::atomic<bool> leaving = false;
    std::atomic<int> strange = 0;
    std::vector<std::thread> callers;
    for (int i = 0; i < 3; ++i)
        callers.emplace_back([&] {
            while (!leaving) {
                const std::int32_t status = HandleModuleMessage(cookie, 0x7366756C, nullptr);
                if (status != 0 && status != -50) ++strange;
            }
        });
    for (int i = 0; i < kRounds; ++i) {
        auto plugIn = MakePlugIn<ExternalVisualPlugIn>(u"x", nullptr);
        cookie = plugIn.get();
        EXPECT_EQ(HandleModuleMessage(cookie, 0x7366756C, nullptr), 0);
    }
    leaving = true;
    for (auto& caller : callers) caller.join();
    EXPECT_EQ(strange, 0);
    EXPECT_EQ(HandleModuleMessage(cookie, 0x7366756C, nullptr), -50);
}

} // namespace
} // namespace orvane::plugins
