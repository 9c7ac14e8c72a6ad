#include "player/console/Conversation.h"

#include "player/console/ReplyText.h"

#include <string>
#include <string_view>

namespace orvane::player {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kReconnect = "reconnect";

bool IsBlank(char character) {
    return kBlanks.find(character) != std::string_view::npos;
}

std::string_view WithoutComment(std::string_view line) {
    char quote = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (quote) {
            if (line[i] == quote) quote = 0;
        } else if (line[i] == '"' || line[i] == '\'') {
            quote = line[i];
        } else if (line[i] == '#' && (i == 0 || IsBlank(line[i - 1]))) {
            return line.substr(0, i);
        }
    }
    return line;
}

std::string_view Trimmed(std::string_view line) {
    while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
    while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
    return line;
}

ExitCode Report(const Outcome& outcome, std::ostream& errors) {
    if (!outcome) errors << ExplainFailure(outcome) << '\n';
    return ExitCodeOf(outcome);
}

// Sends one request and prints it and what came back.
Outcome Converse(const Request& request, IConnection& connection, std::ostream& out) {
    out << RequestText(request) << std::flush;
    const Reply reply = connection.Exchange(request.bytes, request.timeout);
    if (reply.outcome)
        out << ReplyText(request.tag, reply.bytes) << std::flush;
    else if (reply.outcome.failure == Failure::kNoReplyInTime)
        out << "< (no reply)\n" << std::flush;
    return reply.outcome;
}

Outcome Reconnect(IConnection& connection, std::ostream& out) {
    out << "> reconnect\n" << std::flush;
    const Outcome connected = connection.Reconnect();
    if (connected) out << "< (connected)\n" << std::flush;
    return connected;
}

} // namespace

ExitCode RunRequest(const Request& request, IConnection& connection, std::ostream& out,
                    std::ostream& errors) {
    return Report(Converse(request, connection, out), errors);
}

ExitCode RunConversation(std::istream& script, IConnection& connection, std::ostream& out,
                         std::ostream& errors) {
    std::string text;
    for (int number = 1; std::getline(script, text); ++number) {
        const std::string_view line = Trimmed(WithoutComment(text));
        if (line.empty()) continue;
        Outcome outcome;
        if (line == kReconnect) {
            outcome = Reconnect(connection, out);
        } else {
            const Request request = ParseRequestLine(line);
            if (!request.error.empty()) {
                errors << "Line " << number << ": " << request.error << '\n';
                return kExitUsage;
            }
            outcome = Converse(request, connection, out);
            if (outcome.failure == Failure::kNoReplyInTime) continue; // told in the conversation itself
        }
        if (!outcome) return Report(outcome, errors);
    }
    return kExitOk;
}

} // namespace orvane::player
