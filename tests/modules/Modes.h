// The test modules: what each of them does differently from a good one.
#pragma once

#include "ModuleFigures.h"

#include <string_view>

namespace orvane::tests {

enum class Entry { Registers, DoesNot, RegistersTwice, RegistersNull };
enum class Name { OfTheMode, Claims300Units, Empty, LoneSurrogates };

// Beyond what it registers and answers; bits.
enum Habit : unsigned {
    kNone = 0,
    kCallsHost = 1,         // every host message, on this and another thread, late after 'Vdct' too
    kCallsAfterFailure = 2, // the same once its registration has failed
    kChangesState = 4,      // floating-point control, current folder and locale, in every call
    kOpensWindows = 8,      // child windows in the proxy, destroyed some time after 'Vdct'
    kLoadsSlowly = 16,      // some 300 ms
    kCounts = 32,           // counts its messages instead of logging them (Counts.h)
};

struct Mode {
    std::string_view name;
    Entry entry = Entry::Registers;
    std::int32_t entryStatus = 0; // returned in place of a good result, unless 0
    bool swallows = false;        // returns 0 although registration failed
    std::uint32_t major = ORVANE_MAJOR_VERSION;
    std::uint32_t minor = ORVANE_MINOR_VERSION;
    Name registeredName = Name::OfTheMode;
    std::uint32_t options = 0;
    bool hasHandler = true;
    std::int32_t initStatus = 0;
    std::int32_t activateStatus = 0;
    unsigned habits = kNone;
};

constexpr Mode kModes[] = {
    { .name = "recorder", .options = ORVANE_OPTION_IDLE },
    { .name = "counter", .options = ORVANE_OPTION_IDLE, .habits = kCounts },
    // The entry. "no-entry" exports something else and is made without OrvanePluginMain.
    { .name = "no-entry" },
    { .name = "entry-fails", .entry = Entry::DoesNot, .entryStatus = kEntryFailure },
    { .name = "entry-fails-registered", .entryStatus = kEntryFailure },
    { .name = "never-registers", .entry = Entry::DoesNot },
    { .name = "registers-twice", .entry = Entry::RegistersTwice },
    { .name = "null-record", .entry = Entry::RegistersNull },
    { .name = "null-record-swallowed", .entry = Entry::RegistersNull, .swallows = true },
    { .name = "loads-slowly", .habits = kLoadsSlowly },
    // The registration.
    { .name = "major-9", .major = 9 },
    { .name = "major-9-swallowed", .swallows = true, .major = 9 },
    { .name = "minor-8", .minor = 8 },
    { .name = "name-300", .registeredName = Name::Claims300Units },
    { .name = "name-0", .registeredName = Name::Empty },
    { .name = "name-surrogates", .registeredName = Name::LoneSurrogates },
    { .name = "null-handler", .hasHandler = false },
    { .name = "idle-on", .options = ORVANE_OPTION_IDLE },
    { .name = "idle-off", .options = 0 },
    // The handler.
    { .name = "init-fails", .initStatus = kInitFailure },
    { .name = "init-fails-swallowed", .swallows = true, .initStatus = kInitFailure },
    { .name = "activate-unimplemented", .activateStatus = ORVANE_UNIMPLEMENTED },
    { .name = "activate-fails", .activateStatus = kActivateFailure },
    { .name = "calls-host", .habits = kCallsHost },
    { .name = "calls-after-failure", .major = 9, .habits = kCallsAfterFailure },
    { .name = "changes-state", .habits = kChangesState },
    { .name = "opens-windows", .habits = kOpensWindows },
};

// A name that is no mode's doesn't compile: ModeOf(...) must be a constant.
consteval Mode ModeOf(std::string_view name) {
    for (const Mode& mode : kModes)
        if (mode.name == name) return mode;
    throw "no mode of that name";
}

} // namespace orvane::tests
