// The real host: a process with a pipe and a window.
#pragma once

#include "player/client/PipeClient.h"
#include "player/host/HostWindow.h"
#include "player/session/Host.h"

#include <string>

namespace orvane::player {

class PipedHost final : public IHost {
public:
    // `program` is started where no host answers; the full path of the host's program.
    explicit PipedHost(std::wstring program)
        : mProgram(std::move(program)) {}

    ~PipedHost() override { Close(); }

    PipedHost(const PipedHost&) = delete;
    PipedHost& operator=(const PipedHost&) = delete;

    [[nodiscard]] HostOpening Open() override;
    [[nodiscard]] Outcome Send(std::span<const std::uint8_t> request) override;
    [[nodiscard]] Reply Receive(std::chrono::milliseconds timeout) override;
    void LetComeForward() override;
    [[nodiscard]] bool IsGone() override;
    [[nodiscard]] bool IsFullScreen() override;
    [[nodiscard]] bool MoveToMonitor(int number) override;
    void Close() override;
    void Discard() override;

private:
    [[nodiscard]] HostOpening Adopt(HostStart start);
    [[nodiscard]] HostOpening Start();
    [[nodiscard]] HostOpening ConnectToStarted();
    void EndProcess();
    void Forget();

    const std::wstring mProgram;
    PipeClient mClient;
    HostWindow mWindow;
    UniqueHandle mProcess; // empty if a host that was found doesn't let itself be watched
    DWORD mProcessId = 0;
    DWORD mMainThreadId = 0; // of a host started here; else 0
    bool mStartedHere = false;
};

} // namespace orvane::player
