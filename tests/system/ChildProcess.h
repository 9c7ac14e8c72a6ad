// A process that a test starts, with what it writes gathered and its end in the test's hand.
#pragma once

#include "player/client/UniqueHandle.h"

#include <windows.h>

#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace orvane::tests {

// How long a test waits for what must come. No test depends on how soon it does.
constexpr std::chrono::milliseconds kPatience{ 60000 };

// How a process is started where it isn't as its parent.
struct StartOptions {
    DWORD flags = 0;      // of process creation
    bool limited = false; // with the limited token of LimitedToken.h
    std::vector<std::pair<std::wstring, std::wstring>> variables = {}; // of its environment: name, value
    bool input = false; // its standard input is what Type() is given; else there is none
};

class ChildProcess {
public:
    ChildProcess() = default;

    ~ChildProcess() { Kill(); }

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts `program` with its standard output and standard error going into Text(). Once for each object.
    // If the system refuses, Text() is its error.
    [[nodiscard]] bool Start(const std::wstring& program, const std::wstring& arguments,
                             const StartOptions& options = {});

    // Puts text into its standard input, which must have been asked for. False if it has gone.
    [[nodiscard]] bool Type(std::string_view text) const;

    // All that it has written so far.
    [[nodiscard]] std::string Text() const;

    // The same without the first `at` bytes, for those who follow what it writes.
    [[nodiscard]] std::string TextFrom(std::size_t at) const;

    // Waits until `part` has been written `times` times in all. False if it is not by then, or the process
    // has ended without.
    [[nodiscard]] bool WaitForText(std::string_view part, int times = 1) const;

    // Waits for the end; the exit code, once everything written is in Text(). Nothing if it doesn't end.
    [[nodiscard]] std::optional<int> WaitForExit(std::chrono::milliseconds timeout = kPatience);

    [[nodiscard]] bool IsRunning() const;

    // Ends the process from outside, if it still runs.
    void Kill();

    [[nodiscard]] HANDLE Process() const { return mProcess.get(); }

    [[nodiscard]] DWORD Id() const { return mId; }

    [[nodiscard]] DWORD MainThreadId() const { return mMainThreadId; }

private:
    void GatherText();
    bool TakeWhatIsThere();

    player::UniqueHandle mProcess;
    player::UniqueHandle mOutput; // our end of the pipe that it writes into
    player::UniqueHandle mInput;  // our end of the one that it reads from, if any
    DWORD mId = 0;
    DWORD mMainThreadId = 0;
    mutable std::mutex mTextMutex;
    std::string mText;
    std::thread mGatherer;
};

// The full path of a program that stands in the test program's own folder.
[[nodiscard]] std::wstring ProgramBeside(std::wstring_view name);

// The full path of the test program itself.
[[nodiscard]] std::wstring OwnProgram();

// How often `part` occurs in `text`.
[[nodiscard]] int Count(std::string_view text, std::string_view part);

// Asks again and again until `holds` does. False if it never does within kPatience.
template <typename Condition>
[[nodiscard]] bool WaitUntil(Condition holds) {
    constexpr DWORD kPollMilliseconds = 2;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        Sleep(kPollMilliseconds);
    }
    return true;
}

} // namespace orvane::tests
