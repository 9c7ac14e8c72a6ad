// The player's end of the pipe, as plain as a player may write it: messages out, messages in.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvane::tests {

constexpr DWORD kPatienceMilliseconds = 30'000; // far more than any machine needs; a test then fails

// Asks again and again until `condition` holds; false if it didn't within kPatienceMilliseconds.
[[nodiscard]] bool Eventually(const std::function<bool()>& condition);

class PipeClient {
public:
    // Opens the pipe, and waits for it if it isn't there or is taken.
    PipeClient();

    ~PipeClient() { Close(); }

    PipeClient(const PipeClient&) = delete;
    PipeClient& operator=(const PipeClient&) = delete;

    [[nodiscard]] bool IsOpen() const { return mPipe != INVALID_HANDLE_VALUE; }

    // Sends one message. Blocks while the pipe is full.
    bool Send(std::string_view request);

    // The next reply, a whole message; nothing if none comes or the server closes the pipe.
    [[nodiscard]] std::optional<std::string> Receive();

    // Whether a reply lies there by now.
    [[nodiscard]] bool HasReply() const;

    // Sends, then receives.
    [[nodiscard]] std::optional<std::string> Ask(std::string_view request);

    void Close();

private:
    HANDLE mPipe = INVALID_HANDLE_VALUE;
};

} // namespace orvane::tests
