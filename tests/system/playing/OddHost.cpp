// Stands in for a host that isn't as it should be: makes no pipe. The environment variable ORVANE_ODD_HOST is the code
// with which it ends at once; without it the program signals the event "OrvaneOddHost", if there is one, and stays
// until it is ended.
#include <windows.h>

#include <cstdlib>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    if (const wchar_t* code = _wgetenv(L"ORVANE_ODD_HOST")) return _wtoi(code);
    if (const HANDLE started = OpenEventW(EVENT_MODIFY_STATE, FALSE, L"OrvaneOddHost")) SetEvent(started);
    Sleep(INFINITE);
    return 0;
}
