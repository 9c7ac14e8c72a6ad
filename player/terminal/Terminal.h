// The console that the player was started from: keys, lines and Ctrl+C.
#pragma once

#include "player/client/UniqueHandle.h"
#include "player/session/Surroundings.h"

#include <deque>
#include <string>

namespace orvane::player {

// One at a time in a process. Keys come from a console, or as a terminal's bytes where the standard input is a pipe;
// from anything else none. What it says is UTF-8. A progress line is shown on a console only.
class Terminal final : public IConsole {
public:
    Terminal();
    ~Terminal() override;

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    [[nodiscard]] std::optional<ConsoleKey> NextKey() override;
    [[nodiscard]] bool EndIsWanted() const override;
    void Say(std::string_view line) override;
    void ShowProgress(std::string_view line) override;
    void Complain(std::string_view line) override;

private:
    void TakeConsoleKeys();
    void TakePipedKeys();
    void WriteLine(HANDLE to, std::string_view line);
    void EraseProgress();

    const HANDLE mInput;
    const HANDLE mOutput;
    const HANDLE mErrors;
    DWORD mInputMode = 0; // of the console, as it was
    bool mInputIsConsole = false;
    bool mOutputIsConsole = false;
    unsigned mCodePage = 0;         // of the console's output, as it was
    std::size_t mProgressWidth = 0; // characters that stand in the progress line
    std::deque<ConsoleKey> mKeys;
};

} // namespace orvane::player
