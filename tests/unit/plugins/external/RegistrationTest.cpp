#include "plugins/external/ExternalVisualPlugIn.h"
#include "support/LogCapture.h"
#include "unit/plugins/external/FakeModule.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace orvane::plugins {
namespace {

using tests::Bytes;
using tests::FakeModule;
using tests::LogCapture;
using tests::WireBuilder;

class Registration : public testing::Test {
protected:
    LogCapture mLog;
    FakeModule mModule;
    PlugInOwner<ExternalVisualPlugIn> mPlugIn =
        MakePlugIn<ExternalVisualPlugIn>(u"C:\\x.dll", FakeModule::Handle());
};

TEST_F(Registration, EveryFieldGoesToItsPlace) {
    auto& record = mModule.mRegistration;
    record.SetName(u"W\u00E4ves");
    record.options = 0x01;
    record.word0 = 0x02;
    record.bytes = "\x31\x32\x33\x34";
    record.rate = 0x04;
    record.word1 = 0x05;
    record.word2 = 0x06;
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->Name().View(), u"W\u00E4ves");
    EXPECT_EQ(mPlugIn->DisplayName(), mPlugIn->Name());
    EXPECT_EQ(mPlugIn->Options(), 0x01u);
    EXPECT_EQ(mPlugIn->RegisteredWord0(), 0x02u);
    const auto bytes = mPlugIn->RegisteredBytes();
    EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), (Bytes{ 0x31, 0x32, 0x33, 0x34 }));
    EXPECT_EQ(mPlugIn->RegisteredRate(), 0x04u);
    EXPECT_EQ(mPlugIn->RegisteredWord1(), 0x05u);
    EXPECT_EQ(mPlugIn->RegisteredWord2(), 0x06u);
    EXPECT_TRUE(mPlugIn->NameIs(u"W\u00E4ves", 5));
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(Registration, TheTwoMiddleLimitsAreCrossedOver) {
    mModule.mRegistration.limitAt564 = 1;
    mModule.mRegistration.limitAt568 = 2;
    mModule.mRegistration.limitAt572 = 3;
    mModule.mRegistration.limitAt576 = 4;
    EXPECT_TRUE(mPlugIn->Initialize());
    const auto limits = mPlugIn->RegisteredLimits();
    EXPECT_EQ(std::vector(limits.begin(), limits.end()), (std::vector<std::uint32_t>{ 1, 3, 2, 4 }));
}

TEST_F(Registration, TheHandlerRecordIsRightAtEveryOffset) {
    mModule.mRegistration.refCon = 0x1122334455667788;
    EXPECT_TRUE(mPlugIn->Initialize());
    const auto calls = mModule.HandlerCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].message, 0x696E6974u);
    EXPECT_EQ(calls[0].lastArgument, 0x1122334455667788u);
    EXPECT_EQ(calls[0].bytes, WireBuilder()
                                  .U32(10)
                                  .U32(9)
                                  .U32(0x0080500C)
                                  .U64(reinterpret_cast<std::uint64_t>(mPlugIn.get()))
                                  .U64(mModule.mHostCallback)
                                  .U32(0)
                                  .U64(0x1122334455667788)
                                  .Zeros(24)
                                  .Get());
}

TEST_F(Registration, TheRefconThatStandsInTheRecordAfterInitComesBackOnEveryCall) {
    mModule.mRegistration.refCon = 7;
    EXPECT_TRUE(mPlugIn->Initialize());
    mPlugIn->Draw();
    EXPECT_EQ(mModule.HandlerCalls()[1].lastArgument, 7u); // left as it was

    mModule.mOnMessage = [](std::uint32_t message, std::uint8_t* record) {
        const std::uint64_t refCon = 99;
        if (message == 0x696E6974) std::memcpy(record + 32, &refCon, sizeof(refCon));
        return 0;
    };
    EXPECT_EQ(mModule.Register(mModule.mRegistration), 0);
    mPlugIn->Draw();
    EXPECT_EQ(mModule.HandlerCalls()[2].lastArgument, 7u); // 'init' itself still has the registered one
    EXPECT_EQ(mModule.HandlerCalls()[3].lastArgument, 99u);
}

TEST_F(Registration, ItsStatusIsTheHandlersAndTheRefconIsTakenWhateverThatIs) {
    mModule.mOnMessage = [](std::uint32_t message, std::uint8_t* record) {
        const std::uint64_t refCon = 55;
        if (message == 0x696E6974) std::memcpy(record + 32, &refCon, sizeof(refCon));
        return -77;
    };
    std::int32_t status = 0;
    mModule.mOnEntry = [&] {
        status = mModule.Register(mModule.mRegistration);
        return 0;
    };
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(status, -77);
    mPlugIn->Draw();
    EXPECT_EQ(mModule.HandlerCalls()[1].lastArgument, 55u);
}

TEST_F(Registration, MinorVersion8PrintsItsLineAndSucceeds) {
    mModule.mRegistration.minorVersion = 8;
    mModule.mRegistration.SetName(u"eight");
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mLog.Text(), "Minor version (8) expected to be kOrvanePluginMinorMessageVersion(9)\n");
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"eight");
    EXPECT_EQ(mModule.HandlerMessages(), "init");
}

TEST_F(Registration, MajorVersion9ReturnsMinus50AndThePlugInHasNoHandler) {
    mModule.mRegistration.majorVersion = 9;
    mModule.mRegistration.minorVersion = 3; // never looked at
    mModule.mRegistration.SetName(u"nine");
    std::int32_t status = 0;
    mModule.mOnEntry = [&] {
        status = mModule.Register(mModule.mRegistration);
        return 0; // the entry doesn't pass the status on: the plug-in stays, without a handler
    };
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(status, -50);
    EXPECT_EQ(mLog.Text(), "Major version (9) expected to be kOrvanePluginMajorMessageVersion(10)\n");
    EXPECT_EQ(mPlugIn->DisplayName().count, 0);
    mLog.Clear();
    mPlugIn->Draw();
    EXPECT_EQ(mLog.Text(), "Cannot draw plugin. mVisualPluginProcPtr == null\n");
    EXPECT_EQ(mModule.HandlerMessages(), "");
}

TEST_F(Registration, MajorVersion9FailsThePlugInIfTheEntryPassesTheStatusOn) {
    mModule.mRegistration.majorVersion = 9;
    EXPECT_FALSE(mPlugIn->Initialize());
}

TEST_F(Registration, OfAnotherMajorVersionsRecordOnlyTheVersionIsRead) {
    mModule.mOnEntry = [] { return 0; };
    EXPECT_TRUE(mPlugIn->Initialize());
    const auto eightBytes = std::make_unique<std::uint32_t[]>(2); // a read beyond it is seen by the sanitizer
    eightBytes[0] = 0xFFFFFFFF;
    EXPECT_EQ(mModule.CallHost(0x72656776, eightBytes.get()), -50);
    EXPECT_EQ(mLog.Text(), "Major version (-1) expected to be kOrvanePluginMajorMessageVersion(10)\n");
}

TEST_F(Registration, ANullRecordIsRefusedWithItsLine) {
    mModule.mOnEntry = [&] { return mModule.CallHost(0x72656776, nullptr); };
    EXPECT_FALSE(mPlugIn->Initialize());
    EXPECT_EQ(mLog.Text(), "Plugin message handler passed a null inMessageInfo. Returning paramErr\n");
}

TEST_F(Registration, ANameWithACountOf300IsStoredWithACountOf255) {
    std::u16string units(255, u'u');
    units[254] = u'z';
    for (const std::uint16_t count : { std::uint16_t(256), std::uint16_t(300), std::uint16_t(65535) }) {
        mModule.mRegistration.nameUnits = units;
        mModule.mRegistration.nameCount = count;
        EXPECT_TRUE(mPlugIn->Initialize());
        EXPECT_EQ(mPlugIn->Name().count, 255) << count;
        EXPECT_EQ(mPlugIn->DisplayName().View(), units) << count;
    }
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(Registration, ANameMayBeEmptyAndUnitsBehindItsCountStayOut) {
    mModule.mRegistration.nameUnits = u"ghost";
    mModule.mRegistration.nameCount = 2;
    EXPECT_TRUE(mPlugIn->Initialize());
    records::StringBlock expected;
    expected.Assign(u"gh");
    EXPECT_EQ(mPlugIn->Name(), expected); // whole block: zeros behind the name

    mModule.mRegistration.nameCount = 0;
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->Name(), records::StringBlock());
    EXPECT_EQ(mPlugIn->DisplayName(), records::StringBlock());
}

TEST_F(Registration, LoneSurrogatesAndZerosInANameAreKeptAsTheyAre) {
    const std::u16string name = { u'a', char16_t(0xD83D), u'\0', char16_t(0xDC00), u'b' };
    mModule.mRegistration.SetName(name);
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->DisplayName().View(), name);
}

TEST_F(Registration, ANullHandlerIsRefusedInSilenceWithNothingStored) {
    mModule.mRegistration.handler = 0;
    mModule.mRegistration.options = 8;
    mModule.mRegistration.SetName(u"null");
    EXPECT_FALSE(mPlugIn->Initialize()); // -50 passed on
    EXPECT_EQ(mLog.Text(), "");
    EXPECT_EQ(mPlugIn->DisplayName().count, 0);
    EXPECT_EQ(mPlugIn->Options(), 0u);
    EXPECT_EQ(mModule.HandlerMessages(), "");
}

TEST_F(Registration, ANullHandlerDoesNotReplaceAGoodOne) {
    mModule.mRegistration.SetName(u"good");
    EXPECT_TRUE(mPlugIn->Initialize());
    auto bad = mModule.mRegistration;
    bad.handler = 0;
    bad.SetName(u"bad");
    EXPECT_EQ(mModule.Register(bad), -50);
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"good");
    mPlugIn->Draw();
    EXPECT_EQ(mModule.HandlerMessages(), "init Vdrw");
}

TEST_F(Registration, ARecordMayLieAtAnyAddress) {
    mModule.mOnEntry = [&] {
        Bytes shifted = mModule.mRegistration.Get();
        shifted.insert(shifted.begin(), 0);
        return mModule.CallHost(0x72656776, shifted.data() + 1);
    };
    mModule.mRegistration.SetName(u"odd");
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"odd");
}

TEST_F(Registration, AHandlerMayCallBackFromInsideItsInitAndEvenRegisterAgain) {
    int depth = 0;
    mModule.mOnMessage = [&](std::uint32_t message, std::uint8_t*) {
        if (message != 0x696E6974 || ++depth > 1) return 0;
        auto second = mModule.mRegistration;
        second.SetName(u"second");
        EXPECT_EQ(mModule.CallHost(0x72617274, nullptr), 0);
        return mModule.Register(second);
    };
    mModule.mRegistration.SetName(u"first");
    EXPECT_TRUE(mPlugIn->Initialize());
    EXPECT_EQ(mPlugIn->DisplayName().View(), u"second");
    EXPECT_EQ(mModule.HandlerMessages(), "init init");
}

} // namespace
} // namespace orvane::plugins
