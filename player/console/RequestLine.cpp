#include "player/console/RequestLine.h"

#include "platform/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace orvane::player {

namespace {

constexpr double kLongestTimeoutSeconds = 3600.0;
constexpr double kMillisecondsPerSecond = 1000.0;

// Pairs of hexadecimal digits, with blanks between bytes where the writer likes them.
std::optional<Bytes> BytesFromHex(std::string_view text) {
    Bytes bytes;
    while (!text.empty()) {
        if (text.front() == ' ') {
            text.remove_prefix(1);
            continue;
        }
        if (text.size() < 2) return std::nullopt;
        std::uint8_t byte = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + 2, byte, 16);
        if (error != std::errc() || end != text.data() + 2) return std::nullopt;
        bytes.push_back(byte);
        text.remove_prefix(2);
    }
    return bytes;
}

std::optional<Bytes> BytesOfFile(const std::string& name) {
    const auto wide = platform::Utf16FromUtf8(name);
    if (!wide) return std::nullopt;
    std::ifstream file(std::filesystem::path(*wide), std::ios::binary);
    if (!file) return std::nullopt;
    Bytes bytes(std::istreambuf_iterator<char>(file), {});
    if (file.bad()) return std::nullopt;
    return bytes;
}

// The words of a line, last one first, as the parser takes them. A word may stand in quotes, single or double,
// and is then kept as it is, also if it is empty. (The parser's own splitting drops empty words.) Nothing if a
// quote isn't closed.
std::optional<std::vector<std::string>> ReversedWords(std::string_view line) {
    constexpr std::string_view kBlanks = " \t";
    std::vector<std::string> words;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        if (line.empty()) break;
        const bool quoted = line.front() == '"' || line.front() == '\'';
        const auto end =
            quoted ? line.find(line.front(), 1) : std::min(line.find_first_of(kBlanks), line.size());
        if (end == std::string_view::npos) return std::nullopt;
        words.emplace_back(quoted ? line.substr(1, end - 1) : line.substr(0, end));
        line.remove_prefix(quoted ? end + 1 : end);
    }
    std::reverse(words.begin(), words.end());
    return words;
}

Request Refusal(std::string error) {
    Request refused;
    refused.error = std::move(error);
    return refused;
}

} // namespace

void AddRequestArguments(CLI::App& app, RequestArguments& arguments) {
    app.add_option("TAG", arguments.tag, "the request's tag, sent as given: PULS, SWND, ...")->required();
    auto* hex = app.add_option("--hex", arguments.hex, "payload as hexadecimal digits, blanks allowed");
    auto* text = app.add_option("--text", arguments.text, "payload as text, sent without a terminator");
    auto* file = app.add_option("--file", arguments.file, "payload from a file");
    hex->excludes(text)->excludes(file);
    text->excludes(file);
    app.add_option("--timeout", arguments.timeoutSeconds, "seconds to wait for the host and for its reply")
        ->capture_default_str()
        ->check(CLI::Range(0.0, kLongestTimeoutSeconds));
}

Request MakeRequest(const RequestArguments& arguments) {
    Request request;
    request.tag = arguments.tag;
    request.timeout =
        std::chrono::milliseconds(std::int64_t(arguments.timeoutSeconds * kMillisecondsPerSecond));
    request.bytes.assign(arguments.tag.begin(), arguments.tag.end());

    std::optional<Bytes> payload = Bytes(arguments.text.begin(), arguments.text.end());
    if (!arguments.hex.empty()) {
        payload = BytesFromHex(arguments.hex);
        if (!payload) return Refusal("--hex takes pairs of hexadecimal digits, such as --hex \"01 AB\".");
    } else if (!arguments.file.empty()) {
        payload = BytesOfFile(arguments.file);
        if (!payload) return Refusal("The file " + arguments.file + " can't be read: check its name.");
    }
    request.bytes.insert(request.bytes.end(), payload->begin(), payload->end());
    return request;
}

Request ParseRequestLine(std::string_view line) {
    auto words = ReversedWords(line);
    if (!words) return Refusal("A quote is not closed.");
    RequestArguments arguments;
    CLI::App app;
    app.set_help_flag();
    app.allow_windows_style_options(false); // a word that begins with a slash is a word
    AddRequestArguments(app, arguments);
    try {
        app.parse(*words);
    } catch (const CLI::Error& error) {
        return Refusal(error.what());
    }
    return MakeRequest(arguments);
}

} // namespace orvane::player
