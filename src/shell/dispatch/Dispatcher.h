// From a request's tag to the operation that answers it.
#pragma once

#include "shell/dispatch/RequestOperations.h"

namespace orvane::shell {

// Handles the request that `exchange` holds and returns what the operation's WriteReply returned. An unknown
// tag gets "Not handled"; a request too short for a tag gets its length told.
bool DispatchRequest(RequestOperations& server, IExchange& exchange);

} // namespace orvane::shell
