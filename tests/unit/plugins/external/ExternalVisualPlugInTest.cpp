#include "plugins/external/ExternalVisualPlugIn.h"

#include "records/AudioRenderData.h"
#include "support/LogCapture.h"
#include "unit/plugins/external/FakeModule.h"

#include <gtest/gtest.h>

#include <cstring>

namespace orvane::plugins {
namespace {

using tests::Bytes;
using tests::FakeModule;
using tests::LogCapture;
using tests::WireBuilder;

constexpr std::uint64_t kRegisterRefCon = 0x1111222233334444;
constexpr std::uint64_t kPluginRefCon = 0x5555666677778888;

template <typename T>
std::uint64_t AddressOf(const T* pointer) {
    return reinterpret_cast<std::uint64_t>(pointer);
}

class ExternalVisualPlugInTest : public testing::Test {
protected:
    // A plug-in whose module has registered and told its own cookie.
    void MakeRegistered(std::uint32_t options = 0) {
        mModule.mRegistration.options = options;
        mModule.mRegistration.refCon = kRegisterRefCon;
        mModule.mOnMessage = [](std::uint32_t, std::uint8_t* record) {
            std::memcpy(record + 32, &kPluginRefCon, sizeof(kPluginRefCon));
            return 0;
        };
        ASSERT_TRUE(mPlugIn->Initialize());
        mModule.mOnMessage = nullptr;
        mModule.mCalls.clear();
        mLog.Clear();
    }

    // A plug-in whose module returned 0 without registering.
    void MakeUnregistered() {
        mModule.mOnEntry = [] { return 0; };
        ASSERT_TRUE(mPlugIn->Initialize());
        mModule.mCalls.clear();
        mLog.Clear();
    }

    // That the handler got exactly one call, with this message and this record, and the module's cookie.
    void ExpectOneCall(std::uint32_t message, const Bytes& record) {
        ASSERT_EQ(mModule.mCalls.size(), 1u);
        ExpectCall(mModule.mCalls[0], message, record);
    }

    static void ExpectCall(const FakeModule::Call& call, std::uint32_t message, const Bytes& record) {
        EXPECT_FALSE(call.toEntry);
        EXPECT_EQ(call.message, message);
        EXPECT_EQ(call.bytes, record);
        EXPECT_EQ(call.lastArgument, kPluginRefCon);
    }

    LogCapture mLog;
    FakeModule mModule;
    PlugInOwner<ExternalVisualPlugIn> mPlugIn =
        MakePlugIn<ExternalVisualPlugIn>(u"C:\\x.dll", FakeModule::Handle());
};

TEST_F(ExternalVisualPlugInTest, IsOfKind0WithItsPathAndAnEmptyName) {
    EXPECT_EQ(mPlugIn->Kind(), PlugInKind::kExternal);
    EXPECT_EQ(mPlugIn->Path().View(), u"C:\\x.dll");
    EXPECT_EQ(mPlugIn->DisplayName().count, 0);
    EXPECT_EQ(mPlugIn->RegisteredRate(), 60u);
}

TEST_F(ExternalVisualPlugInTest, InitializeWithoutAModuleSaysSo) {
    EXPECT_FALSE(MakePlugIn<ExternalVisualPlugIn>(u"x", nullptr)->Initialize());
    EXPECT_EQ(mLog.Text(), "Cannot boink this plugin. No module.\n");
}

TEST_F(ExternalVisualPlugInTest, InitializeOfAModuleWithoutTheEntrySaysSo) {
    EXPECT_FALSE(MakePlugIn<ExternalVisualPlugIn>(u"x", FakeModule::HandleWithoutEntry())->Initialize());
    EXPECT_EQ(mLog.Text(), "Could not find proc address for OrvanePluginMain in this plugin.\n");
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ExternalVisualPlugInTest, TheEntryRecordIsRightAtEveryOffset) {
    mModule.mOnEntry = [] { return 0; };
    EXPECT_TRUE(mPlugIn->Initialize());
    ASSERT_EQ(mModule.mCalls.size(), 1u);
    const auto& call = mModule.mCalls[0];
    EXPECT_TRUE(call.toEntry);
    EXPECT_EQ(call.message, 0x696E6974u);
    EXPECT_EQ(call.lastArgument, 0u);
    EXPECT_NE(mModule.mHostCallback, 0u);
    EXPECT_EQ(call.bytes, WireBuilder()
                              .U32(10)
                              .U32(9)
                              .U64(AddressOf(mPlugIn.get()))
                              .U64(mModule.mHostCallback)
                              .Zeros(12)
                              .Get());
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, InitializeIsTrueExactlyForTheStatus0) {
    for (const std::int32_t status : { 0, 1, -1, -4, -50, INT32_MIN }) {
        mModule.mOnEntry = [status] { return status; };
        EXPECT_EQ(mPlugIn->Initialize(), status == 0) << status;
    }
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, AModuleThatReturns0WithoutRegisteringHasALineForEachOperation) {
    MakeUnregistered();
    records::TrackParamObj track = {};
    EXPECT_FALSE(mPlugIn->ActivateInWindow({ &track }));
    EXPECT_FALSE(mPlugIn->Window());
    EXPECT_FALSE(mPlugIn->Deactivate());
    mPlugIn->Reshape();
    mPlugIn->Draw();
    mPlugIn->Stop();
    mPlugIn->SetArtwork(nullptr, 0, 13);
    EXPECT_EQ(mPlugIn->Pulse(nullptr, 0, 1, 2), 0u);
    mPlugIn->StartExternalVisualPlayback(&track, &track.mAudioFormat, 0, 0);
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{
                                "Cannot activate plugin. mVisualPluginProcPtr == null\n",
                                "Cannot deactivate plugin. mVisualPluginProcPtr == null\n",
                                "Cannot Reshape plugin. mVisualPluginProcPtr == null\n",
                                "Cannot draw plugin. mVisualPluginProcPtr == null\n",
                                "Cannot stop plugin. mVisualPluginProcPtr == null\n",
                                "Cannot set artwork. mVisualPluginProcPtr == null\n",
                                "Cannot pulse. mVisualPluginProcPtr == null\n",
                                "Cannot start playback. mVisualPluginProcPtr == null\n",
                            }));
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ExternalVisualPlugInTest, WithoutAHandlerArtworkOfFormat0HasItsLineToo) {
    MakeUnregistered();
    mPlugIn->SetArtwork(nullptr, 0, 0);
    EXPECT_EQ(mLog.Text(), "Cannot set artwork. mVisualPluginProcPtr == null\n");
}

TEST_F(ExternalVisualPlugInTest, IdleWithOptions0SendsNothingAndPrintsNothingEvenWithNoHandler) {
    mPlugIn->Idle();
    MakeUnregistered();
    mPlugIn->Idle();
    EXPECT_EQ(mLog.Text(), "");
    EXPECT_TRUE(mModule.mCalls.empty());
}

TEST_F(ExternalVisualPlugInTest, IdleIsSentOnlyIfTheBitOfValue8IsSet) {
    for (const std::uint32_t options : { 0u, 1u, 7u, 0xFFFFFFF7u }) {
        MakeRegistered(options);
        mPlugIn->Idle();
        EXPECT_TRUE(mModule.mCalls.empty()) << options;
    }
    for (const std::uint32_t options : { 8u, 0xFFFFFFFFu }) {
        MakeRegistered(options);
        mPlugIn->Idle();
        ExpectOneCall(0x6E756C6C, {});
    }
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, TheActivateRecordIsRightAtEveryOffset) {
    MakeRegistered();
    int window = 0;
    EXPECT_TRUE(mPlugIn->ActivateInWindow({ &window }));
    ExpectOneCall(0x56616374, WireBuilder().U64(AddressOf(&window)).U64(0).Zeros(48).Get());
    EXPECT_EQ(mPlugIn->Window().handle, &window);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, AnActivationThatReturnsMinus4LeavesTheWindowSet) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return -4; };
    int window = 0;
    EXPECT_FALSE(mPlugIn->ActivateInWindow({ &window }));
    EXPECT_EQ(mPlugIn->Window().handle, &window);
    EXPECT_EQ(mLog.Text(),
              "ActivateInWindow: kVisualPluginActivateMessage failed. Plugin returned \"unimpErr|\"\n");
}

TEST_F(ExternalVisualPlugInTest, AnActivationThatFailsOtherwiseShowsItsStatus) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return -108; };
    EXPECT_FALSE(mPlugIn->ActivateInWindow({}));
    EXPECT_EQ(mLog.Text(), "ActivateInWindow: kVisualPluginActivateMessage failed. Error status = -108\n");
}

TEST_F(ExternalVisualPlugInTest, DeactivatingHasALineForStatus0AndIsSilentOtherwise) {
    MakeRegistered();
    EXPECT_TRUE(mPlugIn->Deactivate());
    ExpectOneCall(0x56646374, {});
    EXPECT_EQ(mLog.Text(), "Plugin deactivated.\n");
    mLog.Clear();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return 1; };
    EXPECT_FALSE(mPlugIn->Deactivate());
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, ReshapeDrawAndStopSendTheirMessagesWithoutARecord) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return -1; }; // ignored
    mPlugIn->Reshape();
    mPlugIn->Draw();
    mPlugIn->Stop();
    ASSERT_EQ(mModule.mCalls.size(), 3u);
    ExpectCall(mModule.mCalls[0], 0x5666726D, {});
    ExpectCall(mModule.mCalls[1], 0x56647277, {});
    ExpectCall(mModule.mCalls[2], 0x76737470, {});
    for (const auto& call : mModule.mCalls) EXPECT_EQ(call.record, nullptr);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, TheArtworkRecordIsRightAtEveryOffset) {
    MakeRegistered();
    const std::uint8_t image[] = { 1, 2, 3 };
    mPlugIn->SetArtwork(image, 3, 14);
    ExpectOneCall(0x56617274, WireBuilder().U64(AddressOf(image)).U32(3).U32(14).Zeros(48).Get());
}

TEST_F(ExternalVisualPlugInTest, ArtworkOfFormat13WithoutAnImageIsSentAndFormat0IsNot) {
    MakeRegistered();
    mPlugIn->SetArtwork(nullptr, 0, 0);
    EXPECT_TRUE(mModule.mCalls.empty());
    mPlugIn->SetArtwork(nullptr, 0, 13);
    ExpectOneCall(0x56617274, WireBuilder().U64(0).U32(0).U32(13).Zeros(48).Get());
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, ThePulseRecordIsRightAtEveryOffsetAndADrawFollows) {
    MakeRegistered();
    records::AudioRenderData audio = {};
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&audio);
    EXPECT_EQ(mPlugIn->Pulse(bytes, sizeof(audio), 0xA1A2A3A4, 0xB1B2B3B4), 0u);
    ASSERT_EQ(mModule.mCalls.size(), 2u);
    ExpectCall(mModule.mCalls[0], 0x56706C73,
               WireBuilder().U64(AddressOf(&audio)).U32(0xA1A2A3A4).U32(0xB1B2B3B4).U64(0).Zeros(40).Get());
    ExpectCall(mModule.mCalls[1], 0x56647277, {});
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, PulseReturnsAll64BitsOfWhatTheModuleLeftWhateverItsStatus) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t message, std::uint8_t* record) {
        const std::uint64_t result = 0x8899AABBCCDDEEFF;
        if (message == 0x56706C73) std::memcpy(record + 16, &result, sizeof(result));
        return -1;
    };
    EXPECT_EQ(mPlugIn->Pulse(nullptr, 0, 1, 2), 0x8899AABBCCDDEEFFu);
}

TEST_F(ExternalVisualPlugInTest, ADrawFollowsAPulseEvenIfThatFailed) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return -50; };
    mPlugIn->Pulse(nullptr, 0, 0, 0);
    EXPECT_EQ(mModule.HandlerMessages(), "Vpls Vdrw");
}

TEST_F(ExternalVisualPlugInTest, ThePlaybackRecordIsRightAtEveryOffset) {
    MakeRegistered();
    records::TrackParamObj track = {};
    records::AudioFormatBlock format = { 0xC0, 0xC1, { 1, 2, 3, 4, 5, 6, 7 }, 0xC9 };
    mPlugIn->StartExternalVisualPlayback(&track, &format, -5, 0xD1D2D3D4);
    WireBuilder expected;
    expected.U64(AddressOf(&track)).U64(0).U32(0xC0).U32(0xC1);
    for (std::uint32_t i = 1; i <= 7; ++i) expected.U32(i);
    ExpectOneCall(0x56706C79, expected.U32(0xC9).U32(0xD1D2D3D4).U32(0xFFFFFFFB).Get());
    EXPECT_EQ(mLog.Text(), "");
}

// A module may scribble over the whole of a record: the next one is made anew.
TEST_F(ExternalVisualPlugInTest, EachRecordStartsFromZeroWhateverTheModuleDidToTheLast) {
    MakeRegistered();
    mModule.mOnMessage = [](std::uint32_t, std::uint8_t* record) {
        if (record) std::memset(record, 0xEE, 64);
        return 0;
    };
    mPlugIn->ActivateInWindow({});
    mPlugIn->SetArtwork(nullptr, 0, 13);
    mPlugIn->Pulse(nullptr, 0, 0, 0);
    ASSERT_EQ(mModule.mCalls.size(), 4u);
    EXPECT_EQ(mModule.mCalls[0].bytes, Bytes(64));
    EXPECT_EQ(mModule.mCalls[1].bytes, WireBuilder().Zeros(12).U32(13).Zeros(48).Get());
    EXPECT_EQ(mModule.mCalls[2].bytes, Bytes(64));
}

TEST_F(ExternalVisualPlugInTest, KeysAndLocalizedStringsAreNeverSent) {
    MakeRegistered();
    int window = 0;
    mPlugIn->ActivateInWindow({ &window });
    mModule.mCalls.clear();
    EXPECT_FALSE(mPlugIn->KeyInput(1, u"a", 0));
    mPlugIn->ParkLocalizedStrings({ { "Title", "" } });
    EXPECT_TRUE(mModule.mCalls.empty());
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(ExternalVisualPlugInTest, AMessageMayComeInAnyThreadAndGoesStraightThrough) {
    MakeRegistered();
    std::thread service([this] { mPlugIn->Pulse(nullptr, 0, 1, 1); });
    const auto id = service.get_id();
    service.join();
    ASSERT_EQ(mModule.mCalls.size(), 2u);
    EXPECT_EQ(mModule.mCalls[0].thread, id);
    EXPECT_EQ(mModule.mCalls[1].thread, id);
}

} // namespace
} // namespace orvane::plugins
