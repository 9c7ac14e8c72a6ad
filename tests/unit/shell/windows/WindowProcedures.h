// A window server with its real window procedures, for the tests of these.
#pragma once

#include "shell/windows/WindowProcedures.h"
#include "support/windows/WindowServer.h"

namespace orvane::tests {

class WindowProcedures : public WindowServer {
protected:
    WindowProcedures()
        : WindowServer(&shell::TopLevelWindowProcedure, &shell::ProxyWindowProcedure) {}

    void SetUp() override {
        MakeWindows();
        MakeCurrent();
        Log().calls.clear();
    }

    // What a message to a window of the server leaves in the console, and its result in `result`.
    std::string Told(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        console.Clear();
        result = SendMessageW(window, message, wParam, lParam);
        return console.Text();
    }

    // Destroys the windows, so that a window made afterwards with no server finds none.
    void LoseServer() {
        DestroyWindow(Window());
        mTopLevel = CreateWindowW(L"ORVANE OOPWIND", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        mProxy = CreateWindowW(L"ORVANE PROXY", L"", WS_CHILD, 0, 0, 10, 10, mTopLevel, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
        console.Clear();
    }

    ~WindowProcedures() override {
        if (mTopLevel) DestroyWindow(mTopLevel);
    }

    LRESULT result = -1;
    HWND mTopLevel = nullptr, mProxy = nullptr; // windows without a server, after LoseServer
};

// The reply to a pulse that brings a key event.
[[nodiscard]] inline std::string KeyReply(std::uint32_t event, std::uint32_t code, std::uint32_t param) {
    return AsText(WireBuilder().U32(0).U32(event).U32(code).U32(param).Get());
}

inline constexpr std::uint32_t kCharacterEvent = 0x4B455943;   // bytes 'C', 'Y', 'E', 'K'
inline constexpr std::uint32_t kExtendedKeyEvent = 0x4B455958; // bytes 'X', 'Y', 'E', 'K'
inline const std::string kNothingToTell(4, '\0');
inline const std::string kCloseReply = kNothingToTell + "WSLC";

} // namespace orvane::tests
