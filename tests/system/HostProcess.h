// The real host, started by a test.
#pragma once

#include "player/client/PipeClient.h"
#include "system/ChildProcess.h"

#include <optional>
#include <string>

namespace orvane::tests {

// The line that ends each of the host's preparations for a client, if none is there yet.
constexpr std::string_view kWaitingForClient = "ConnectNamedPipe [ERROR_IO_PENDING].\n";

// Where another host than the one beside the test program is wanted, or another surrounding.
struct HostSetting {
    std::wstring program = {}; // full path; empty: orvane-visualizer.exe beside the test program
    bool limited = false;      // with a limited token: only then it looks for modules
    std::vector<std::pair<std::wstring, std::wstring>> variables = {}; // of its environment: name, value
};

// Ends with the object, also when a test fails. One at a time on a machine: the pipe has one name.
class HostProcess : public ChildProcess {
public:
    HostProcess() = default;

    explicit HostProcess(HostSetting setting)
        : mSetting(std::move(setting)) {}

    // Starts the host and waits until it waits for its first client. False if it doesn't come that far.
    [[nodiscard]] bool Serve(const std::wstring& arguments = L"");

    // Starts the host and doesn't wait.
    [[nodiscard]] bool Launch(const std::wstring& arguments = L"");

    // Posts WM_QUIT to the main thread and waits for the end; the exit code. Nothing if it doesn't end.
    [[nodiscard]] std::optional<int> Quit(int exitCode = 0);

    // What it has in use.
    [[nodiscard]] std::size_t WorkingSetBytes() const;
    [[nodiscard]] std::size_t OpenHandles() const;

private:
    const HostSetting mSetting;
};

// A client that is connected to the host; not connected, if the host can't be reached.
[[nodiscard]] player::PipeClient ConnectToHost();

} // namespace orvane::tests
