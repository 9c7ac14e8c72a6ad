// A module's whole life: real pump, real service thread, real pipe, a real window, real modules.
#include "ModuleFigures.h"
#include "support/ModuleLog.h"
#include "system/plugins/PluginsTest.h"
#include "system/plugins/host/TestHost.h"

#include <algorithm>

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

// Whose call it was, as "main Vact" or "service Vpls".
std::string NameOf(const ModuleCall& call, DWORD mainThread) {
    const std::string code = { char(call.message >> 24), char(call.message >> 16), char(call.message >> 8),
                               char(call.message) };
    return (call.thread == mainThread ? "main " : "service ") + code;
}

std::uint64_t WordAt(const ModuleCall& call, std::size_t offset) {
    std::uint64_t word = 0;
    if (call.record && call.record->size() >= offset + sizeof(word))
        std::memcpy(&word, call.record->data() + offset, sizeof(word));
    return word;
}

// The sample track as it lies in memory: field behind field, texts in blocks of 512 bytes.
class TrackInMemory {
public:
    TrackInMemory() {
        mBytes.U32(0x1000).U32(0x1001);
        for (const auto* text :
             { u"Name", u"Text 2", u"Artist", u"Album", u"Text 5", u"Text 6", u"Text 7", u"Text 8" })
            Block(text);
        mBytes.U32(0x1002).U32(0x1003).U16(0xFFFE).U16(0x0102);
        for (std::uint32_t i = 0; i < 11; ++i) mBytes.U32(0x1010 + i);
        Block(u"Text 9");
        mBytes.U8(0xA1).U8(0xA2).U16(0x0201).U16(0x8000).U16(0x0203);
        mBytes.U32(0x1020).U32(0x1021).U16(0x0204).U16(0x0205);
        Block(u"Text 10");
        mBytes.F32(1.5f);
        Block(u"Text 11");
        mBytes.U64(0x1122334455667788);
        mBytes.Raw(AsText(Format())).U32(std::uint32_t(-5)).U32(0x1030);
    }

    [[nodiscard]] const Bytes& Get() const { return mBytes.Get(); }

    // Its second word is never filled.
    static Bytes Format() {
        WireBuilder format;
        format.U32(0x2000).U32(0);
        for (std::uint32_t i = 1; i < 9; ++i) format.U32(0x2000 + i);
        return format.Get();
    }

private:
    void Block(std::u16string_view text) {
        mBytes.U16(std::uint16_t(text.size()));
        for (const char16_t unit : text) mBytes.U16(unit);
        mBytes.Zeros(2 * (255 - text.size()));
    }

    WireBuilder mBytes;
};

class FullLife : public PluginsTest {
protected:
    void ServeRecorder() {
        mRecorder = mFolders.Lay(Folder::kRoamingData, "recorder");
        ASSERT_NO_FATAL_FAILURE(ServeTestHost());
        ASSERT_NE(Window(), nullptr);
    }

    // What the host prints from its start until its player comes.
    [[nodiscard]] std::string Start() const {
        return kBuiltInsLine + RegisteringLine(mRecorder) + std::string(kWaitingForClient);
    }

    // The messages of the life: all that the handler got behind its 'init'.
    [[nodiscard]] std::vector<std::string> Messages() const {
        std::vector<std::string> names;
        for (const auto& call : Calls())
            if (call.kind == Kind::Handler && call.message != ORVANE_MSG_INIT)
                names.push_back(NameOf(call, mHost->MainThreadId()));
        return names;
    }

    // The only call with that message; an empty one, and a failure, if it isn't the only one.
    [[nodiscard]] ModuleCall Only(Kind kind, std::uint32_t message) const {
        const auto calls = CallsOf(Calls(), kind, message);
        EXPECT_EQ(calls.size(), 1u) << std::hex << message;
        return calls.size() == 1 ? calls[0] : ModuleCall();
    }

    std::filesystem::path mRecorder;
};

TEST_F(FullLife, TheRecorderGetsEveryMessageOnceInOrderOnItsThreadAndEveryLineIsPrinted) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    const std::string nothingToTell(4, '\0');
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"recorder")), "PRXY");
    EXPECT_EQ(AskAndSettle(SampleStartRequest()), "Start");
    EXPECT_EQ(Ask(PulseRequest(77, 88)), nothingToTell);
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("AR13").Raw("an image").Get()), "OK");
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("NOAR").Get()), "OK");
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("DRAW").Get()), "OK");
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("IDLE").Get()), "OK");
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("RSHP").U32(1).U32(2).U32(3).U32(4).Get()), "OK");
    EXPECT_EQ(Ask(WireBuilder().Raw("KEYI").U32(0).U32(1).U16(u'k').Get()), "OK");
    SetWindowPos(Window(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Settle();
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("STOP").Get()), "OK");
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("DCTV").Get()), "OK");
    // Nothing reaches it any more.
    EXPECT_EQ(Ask(PulseRequest(78, 89)), nothingToTell);
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("DRAW").Get()), "OK");

    EXPECT_EQ(QuitAndRead(), Start() +
                                 "SetCurrentPlugin::Setting null plugin to valid plugin\n"
                                 "PluginPipeServer::StartVisualizerWithTrackParam called\n"
                                 "Plugin deactivated.\n"
                                 "SetCurrentPluginNoLock::Setting current valid plugin to null\n" +
                                 kExitLine);
    EXPECT_EQ(Messages(), (std::vector<std::string>{ "main Vact", "main Vply", "service Vpls", "service Vdrw",
                                                     "main Vart", "main Vdrw", "main null", "main Vfrm",
                                                     "main vstp", "main Vdct" }));
}

TEST_F(FullLife, TheRecordsOfTheRegistrationAreRightAtEveryOffset) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    const ModuleCall entry = Only(Kind::Entry, ORVANE_MSG_INIT);
    const std::uint64_t hostCookie = WordAt(entry, 8);
    const std::uint64_t callback = WordAt(entry, 16);
    EXPECT_NE(hostCookie, 0u);
    EXPECT_NE(callback, 0u);
    EXPECT_EQ(entry.cookie, 0u) << "the third argument";
    EXPECT_EQ(entry.record, WireBuilder().U32(10).U32(9).U64(hostCookie).U64(callback).Zeros(12).Get());
    EXPECT_EQ(entry.thread, mHost->MainThreadId());

    const ModuleCall init = Only(Kind::Handler, ORVANE_MSG_INIT);
    EXPECT_EQ(init.cookie, kRegisterRefcon);
    EXPECT_EQ(init.record, WireBuilder()
                               .U32(10)
                               .U32(9)
                               .U32(0x0080500C)
                               .U64(hostCookie)
                               .U64(callback)
                               .U32(0)
                               .U64(kRegisterRefcon)
                               .Zeros(24)
                               .Get());

    const ModuleCall registration = Only(Kind::Host, ORVANE_HOST_REGISTER);
    EXPECT_EQ(registration.cookie, hostCookie);
    EXPECT_EQ(registration.status, 0);
}

TEST_F(FullLife, TheActivateRecordHoldsTheWindow) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    const ModuleCall call = Only(Kind::Handler, ORVANE_MSG_ACTIVATE);
    EXPECT_EQ(call.cookie, kHandlerRefcon);
    EXPECT_EQ(call.record, WireBuilder().U64(reinterpret_cast<UINT_PTR>(Window())).Zeros(56).Get());
}

TEST_F(FullLife, ThePlaybackRecordHoldsTheTrackAndItsFormatAndBInFrontOfA) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    AskAndSettle(SampleStartRequest());
    const ModuleCall call = Only(Kind::Handler, ORVANE_MSG_PLAY);
    const std::uint64_t track = WordAt(call, 0);
    EXPECT_NE(track, 0u);
    EXPECT_EQ(call.cookie, kHandlerRefcon);
    EXPECT_EQ(call.record, WireBuilder()
                               .U64(track)
                               .U64(0)
                               .Raw(AsText(TrackInMemory::Format()))
                               .U32(0x1030)
                               .U32(std::uint32_t(-5))
                               .Get());
    EXPECT_EQ(call.data, TrackInMemory().Get());
}

TEST_F(FullLife, ThePulseRecordHoldsTheSoundAndADrawFollowsInTheSameThread) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    Ask(PulseRequest(77, 88));
    const ModuleCall pulse = Only(Kind::Handler, ORVANE_MSG_PULSE);
    const ModuleCall draw = Only(Kind::Handler, ORVANE_MSG_DRAW);
    const std::uint64_t sound = WordAt(pulse, 0);
    EXPECT_NE(sound, 0u);
    EXPECT_EQ(pulse.cookie, kHandlerRefcon);
    EXPECT_EQ(pulse.record, WireBuilder().U64(sound).U32(77).U32(88).U64(0).Zeros(40).Get());
    EXPECT_EQ(pulse.data, SampleSound());
    EXPECT_EQ(draw.thread, pulse.thread);
    EXPECT_FALSE(draw.record);
}

TEST_F(FullLife, ArtworkOfBothFormatsArrivesWithItsBytes) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    AskAndSettle(WireBuilder().Raw("AR13").Raw("thirteen").Get());
    AskAndSettle(WireBuilder().Raw("AR14").Raw("fourteen!").Get());
    const auto calls = CallsOf(Calls(), Kind::Handler, ORVANE_MSG_ARTWORK);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].record, WireBuilder().U64(WordAt(calls[0], 0)).U32(8).U32(13).Zeros(48).Get());
    EXPECT_EQ(calls[0].data, WireBuilder().Raw("thirteen").Get());
    EXPECT_EQ(calls[1].record, WireBuilder().U64(WordAt(calls[1], 0)).U32(9).U32(14).Zeros(48).Get());
    EXPECT_EQ(calls[1].data, WireBuilder().Raw("fourteen!").Get());
}

TEST_F(FullLife, AnAr13WithNoBytesGivesArtworkOfFormat13AndSize0) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    AskAndSettle(WireBuilder().Raw("AR13").Get());
    EXPECT_EQ(Only(Kind::Handler, ORVANE_MSG_ARTWORK).record,
              WireBuilder().U64(0).U32(0).U32(13).Zeros(48).Get());
}

TEST_F(FullLife, AStartWhoseKeyIsNotTinfPlaysAZeroedTrack) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    EXPECT_EQ(AskAndSettle(WireBuilder().Raw("STRT").U32(0).U32(0).U32(0).U32(0).Get()), "Start");
    const ModuleCall call = Only(Kind::Handler, ORVANE_MSG_PLAY);
    EXPECT_EQ(call.record, WireBuilder().U64(WordAt(call, 0)).Zeros(56).Get());
    EXPECT_EQ(call.data, Bytes(5776, 0));
}

TEST_F(FullLife, AStopFollowedByADrawSendsBothAndAFollowingActivationStartsNoPlayback) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(SampleStartRequest()); // nobody to play it yet
    AskAndSettle(ActivateRequest(u"recorder"));
    AskAndSettle(WireBuilder().Raw("STOP").Get());
    AskAndSettle(WireBuilder().Raw("DRAW").Get());
    AskAndSettle(ActivateRequest(u"recorder"));
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{ "main Vact", "main Vply", "main vstp", "main Vdrw", "main Vact" }));
    EXPECT_EQ(
        QuitAndRead(),
        Start() +
            "PluginPipeServer::StartVisualizerWithTrackParam called\n"
            "PluginPipeServer::StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n"
            "SetCurrentPlugin::Setting null plugin to valid plugin\n"
            "SetCurrentPlugin::Setting current valid plugin to valid plugin\n" +
            kExitLine);
}

TEST_F(FullLife, ATrackThatCouldNotBeReadToItsEndIsNotStartedButFoundByALaterActivation) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    Bytes request = SampleStartRequest();
    request.resize(request.size() - 4); // without the second start value
    EXPECT_EQ(AskAndSettle(request), "Start");
    AskAndSettle(ActivateRequest(u"recorder"));
    Bytes track = TrackInMemory().Get();
    std::fill(track.end() - 4, track.end(), std::uint8_t(0));
    EXPECT_EQ(Only(Kind::Handler, ORVANE_MSG_PLAY).data, track);
    EXPECT_EQ(QuitAndRead(), Start() + "Buffer underflow reading uint32_t" +
                                 "SetCurrentPlugin::Setting null plugin to valid plugin\n" + kExitLine);
}

TEST_F(FullLife, AKeyReachesNoModule) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    EXPECT_EQ(Ask(WireBuilder().Raw("KEYI").U32(0).U32(1).U16(u'k').Get()), "OK");
    EXPECT_EQ(Ask(PulseRequest(0, 0)), std::string(4, '\0')) << "nor does it come back to the player";
    EXPECT_EQ(Messages(), (std::vector<std::string>{ "main Vact", "service Vpls", "service Vdrw" }));
    EXPECT_EQ(QuitAndRead(), Start() + "SetCurrentPlugin::Setting null plugin to valid plugin\n" + kExitLine);
}

TEST_F(FullLife, AnUnknownNameLeavesNoCurrentPluginAndTheOldOneIsNotDeactivated) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"recorder")), "PRXY");
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"Recorder")), "FAIL"); // as long, and silent
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"recorders")), "FAIL");
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"")), "FAIL");
    EXPECT_EQ(Ask(PulseRequest(1, 1)), std::string(4, '\0'));
    EXPECT_EQ(Messages(), (std::vector<std::string>{ "main Vact" }));
    EXPECT_EQ(QuitAndRead(), Start() +
                                 "SetCurrentPlugin::Setting null plugin to valid plugin\n"
                                 "SetCurrentPlugin::Setting current valid plugin to null\n"
                                 "NameIs: inNameLength(9) != mName[0] (8)\n"
                                 "SetCurrentPlugin::Setting null plugin to null\n"
                                 "NameIs: inNameLength is 0\n"
                                 "SetCurrentPlugin::Setting null plugin to null\n" +
                                 kExitLine);
}

TEST_F(FullLife, TwoModulesOfOneNameAreSelectedByTheFirst) {
    mRecorder = mFolders.Lay(Folder::kProgramFiles, "recorder");
    mFolders.LayAgain(Folder::kRoamingData, mRecorder);
    ASSERT_NO_FATAL_FAILURE(ServeTestHost());
    AskAndSettle(ActivateRequest(u"recorder"));
    AskAndSettle(WireBuilder().Raw("DRAW").Get());
    EXPECT_EQ(Messages(), (std::vector<std::string>{ "main Vact", "main Vdrw" }));
}

TEST_F(FullLife, AReconnectionLeavesTheVisualizerActive) {
    ASSERT_NO_FATAL_FAILURE(ServeRecorder());
    AskAndSettle(ActivateRequest(u"recorder"));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    Ask(PulseRequest(5, 6));
    EXPECT_EQ(Messages(), (std::vector<std::string>{ "main Vact", "service Vpls", "service Vdrw" }));
}

// The real host as it is: nothing is selected, so nothing reaches a module but its registration.
TEST_F(FullLife, WithNoVisualizerSelectedNoMessageReachesAModule) {
    mRecorder = mFolders.Lay(Folder::kRoamingData, "recorder");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    const std::string nothingToTell(4, '\0');
    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    EXPECT_EQ(Ask(PulseRequest(1, 2)), nothingToTell);
    EXPECT_EQ(Ask(WireBuilder().Raw("AR13").Raw("an image").Get()), "OK");
    EXPECT_EQ(Ask("NOAR"), "OK");
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(Ask("IDLE"), "OK");
    EXPECT_EQ(Ask("STOP"), "OK");
    EXPECT_EQ(QuitAndRead(), Start() +
                                 "StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n"
                                 "SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n"
                                 "SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n"
                                 "Current plugin is null. Cannot idle\n" +
                                 kExitLine);
    EXPECT_EQ(Messages(), std::vector<std::string>());
}

} // namespace
} // namespace orvane::tests
