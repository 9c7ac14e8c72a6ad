#include "Habits.h"

#include "LogWriter.h"
#include "ModuleFigures.h"

#include <clocale>
#include <windows.h>
#include <xmmintrin.h>

namespace orvane::tests {

namespace {

constexpr DWORD kLateCallDelay = 100;  // ms
constexpr UINT kLateWindowDelay = 500; // ms
constexpr DWORD kSlowStep = 150;       // ms
constexpr unsigned kFlushToZero = 0x8000;
constexpr unsigned short kX87Control = 0x087F; // all exceptions masked, 24 bits, rounding up

constexpr std::uint32_t kHostMessages[] = {
    ORVANE_HOST_REQUEST_ARTWORK,
    ORVANE_HOST_SET_FULLSCREEN_OPTIONS,
    ORVANE_HOST_SET_FULLSCREEN,
    kUnknownHostMessage,
};

HWND sWindows[2];

void CallEach(const Host& host) {
    for (const std::uint32_t message : kHostMessages) host.Call(message, nullptr);
}

DWORD WINAPI CallEachNow(void* host) {
    CallEach(*static_cast<const Host*>(host));
    return 0;
}

DWORD WINAPI CallEachLate(void* host) {
    Sleep(kLateCallDelay);
    CallEach(*static_cast<const Host*>(host));
    return 0;
}

void CALLBACK DestroyWindows(HWND window, UINT, UINT_PTR timer, DWORD) {
    KillTimer(window, timer);
    for (HWND& each : sWindows) {
        DestroyWindow(each);
        each = nullptr;
    }
}

} // namespace

std::int32_t Host::Call(std::uint32_t message, void* record) const {
    const std::int32_t status = proc(cookie, message, record);
    const std::size_t size = record ? sizeof(OrvaneRegisterRecord) : 0;
    WriteCallLine({ module, CallKind::Host, message, cookie, status, record, size, nullptr, 0 });
    return status;
}

void CallEverything(const Host& host) {
    CallEach(host);
    Host copy = host;
    if (const HANDLE thread = CreateThread(nullptr, 0, &CallEachNow, &copy, 0, nullptr)) {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
}

void CallEverythingLate(const Host& host) {
    static Host sHost; // outlives this call; the module is never unloaded
    sHost = host;
    if (const HANDLE thread = CreateThread(nullptr, 0, &CallEachLate, &sHost, 0, nullptr))
        CloseHandle(thread);
}

void ChangeState() {
    _mm_setcsr((_mm_getcsr() & ~unsigned(_MM_ROUND_MASK)) | _MM_ROUND_UP | kFlushToZero);
    const unsigned short control = kX87Control;
    __asm__ volatile("fldcw %0" : : "m"(control));
    wchar_t folder[MAX_PATH];
    if (GetWindowsDirectoryW(folder, MAX_PATH) != 0) SetCurrentDirectoryW(folder);
    std::setlocale(LC_ALL, "German");
}

void OpenWindows(void* parent) {
    const auto window = static_cast<HWND>(parent);
    constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
    sWindows[0] =
        CreateWindowExW(0, L"STATIC", L"Child", kChild, 10, 10, 80, 20, window, nullptr, nullptr, nullptr);
    sWindows[1] =
        CreateWindowExW(0, L"EDIT", L"Edit", kChild, 10, 40, 80, 20, window, nullptr, nullptr, nullptr);
}

void CloseWindowsLate() {
    if (sWindows[0]) SetTimer(sWindows[0], 1, kLateWindowDelay, &DestroyWindows);
}

void SleepAWhile() {
    Sleep(kSlowStep);
}

} // namespace orvane::tests
