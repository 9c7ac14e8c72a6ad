#include "player/terminal/Terminal.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace orvane::player {

namespace {

// The console closes as soon as its handler returns: it waits for the end of the session instead.
constexpr DWORD kClosingMilliseconds = 4000;
constexpr DWORD kClosingStep = 20;

std::atomic<bool> sEndIsWanted = false;
std::atomic<bool> sEnded = false;

BOOL WINAPI HandleControl(DWORD kind) {
    sEndIsWanted = true;
    const bool closing = kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT;
    for (DWORD waited = 0; closing && !sEnded && waited < kClosingMilliseconds; waited += kClosingStep)
        Sleep(kClosingStep);
    return TRUE;
}

bool IsConsole(HANDLE handle, DWORD* mode) {
    return GetConsoleMode(handle, mode) != FALSE;
}

ConsoleKey KeyOfEvent(const KEY_EVENT_RECORD& event) {
    if (event.wVirtualKeyCode == VK_LEFT) return kLeftKey;
    if (event.wVirtualKeyCode == VK_RIGHT) return kRightKey;
    return event.uChar.UnicodeChar; // 0 for keys that type nothing
}

void Write(HANDLE to, std::string_view text) {
    DWORD written = 0;
    WriteFile(to, text.data(), DWORD(text.size()), &written, nullptr);
}

} // namespace

Terminal::Terminal()
    : mInput(GetStdHandle(STD_INPUT_HANDLE))
    , mOutput(GetStdHandle(STD_OUTPUT_HANDLE))
    , mErrors(GetStdHandle(STD_ERROR_HANDLE)) {
    sEndIsWanted = sEnded = false;
    SetConsoleCtrlHandler(nullptr, FALSE); // a parent may have switched Ctrl+C off for its children
    SetConsoleCtrlHandler(HandleControl, TRUE);
    DWORD outputMode = 0;
    mInputIsConsole = IsConsole(mInput, &mInputMode);
    mOutputIsConsole = IsConsole(mOutput, &outputMode);
    mCodePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    // Keys at once and unseen; Ctrl+C still ends the program.
    constexpr DWORD kUnwanted = ENABLE_LINE_INPUT | ENABLE_ECHO_INPUT;
    if (mInputIsConsole) SetConsoleMode(mInput, mInputMode & ~kUnwanted);
}

Terminal::~Terminal() {
    EraseProgress();
    if (mInputIsConsole) SetConsoleMode(mInput, mInputMode);
    if (mCodePage != 0) SetConsoleOutputCP(mCodePage);
    SetConsoleCtrlHandler(HandleControl, FALSE);
    sEnded = true;
}

bool Terminal::EndIsWanted() const {
    return sEndIsWanted;
}

std::optional<ConsoleKey> Terminal::NextKey() {
    if (mKeys.empty()) {
        if (mInputIsConsole)
            TakeConsoleKeys();
        else
            TakePipedKeys();
    }
    if (mKeys.empty()) return std::nullopt;
    const ConsoleKey key = mKeys.front();
    mKeys.pop_front();
    return key;
}

void Terminal::TakeConsoleKeys() {
    DWORD waiting = 0;
    while (GetNumberOfConsoleInputEvents(mInput, &waiting) && waiting != 0) {
        INPUT_RECORD record = {};
        DWORD taken = 0;
        if (!ReadConsoleInputW(mInput, &record, 1, &taken) || taken == 0) return;
        if (record.EventType != KEY_EVENT || !record.Event.KeyEvent.bKeyDown) continue;
        if (const ConsoleKey key = KeyOfEvent(record.Event.KeyEvent)) mKeys.push_back(key);
    }
}

void Terminal::TakePipedKeys() {
    std::array<char, 256> bytes;
    DWORD waiting = 0;
    // Anything but a pipe doesn't say what is waiting.
    if (!PeekNamedPipe(mInput, nullptr, 0, nullptr, &waiting, nullptr) || waiting == 0) return;
    DWORD taken = 0;
    if (!ReadFile(mInput, bytes.data(), std::min<DWORD>(waiting, DWORD(bytes.size())), &taken, nullptr))
        return;
    for (const ConsoleKey key : KeysOfTerminal({ bytes.data(), taken })) mKeys.push_back(key);
}

void Terminal::EraseProgress() {
    if (mProgressWidth == 0) return;
    Write(mOutput, std::string("\r").append(mProgressWidth, ' ').append("\r"));
    mProgressWidth = 0;
}

void Terminal::WriteLine(HANDLE to, std::string_view line) {
    EraseProgress();
    Write(to, std::string(line).append("\r\n"));
}

void Terminal::Say(std::string_view line) {
    WriteLine(mOutput, line);
}

void Terminal::Complain(std::string_view line) {
    WriteLine(mErrors, line);
}

void Terminal::ShowProgress(std::string_view line) {
    CONSOLE_SCREEN_BUFFER_INFO screen = {};
    if (!mOutputIsConsole || !GetConsoleScreenBufferInfo(mOutput, &screen)) return;
    // One row, and its last column is left free: a full row would begin the next.
    std::u16string text = platform::Utf16FromUtf8(line).value_or(u"");
    const auto columns = std::size_t(std::max<int>(screen.dwSize.X - 1, 1));
    text.resize(std::min(text.size(), columns));
    const std::size_t width = text.size();
    text.resize(std::max(width, std::min(mProgressWidth, columns)), u' ');
    Write(mOutput, std::string("\r").append(platform::Utf8FromUtf16(text)));
    mProgressWidth = width;
}

} // namespace orvane::player
