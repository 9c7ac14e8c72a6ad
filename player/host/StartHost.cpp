#include "player/host/StartHost.h"

namespace orvane::player {

namespace {

// What a process may be started with, made out of `source`; empty if the system refuses.
UniqueHandle PrimaryToken(HANDLE source) {
    HANDLE primary = nullptr;
    if (!DuplicateTokenEx(source, MAXIMUM_ALLOWED, nullptr, SecurityImpersonation, TokenPrimary, &primary))
        return {};
    return Adopt(primary);
}

UniqueHandle TokenOf(HANDLE process) {
    HANDLE token = nullptr;
    return OpenProcessToken(process, TOKEN_QUERY | TOKEN_DUPLICATE, &token) ? Adopt(token) : nullptr;
}

bool IsFullyElevated(HANDLE token) {
    TOKEN_ELEVATION_TYPE type = {};
    DWORD length = 0;
    const BOOL read = GetTokenInformation(token, TokenElevationType, &type, sizeof(type), &length);
    return read && type == TokenElevationTypeFull;
}

UniqueHandle LinkedToken(HANDLE token) {
    TOKEN_LINKED_TOKEN linked = {};
    DWORD length = 0;
    const BOOL read = GetTokenInformation(token, TokenLinkedToken, &linked, sizeof(linked), &length);
    return read ? Adopt(linked.LinkedToken) : nullptr;
}

// That of the desktop, which runs as the user does without being asked for more.
UniqueHandle DesktopToken() {
    DWORD id = 0;
    if (!GetWindowThreadProcessId(GetShellWindow(), &id)) return {};
    const UniqueHandle process = Adopt(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    return process ? TokenOf(process.get()) : nullptr;
}

// Empty if this process isn't fully elevated, or there is no other token to be had. Most systems give the linked
// token for looking only; then the desktop's does.
UniqueHandle LimitedToken() {
    const UniqueHandle own = TokenOf(GetCurrentProcess());
    if (!own || !IsFullyElevated(own.get())) return {};
    if (const UniqueHandle linked = LinkedToken(own.get()))
        if (UniqueHandle primary = PrimaryToken(linked.get())) return primary;
    const UniqueHandle desktop = DesktopToken();
    if (!desktop || IsFullyElevated(desktop.get())) return {};
    return PrimaryToken(desktop.get());
}

// Which of the ways works depends on the rights that the system gives an elevated user.
bool Create(HANDLE token, const std::wstring& program, STARTUPINFOW& startup, PROCESS_INFORMATION& process) {
    std::wstring commandLine = L"\"" + program + L"\"";
    if (CreateProcessAsUserW(token, program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                             DETACHED_PROCESS, nullptr, nullptr, &startup, &process))
        return true;
    return token && CreateProcessWithTokenW(token, 0, program.c_str(), commandLine.data(), DETACHED_PROCESS,
                                            nullptr, nullptr, &startup, &process);
}

} // namespace

StartedProcess StartLimited(const std::wstring& program) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES; // none: its lines aren't ours
    PROCESS_INFORMATION process = {};
    const UniqueHandle limited = LimitedToken();
    const bool started = (limited && Create(limited.get(), program, startup, process)) ||
                         Create(nullptr, program, startup, process);
    if (!started) return { nullptr, 0, 0, GetLastError() };
    CloseHandle(process.hThread);
    return { Adopt(process.hProcess), process.dwProcessId, process.dwThreadId };
}

} // namespace orvane::player
