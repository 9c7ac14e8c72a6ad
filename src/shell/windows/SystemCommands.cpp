#include "shell/windows/SystemCommands.h"

#include "platform/LogLine.h"

#include <algorithm>
#include <iterator>

namespace orvane::shell {

namespace {

constexpr WPARAM kCommandMask = 0xFFF0;
constexpr LPARAM kEnter = 13;

struct CommandRow {
    WPARAM command;
    const char* name;
};

constexpr CommandRow kCommands[] = {
    { 0xF000, "SC_SIZE" },      { 0xF010, "SC_MOVE" },         { 0xF020, "SC_MINIMIZE" },
    { 0xF030, "SC_MAXIMIZE" },  { 0xF040, "SC_NEXTWINDOW" },   { 0xF050, "SC_PREVWINDOW" },
    { 0xF060, "SC_CLOSE" },     { 0xF070, "SC_VSCROLL" },      { 0xF080, "SC_HSCROLL" },
    { 0xF090, "SC_MOUSEMENU" }, { 0xF100, "SC_KEYMENU" },      { 0xF120, "SC_RESTORE" },
    { 0xF130, "SC_TASKLIST" },  { 0xF140, "SC_SCREENSAVE" },   { 0xF150, "SC_HOTKEY" },
    { 0xF160, "SC_DEFAULT" },   { 0xF170, "SC_MONITORPOWER" }, { 0xF180, "SC_CONTEXTHELP" },
};

} // namespace

void LogSystemCommand(const char* source, WPARAM command) {
    const auto* row =
        std::find_if(std::begin(kCommands), std::end(kCommands), [&](const CommandRow& candidate) {
            return candidate.command == (command & kCommandMask);
        });
    platform::LogFormat(platform::LineBuffer::k512, "%s:SYSTEMCOMMAND:%s\n", source,
                        row == std::end(kCommands) ? "" : row->name);
}

bool IsKeyMenu(WPARAM command) {
    return (command & kCommandMask) == SC_KEYMENU;
}

bool IsAltEnter(LPARAM lParam) {
    return lParam == kEnter;
}

} // namespace orvane::shell
