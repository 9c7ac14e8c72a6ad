#include "system/HostProcess.h"

#include <psapi.h>

#include <vector>

namespace orvane::tests {

namespace {

// The system's table of all open handles. Asked for because the plain question for the number of a process's
// handles isn't answered on every system that the tests run on.
constexpr ULONG kExtendedHandleInformation = 64;
constexpr LONG kLengthMismatch = LONG(0xC0000004);
constexpr std::size_t kFirstTableBytes = 1 << 16;

struct HandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT traceIndex;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct HandleTable {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

using QuerySystemInformation = LONG(NTAPI*)(ULONG question, void* answer, ULONG bytes, ULONG* needed);

QuerySystemInformation FindQuery() {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation");
    return reinterpret_cast<QuerySystemInformation>(reinterpret_cast<void*>(found));
}

} // namespace

bool HostProcess::Launch(const std::wstring& arguments) {
    // Detached: a windowed program gets no console from whoever starts it, but not every system sees to that by
    // itself for the child of a console program.
    const std::wstring program =
        mSetting.program.empty() ? ProgramBeside(L"orvane-visualizer.exe") : mSetting.program;
    return Start(program, arguments, { DETACHED_PROCESS, mSetting.limited, mSetting.variables });
}

bool HostProcess::Serve(const std::wstring& arguments) {
    return Launch(arguments) && WaitForText(kWaitingForClient);
}

std::optional<int> HostProcess::Quit(int exitCode) {
    // A thread takes messages once it has a queue, which the host makes before it serves its first request.
    const bool posted =
        WaitUntil([&] { return PostThreadMessageW(MainThreadId(), WM_QUIT, WPARAM(exitCode), 0) != FALSE; });
    if (!posted) return std::nullopt;
    return WaitForExit();
}

std::size_t HostProcess::WorkingSetBytes() const {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    return GetProcessMemoryInfo(Process(), &counters, sizeof(counters)) ? counters.WorkingSetSize : 0;
}

std::size_t HostProcess::OpenHandles() const {
    const QuerySystemInformation query = FindQuery();
    std::vector<char> buffer(kFirstTableBytes);
    ULONG needed = 0;
    while (query(kExtendedHandleInformation, buffer.data(), ULONG(buffer.size()), &needed) == kLengthMismatch)
        buffer.resize(buffer.size() * 2);
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    std::size_t open = 0;
    for (ULONG_PTR i = 0; i < table->count; ++i) open += table->entries[i].processId == Id() ? 1 : 0;
    return open;
}

player::PipeClient ConnectToHost() {
    player::PipeClient client;
    (void)client.Connect(kPatience); // the caller sees whether it is connected
    return client;
}

} // namespace orvane::tests
