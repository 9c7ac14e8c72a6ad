// What a host process has in use, as the system tells it.
#pragma once

#include "system/HostProcess.h"

#include <cstddef>
#include <string>

namespace orvane::tests {

// Where the system keeps a folder for each of its processes, it is looked up there once, by an argument that no
// other process has; elsewhere the process itself is asked. Observes `process`, which must be running.
class HostUsage {
public:
    HostUsage(HANDLE process, const std::string& uniqueArgument);

    HostUsage(const HostProcess& host, const std::string& uniqueArgument)
        : HostUsage(host.Process(), uniqueArgument) {}

    // Bytes in memory now, and the most that there ever were. 0 if it can't be told.
    [[nodiscard]] std::size_t MemoryBytes() const;
    [[nodiscard]] std::size_t MostMemoryBytes() const;

    // Open files, pipes and sockets; where they aren't to be had, open handles.
    [[nodiscard]] std::size_t Descriptors() const;

    // Time of the processor, in seconds; of all threads, in the system as well.
    [[nodiscard]] double ProcessorSeconds() const;

    // For how long its threads, each counted by itself, were ready to run and had no processor. 0 if it can't be
    // told. Threads that have ended are not counted.
    [[nodiscard]] double StarvedSeconds() const;

private:
    [[nodiscard]] std::size_t StatusBytes(const char* field) const;

    const HANDLE mProcess;
    std::wstring mFolder; // empty: there is none
};

} // namespace orvane::tests
