// Holds a conversation with the host from a script.
#pragma once

#include "player/console/Connection.h"
#include "player/console/Failures.h"
#include "player/console/RequestLine.h"

#include <istream>
#include <ostream>

namespace orvane::player {

// Sends one request over an open connection and prints it and its reply, or what went wrong.
ExitCode RunRequest(const Request& request, IConnection& connection, std::ostream& out, std::ostream& errors);

// Plays a script over an open connection. Its lines are requests (RequestLine.h), "reconnect", or empty; what
// follows a "#" that begins a line or stands behind a blank, outside quotes, is a comment. A request without a
// reply doesn't end the conversation; a line that can't be understood, a broken connection and a host that
// can't be reached do.
ExitCode RunConversation(std::istream& script, IConnection& connection, std::ostream& out,
                         std::ostream& errors);

} // namespace orvane::player
