// A request as it is written on a command line or in a script:
//
//   TAG [--hex BYTES | --text TEXT | --file FILE] [--timeout SECONDS]
//
// The tag's bytes are sent as given, however many they are: PUL makes a request of three bytes, "" one of none.
// The payload follows them at once.
#pragma once

#include "player/protocol/Outcome.h"

#include <chrono>
#include <string>
#include <string_view>

namespace CLI { // NOLINT(readability-identifier-naming): the library's own name
class App;
}

namespace orvane::player {

// The arguments as they stand.
struct RequestArguments {
    std::string tag;
    std::string hex;
    std::string text;
    std::string file; // UTF-8
    double timeoutSeconds = 5.0;
};

// What they come to. With an `error`, nothing else counts.
struct Request {
    std::string tag;
    Bytes bytes; // the tag and the payload behind it
    std::chrono::milliseconds timeout = {};
    std::string error; // one line without its newline
};

// Makes `app` understand a request's arguments; parsing fills `arguments`, which has to live as long.
void AddRequestArguments(CLI::App& app, RequestArguments& arguments);

// Decodes the hexadecimal digits or reads the file.
[[nodiscard]] Request MakeRequest(const RequestArguments& arguments);

// Parses one line of a script.
[[nodiscard]] Request ParseRequestLine(std::string_view line);

} // namespace orvane::player
