// A test module. Compiled once for each row of Modes.h; ORVANE_TEST_MODE is the row's name and the DLL's.
// Whatever the mode, each call is logged (LogWriter.h) and the figures of ModuleFigures.h are registered.
#include "Counts.h"
#include "Habits.h"
#include "LogWriter.h"
#include "Modes.h"
#include "ModuleFigures.h"

#include <algorithm>
#include <windows.h>

namespace orvane::tests {
namespace {

constexpr Mode kMode = ModeOf(ORVANE_TEST_MODE);

constexpr bool Has(Habit habit) {
    return (kMode.habits & habit) != 0;
}

Host sHost = { ORVANE_TEST_MODE };

void Assign(OrvaneString& string, std::string_view text) {
    string.count = std::uint16_t(text.size());
    std::copy(text.begin(), text.end(), string.units);
}

// A name of 300 is a claim only: the block holds 255 units, and what lies behind it in the record isn't text.
void AssignName(OrvaneString& name, std::string_view suffix) {
    switch (kMode.registeredName) {
    case Name::OfTheMode: {
        Assign(name, kMode.name);
        std::copy(suffix.begin(), suffix.end(), name.units + name.count);
        name.count = std::uint16_t(name.count + suffix.size());
        break;
    }
    case Name::Claims300Units:
        std::fill(std::begin(name.units), std::end(name.units), std::uint16_t(u'n'));
        name.count = kClaimedUnits;
        break;
    case Name::Empty:
        break;
    case Name::LoneSurrogates:
        name.units[0] = 0xD800;
        name.units[1] = u's';
        name.units[2] = 0xDC00;
        name.count = 3;
        break;
    }
}

std::size_t RecordSize(std::uint32_t message) {
    switch (message) {
    case ORVANE_MSG_INIT:
        return sizeof(OrvaneHandlerRecord);
    case ORVANE_MSG_ACTIVATE:
        return sizeof(OrvaneActivateRecord);
    case ORVANE_MSG_ARTWORK:
        return sizeof(OrvaneArtworkRecord);
    case ORVANE_MSG_PULSE:
        return sizeof(OrvanePulseRecord);
    case ORVANE_MSG_PLAY:
        return sizeof(OrvanePlayRecord);
    default:
        return 0;
    }
}

// What only counts is heard of in the log at its end alone.
void LogCounts(const void* refcon) {
    const CountsRecord counts = CountsSoFar();
    WriteCallLine({ ORVANE_TEST_MODE, CallKind::Handler, ORVANE_MSG_DEACTIVATE, refcon, 0, nullptr, 0,
                    &counts, sizeof(counts) });
}

void LogHandlerCall(std::uint32_t message, const void* record, const void* refcon) {
    CallLine line = { ORVANE_TEST_MODE, CallKind::Handler,   message, refcon, 0,
                      record,           RecordSize(message), nullptr, 0 };
    if (record && message == ORVANE_MSG_ARTWORK) {
        line.data = static_cast<const OrvaneArtworkRecord*>(record)->data;
        line.dataSize = static_cast<const OrvaneArtworkRecord*>(record)->size;
    } else if (record && message == ORVANE_MSG_PULSE) {
        line.data = static_cast<const OrvanePulseRecord*>(record)->renderData;
        line.dataSize = sizeof(OrvaneRenderData);
    } else if (record && message == ORVANE_MSG_PLAY) {
        line.data = static_cast<const OrvanePlayRecord*>(record)->track;
        line.dataSize = sizeof(OrvaneTrack);
    }
    WriteCallLine(line);
}

std::int32_t Activate(const OrvaneActivateRecord& record) {
    if (Has(kCallsHost)) CallEverything(sHost);
    if (Has(kOpensWindows)) OpenWindows(record.window);
    return kMode.activateStatus;
}

std::int32_t Deactivate() {
    if (Has(kCallsHost)) {
        CallEverything(sHost);
        CallEverythingLate(sHost);
    }
    if (Has(kOpensWindows)) CloseWindowsLate();
    return ORVANE_OK;
}

std::int32_t Handle(std::uint32_t message, void* record, void* refcon) {
    if (Has(kCounts)) {
        CountMessage(message, record);
        if (message == ORVANE_MSG_DEACTIVATE) LogCounts(refcon);
    } else {
        LogHandlerCall(message, record, refcon);
    }
    if (Has(kChangesState)) ChangeState();
    switch (message) {
    case ORVANE_MSG_INIT:
        static_cast<OrvaneHandlerRecord*>(record)->refcon = reinterpret_cast<void*>(kHandlerRefcon);
        return kMode.initStatus;
    case ORVANE_MSG_ACTIVATE:
        return Activate(*static_cast<const OrvaneActivateRecord*>(record));
    case ORVANE_MSG_DEACTIVATE:
        return Deactivate();
    case ORVANE_MSG_PULSE: {
        auto* pulse = static_cast<OrvanePulseRecord*>(record);
        pulse->result = kPulseResultBase + pulse->stamp;
        return ORVANE_OK;
    }
    default:
        return ORVANE_OK;
    }
}

std::int32_t Register(std::string_view suffix) {
    OrvaneRegisterRecord record = {};
    record.majorVersion = kMode.major;
    record.minorVersion = kMode.minor;
    record.unread = kRegisteredUnread;
    OrvaneString name = {};
    AssignName(name, suffix);
    record.name = name;
    record.options = kRegisteredOtherOptions | kMode.options;
    record.word0 = kRegisteredWord0;
    std::copy(std::begin(kRegisteredBytes), std::end(kRegisteredBytes), record.bytes);
    record.handler = kMode.hasHandler ? &Handle : nullptr;
    record.refcon = reinterpret_cast<void*>(kRegisterRefcon);
    record.rate = kRegisteredRate;
    record.word1 = kRegisteredWord1;
    record.word2 = kRegisteredWord2;
    record.limit1 = kRegisteredLimits[0];
    record.limit2 = kRegisteredLimits[1];
    record.limit3 = kRegisteredLimits[2];
    record.limit4 = kRegisteredLimits[3];
    return sHost.Call(ORVANE_HOST_REGISTER, &record);
}

[[maybe_unused]] std::int32_t Enter() {
    if (Has(kLoadsSlowly)) SleepAWhile();
    if (Has(kChangesState)) ChangeState();
    std::int32_t status = ORVANE_OK;
    switch (kMode.entry) {
    case Entry::DoesNot:
        break;
    case Entry::Registers:
        status = Register("");
        break;
    case Entry::RegistersTwice:
        Register("");
        status = Register(", again");
        break;
    case Entry::RegistersNull:
        status = sHost.Call(ORVANE_HOST_REGISTER, nullptr);
        break;
    }
    if (status != ORVANE_OK && Has(kCallsAfterFailure)) {
        CallEverything(sHost);
        CallEverythingLate(sHost);
    }
    if (kMode.entryStatus != ORVANE_OK) return kMode.entryStatus;
    return kMode.swallows ? ORVANE_OK : status;
}

} // namespace
} // namespace orvane::tests

using namespace orvane::tests;

#ifdef ORVANE_TEST_NO_ENTRY
extern "C" __declspec(dllexport) int32_t OtherMain(uint32_t, void*, void*) {
    return ORVANE_OK;
}
#else
int32_t OrvanePluginMain(uint32_t message, OrvaneEntryRecord* record, void* unused) {
    WriteCallLine({ ORVANE_TEST_MODE, CallKind::Entry, message, unused, 0, record,
                    record ? sizeof(*record) : 0, nullptr, 0 });
    if (message != ORVANE_MSG_INIT || !record) return ORVANE_BAD_PARAMETER;
    sHost.proc = record->hostProc;
    sHost.cookie = record->hostCookie;
    return Enter();
}
#endif

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH && Has(kLoadsSlowly)) SleepAWhile();
    return TRUE;
}
