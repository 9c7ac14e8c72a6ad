// Feeds a server with requests as if they came through its pipe, and gathers the replies: no pipe, no thread.
#pragma once

#include "shell/server/PipeServer.h"
#include "support/Wire.h"

#include <string>
#include <vector>

namespace orvane::tests {

// The platform calls that a server for ServeRequests is made with.
[[nodiscard]] const shell::PipeCalls& FedPipeCalls();

// Initialises `server` if it wasn't yet, lets its service loop take `requests` one after the other, and returns
// a reply for each write. Afterwards the client is gone and the pipe can't be made again, so the loop has ended.
std::vector<std::string> ServeRequests(shell::PipeServer& server, const std::vector<Bytes>& requests);

} // namespace orvane::tests
