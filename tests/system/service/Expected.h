// What the host answers to each request and what it prints meanwhile: the one place to change when it learns to
// do more.
#pragma once

#include "support/Wire.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tests {

struct ExpectedExchange {
    const char* name;
    Bytes request;
    std::optional<std::string> reply; // nothing: no reply is written
    std::string console; // written by the time the next request is due; some of it comes from posted work
};

// A request of each tag, an unknown tag and requests too short for a tag, in the order of a conversation, with a
// host that has prepared itself for a client that many times: its list holds the built-ins of each time.
[[nodiscard]] std::vector<ExpectedExchange> ExpectedConversation(int preparations = 1);

// The reply to requests of that tag.
[[nodiscard]] std::string ExpectedReply(std::string_view tag);

// What the host prints before it makes its pipe, from its start until it waits for its first client, and behind
// WM_QUIT.
[[nodiscard]] std::string ExpectedPreparation();
[[nodiscard]] std::string ExpectedStart();
[[nodiscard]] std::string ExpectedEnd();

} // namespace orvane::tests
