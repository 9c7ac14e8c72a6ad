// The test modules do what their rows say. Tests of the host rest on that.
#include "Counts.h"
#include "Modes.h"
#include "ModuleFigures.h"
#include "support/ModuleLog.h"
#include "support/NotModules.h"
#include "support/PlayedHost.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <clocale>
#include <functional>
#include <string>
#include <xmmintrin.h>

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

constexpr DWORD kPatience = 20'000; // ms
constexpr DWORD kPollInterval = 20; // ms

// A log file of its own for each test; the modules append to it.
class TestModules : public testing::Test {
protected:
    TestModules()
        : mLog(ProgramFolder() /
               ("modules-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) +
                ".log")) {
        std::filesystem::remove(mLog);
        SetEnvironmentVariableW(L"ORVANE_MODULE_LOG", mLog.c_str());
    }

    ~TestModules() override {
        SetEnvironmentVariableW(L"ORVANE_MODULE_LOG", nullptr);
        std::error_code ignored;
        std::filesystem::remove(mLog, ignored);
    }

    static std::filesystem::path Module(std::string_view mode) {
        return ProgramFolder() / "modules" / (std::string(mode) + ".dll");
    }

    [[nodiscard]] std::vector<ModuleCall> Calls() const { return ReadModuleLog(mLog); }

    [[nodiscard]] std::size_t HostCalls(std::uint32_t message) const {
        return CallsOf(Calls(), Kind::Host, message).size();
    }

private:
    const std::filesystem::path mLog;
};

bool Eventually(const std::function<bool()>& holds) {
    for (DWORD waited = 0; waited < kPatience; waited += kPollInterval) {
        if (holds()) return true;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(kPollInterval);
    }
    return holds();
}

std::u16string NameOf(const OrvaneRegisterRecord& record) {
    const OrvaneString name = record.name;
    return { name.units, name.units + std::min<std::size_t>(name.count, ORVANE_STRING_UNITS) };
}

TEST_F(TestModules, EachEntryAnswersAsItsRowSays) {
    const struct {
        const char* mode;
        std::int32_t status;
        std::size_t registrations; // accepted
    } rows[] = {
        { "recorder", 0, 1 },
        { "counter", 0, 1 },
        { "entry-fails", kEntryFailure, 0 },
        { "entry-fails-registered", kEntryFailure, 1 },
        { "never-registers", 0, 0 },
        { "registers-twice", 0, 2 },
        { "null-record", -50, 0 },
        { "null-record-swallowed", 0, 0 },
        { "loads-slowly", 0, 1 },
        { "major-9", -50, 0 },
        { "major-9-swallowed", 0, 0 },
        { "minor-8", 0, 1 },
        { "name-300", 0, 1 },
        { "name-0", 0, 1 },
        { "name-surrogates", 0, 1 },
        { "null-handler", 0, 1 },
        { "idle-on", 0, 1 },
        { "idle-off", 0, 1 },
        { "init-fails", kInitFailure, 1 },
        { "init-fails-swallowed", 0, 1 },
        { "activate-unimplemented", 0, 1 },
        { "activate-fails", 0, 1 },
        { "calls-host", 0, 1 },
        { "opens-windows", 0, 1 },
    };

    for (const auto& row : rows) {
        PlayedHost host(Module(row.mode));
        ASSERT_TRUE(host.HasEntry()) << row.mode;
        EXPECT_EQ(host.Enter(), row.status) << row.mode;
        EXPECT_EQ(host.mRegistered.size(), row.registrations) << row.mode;
        EXPECT_EQ(CallsOf(CallsOf(Calls(), row.mode), Kind::Entry, ORVANE_MSG_INIT).size(), 1u) << row.mode;
    }
}

TEST_F(TestModules, AModuleWithoutTheEntryLoadsAndHasNone) {
    const PlayedHost host(Module("no-entry"));
    EXPECT_FALSE(host.HasEntry());
    EXPECT_NE(GetModuleHandleW(L"no-entry.dll"), nullptr);
}

TEST_F(TestModules, TheRecorderRegistersADifferentFigureInEachField) {
    PlayedHost host(Module("recorder"));
    host.Enter();
    ASSERT_EQ(host.mRegistered.size(), 1u);
    const OrvaneRegisterRecord record = host.mRegistered[0];
    EXPECT_EQ(record.majorVersion, 10u);
    EXPECT_EQ(record.minorVersion, 9u);
    EXPECT_EQ(NameOf(record), u"recorder");
    EXPECT_EQ(record.options, 0x0001000Au);
    EXPECT_EQ(record.word0, 0x01020304u);
    EXPECT_EQ(record.bytes[3], 0xD4);
    EXPECT_EQ(record.rate, 30u);
    EXPECT_EQ(record.word1, 0x11121314u);
    EXPECT_EQ(record.word2, 0x21222324u);
    EXPECT_EQ(record.limit1, 101u);
    EXPECT_EQ(record.limit2, 102u);
    EXPECT_EQ(record.limit3, 103u);
    EXPECT_EQ(record.limit4, 104u);
}

TEST_F(TestModules, VersionsNamesAndOptionsAreThoseOfTheRow) {
    const auto registered = [](const char* mode) {
        PlayedHost host(Module(mode));
        host.Enter();
        return host.mRegistered.empty() ? OrvaneRegisterRecord{} : host.mRegistered.back();
    };
    EXPECT_EQ(registered("minor-8").minorVersion, 8u);
    EXPECT_EQ(registered("name-300").name.count, 300);
    EXPECT_EQ(NameOf(registered("name-300")), std::u16string(255, u'n'));
    EXPECT_EQ(NameOf(registered("name-0")), u"");
    const char16_t lone[] = { 0xD800, u's', 0xDC00 };
    EXPECT_EQ(NameOf(registered("name-surrogates")), std::u16string(lone, 3));
    EXPECT_EQ(NameOf(registered("registers-twice")), u"registers-twice, again");
    EXPECT_EQ(registered("null-handler").handler, nullptr);
    EXPECT_EQ(registered("idle-on").options & ORVANE_OPTION_IDLE, 8u);
    EXPECT_EQ(registered("idle-off").options & ORVANE_OPTION_IDLE, 0u);
}

TEST_F(TestModules, ActivationAnswersAsItsRowSays) {
    const struct {
        const char* mode;
        std::int32_t status;
    } rows[] = { { "recorder", 0 },
                 { "activate-unimplemented", ORVANE_UNIMPLEMENTED },
                 { "activate-fails", kActivateFailure } };

    for (const auto& row : rows) {
        PlayedHost host(Module(row.mode));
        host.Enter();
        EXPECT_EQ(host.Activate(GetDesktopWindow()), row.status) << row.mode;
    }
}

TEST_F(TestModules, TheRecorderKeepsEveryByteThatItWasSent) {
    PlayedHost host(Module("recorder"));
    host.Enter();
    OrvaneRenderData sound = {};
    sound.waveformChannels = 2;
    sound.waveform[1][0] = 77;
    sound.spectrum[1][511] = 200;
    OrvaneTrack track = {};
    track.name.count = 3;
    track.trackStartA = -7;
    track.trackStartB = 8;
    std::uint8_t image[] = { 9, 8, 7 };
    OrvaneArtworkRecord artwork = {};
    artwork.data = image;
    artwork.size = sizeof(image);
    artwork.format = 14;

    EXPECT_EQ(host.Pulse(sound, 5, 6), kPulseResultBase + 5);
    host.Play(track);
    host.Send(ORVANE_MSG_ARTWORK, &artwork);

    const auto calls = Calls();
    const auto inits = CallsOf(calls, Kind::Handler, ORVANE_MSG_INIT);
    ASSERT_EQ(inits.size(), 1u);
    EXPECT_EQ(inits[0].cookie, kRegisterRefcon);
    EXPECT_EQ(inits[0].RecordAs<OrvaneHandlerRecord>().hostVersion, 0x0080500Cu);

    const auto pulses = CallsOf(calls, Kind::Handler, ORVANE_MSG_PULSE);
    ASSERT_EQ(pulses.size(), 1u);
    EXPECT_EQ(pulses[0].cookie, kHandlerRefcon);
    EXPECT_EQ(pulses[0].thread, GetCurrentThreadId());
    EXPECT_EQ(pulses[0].RecordAs<OrvanePulseRecord>().position, 6u);
    EXPECT_EQ(pulses[0].RecordAs<OrvanePulseRecord>().result, 0u) << "logged as it came";
    ASSERT_EQ(pulses[0].data->size(), 2050u);
    EXPECT_EQ((*pulses[0].data)[513], 77);
    EXPECT_EQ((*pulses[0].data)[2049], 200);

    const auto plays = CallsOf(calls, Kind::Handler, ORVANE_MSG_PLAY);
    ASSERT_EQ(plays.size(), 1u);
    EXPECT_EQ(plays[0].RecordAs<OrvanePlayRecord>().trackStartA, -7);
    EXPECT_EQ(plays[0].RecordAs<OrvanePlayRecord>().trackStartB, 8u);
    ASSERT_EQ(plays[0].data->size(), 5776u);
    EXPECT_EQ((*plays[0].data)[8], 3);

    const auto artworks = CallsOf(calls, Kind::Handler, ORVANE_MSG_ARTWORK);
    ASSERT_EQ(artworks.size(), 1u);
    EXPECT_EQ(artworks[0].data, (Bytes{ 9, 8, 7 }));

    const auto draws = CallsOf(calls, Kind::Handler, ORVANE_MSG_DRAW);
    ASSERT_EQ(draws.size(), 1u);
    EXPECT_FALSE(draws[0].record);
}

TEST_F(TestModules, TheCounterLogsItsCountsAloneAndSeesSoundThatIsNotThePulsesOwn) {
    PlayedHost host(Module("counter"));
    host.Enter();
    host.Send(ORVANE_MSG_DEACTIVATE); // the module may have been in use before
    OrvaneRenderData sound = {};
    sound.waveform[0][0] = 5;
    sound.spectrum[1][511] = 5;
    host.Pulse(sound, 0x105, 0);
    host.Pulse(sound, 0x106, 0);
    host.Send(ORVANE_MSG_STOP);
    host.Send(ORVANE_MSG_DEACTIVATE);

    std::vector<CountsRecord> counts;
    for (const auto& call : Calls()) {
        if (call.kind != Kind::Handler) continue;
        EXPECT_EQ(call.message, ORVANE_MSG_DEACTIVATE);
        ASSERT_EQ(call.data->size(), sizeof(CountsRecord));
        std::memcpy(&counts.emplace_back(), call.data->data(), sizeof(CountsRecord));
    }
    ASSERT_EQ(counts.size(), 2u);
    const auto between = [&](std::uint32_t message) {
        return counts[1].of[IndexOfCount(message)] - counts[0].of[IndexOfCount(message)];
    };
    EXPECT_EQ(between(ORVANE_MSG_PULSE), 2u);
    EXPECT_EQ(between(ORVANE_MSG_DRAW), 2u);
    EXPECT_EQ(between(ORVANE_MSG_STOP), 1u);
    EXPECT_EQ(between(ORVANE_MSG_DEACTIVATE), 1u);
    EXPECT_EQ(between(ORVANE_MSG_PLAY), 0u);
    EXPECT_EQ(counts[1].foreignSound - counts[0].foreignSound, 1u);
}

TEST_F(TestModules, CallsHostSendsAllFourFromTwoThreadsAndAgainAfterDeactivation) {
    PlayedHost host(Module("calls-host"));
    host.Enter();
    host.Activate(GetDesktopWindow());
    const auto calls = CallsOf(Calls(), Kind::Host, ORVANE_HOST_REQUEST_ARTWORK);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].thread, GetCurrentThreadId());
    EXPECT_NE(calls[1].thread, GetCurrentThreadId());
    host.Send(ORVANE_MSG_DEACTIVATE);
    for (const std::uint32_t message : { ORVANE_HOST_REQUEST_ARTWORK, ORVANE_HOST_SET_FULLSCREEN_OPTIONS,
                                         ORVANE_HOST_SET_FULLSCREEN, kUnknownHostMessage })
        EXPECT_TRUE(Eventually([&] { return HostCalls(message) == 5; })) << message;
}

TEST_F(TestModules, CallsAfterFailureSpeaksOnThoughItWasRefused) {
    PlayedHost host(Module("calls-after-failure"));
    EXPECT_EQ(host.Enter(), ORVANE_BAD_PARAMETER);
    EXPECT_TRUE(host.mRegistered.empty());
    EXPECT_TRUE(Eventually([&] { return HostCalls(kUnknownHostMessage) == 3; }));
}

TEST_F(TestModules, ChangesStateLeavesTheRoundingTheFolderAndTheLocaleChanged) {
    const auto folder = std::filesystem::current_path();
    std::fenv_t environment;
    std::fegetenv(&environment);
    PlayedHost host(Module("changes-state"));
    host.Enter();
    const int x87Rounding = std::fegetround();
    const unsigned sseRounding = _MM_GET_ROUNDING_MODE();
    std::fesetenv(&environment);
    EXPECT_EQ(x87Rounding, FE_UPWARD);
    EXPECT_EQ(sseRounding, unsigned(_MM_ROUND_UP));
    EXPECT_NE(std::filesystem::current_path(), folder);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    std::filesystem::current_path(folder);
    std::setlocale(LC_ALL, "C");
}

TEST_F(TestModules, OpensWindowsHasTwoChildrenThatGoSomeTimeAfterDeactivation) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    PlayedHost host(Module("opens-windows"));
    host.Enter();
    host.Activate(window);
    const HWND first = GetWindow(window, GW_CHILD);
    ASSERT_NE(first, nullptr);
    EXPECT_NE(GetWindow(first, GW_HWNDNEXT), nullptr);
    host.Send(ORVANE_MSG_DEACTIVATE);
    EXPECT_EQ(GetWindow(window, GW_CHILD), first);
    EXPECT_TRUE(Eventually([&] { return GetWindow(window, GW_CHILD) == nullptr; }));
    DestroyWindow(window);
}

TEST_F(TestModules, WhatIsNoModuleCannotBeLoaded) {
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    const auto folder = ProgramFolder() / "not-modules";
    std::filesystem::create_directories(folder);
    MakeEmptyFile(folder / "empty.dll");
    MakeTextFile(folder / "text.dll");
    Make32BitImage(folder / "other-machine.dll");
    MakeFolder(folder / "x.dll");
    for (const char* name : { "empty.dll", "text.dll", "other-machine.dll", "x.dll" })
        EXPECT_EQ(LoadLibraryExW((folder / name).c_str(), nullptr, 0), nullptr) << name;
    EXPECT_EQ(LoadLibraryExW(Module("missing-dependency").c_str(), nullptr, 0), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
    EXPECT_TRUE(std::filesystem::exists(Module("missing-dependency")));
    SetErrorMode(before);
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace orvane::tests
