// A server on its real service thread and its real pipe, for clients that behave and clients that don't.
#pragma once

#include "shell/server/PipeServer.h"
#include "support/LogCapture.h"
#include "support/PipeClient.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>

namespace orvane::tests {

// The size of a request and the sum of its bytes, which any lost or changed byte would change.
[[nodiscard]] std::string Digest(const std::uint8_t* bytes, std::size_t count);

// Counts what is asked of it. Three requests have answers of their own: 'PM2C' a digest of the request, 'STOP'
// a reply as long as one can be, 'IDLE' a plain one that waits until the test opens the gate.
class TestServer : public shell::PipeServer {
public:
    using PipeServer::PipeServer;

    ~TestServer() override { CloseHandle(mGate); }

    bool Initialize(std::uint8_t messageMode) override;
    bool PostMessageToConsole() override;
    bool StopVisualizer() override;
    bool IdleVisualizer() override;

    const HANDLE mGate = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::atomic<int> mInitializations = 0;
    std::atomic<int> mStops = 0;
    std::atomic<int> mIdles = 0;
    std::atomic<DWORD> mInitializeThread = 0; // of the last Initialize
};

class RealPipe : public testing::Test {
protected:
    // A client that comes, or comes and goes, in the moment between the making of a pipe and the wait for a
    // client on it.
    enum class Early { kNobody, kStays, kLeaves };

    RealPipe();

    void Start(Early early = Early::kNobody);
    void TearDown() override; // the service thread must end

    // From now on; the next pipe has such a client.
    void SetEarly(Early early);
    [[nodiscard]] PipeClient* EarlyClient() const;

    // Waits until the server has seen the last client off `times` times and is ready for the next.
    [[nodiscard]] bool WaitForNewPipe(int times = 1);

    // How many writes went pending.
    [[nodiscard]] int PendingWrites() const;
    [[nodiscard]] DWORD ServiceThread() const;

    const LogCapture mLog;
    shell::PipeCalls mCalls; // the platform's, watched
    std::unique_ptr<TestServer> mServer;
    HANDLE mThread = nullptr;
};

inline constexpr char kPendingLine[] = "ConnectNamedPipe [ERROR_IO_PENDING].\n";
inline constexpr char kBrokenLine[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n";
inline constexpr char kReadLine[] =
    "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n";

} // namespace orvane::tests
