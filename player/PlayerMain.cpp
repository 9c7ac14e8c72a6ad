// The stand-in player's console program: music with a picture, one request, or a conversation from a script.
#include "platform/Text.h"
#include "player/client/PipeClient.h"
#include "player/console/Conversation.h"
#include "player/playing/Play.h"
#include "player/session/PlayOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::player {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kConnectTimeout{ 5000 };

class PipeConnection final : public IConnection {
public:
    explicit PipeConnection(milliseconds connectTimeout)
        : mConnectTimeout(connectTimeout) {}

    Outcome Reconnect() override { return mClient.Connect(mConnectTimeout); }

    Reply Exchange(std::span<const std::uint8_t> request, milliseconds timeout) override {
        return mClient.Exchange(request, timeout);
    }

private:
    const milliseconds mConnectTimeout;
    PipeClient mClient;
};

// Connects, then lets `talk` use the connection.
template <typename Talk>
int OverPipe(milliseconds connectTimeout, Talk talk) {
    PipeConnection connection(connectTimeout);
    if (const Outcome connected = connection.Reconnect(); !connected) {
        std::cerr << ExplainFailure(connected) << '\n';
        return ExitCodeOf(connected);
    }
    return talk(connection);
}

int SendRequest(const RequestArguments& arguments) {
    const Request request = MakeRequest(arguments);
    if (!request.error.empty()) {
        std::cerr << request.error << '\n';
        return kExitUsage;
    }
    return OverPipe(request.timeout, [&](IConnection& connection) {
        return RunRequest(request, connection, std::cout, std::cerr);
    });
}

int PlayScript(std::istream& script) {
    return OverPipe(kConnectTimeout, [&](IConnection& connection) {
        return RunConversation(script, connection, std::cout, std::cerr);
    });
}

int PlayScriptFile(const std::string& name) {
    if (name.empty()) return PlayScript(std::cin);
    const auto wide = platform::Utf16FromUtf8(name);
    std::ifstream script(std::filesystem::path(wide.value_or(u"")));
    if (script) return PlayScript(script);
    std::cerr << "The script " << name << " can't be read: check its name.\n";
    return kExitUsage;
}

// The arguments behind the program's name in UTF-8, last one first: so the parser takes them.
std::vector<std::string> ReversedArguments(int count, wchar_t** arguments) {
    std::vector<std::string> reversed;
    for (int i = count - 1; i > 0; --i) {
        const std::wstring_view argument = arguments[i];
        reversed.push_back(platform::Utf8FromUtf16(std::u16string(argument.begin(), argument.end())));
    }
    return reversed;
}

int Main(int count, wchar_t** arguments) {
    CLI::App app("Plays music and has the Orvane visualizer host show it.");
    app.name("orvane-player");
    app.footer(
        "Keys: space pauses, the arrows seek, n and p change the track, v the visualizer, f fills the "
        "screen, "
        "q ends.\nIn the visualizer's window: space, v, comma and point for the tracks, [ and ] to seek, Esc "
        "ends.");
    app.require_subcommand(0, 1);
    app.allow_windows_style_options(false); // a word that begins with a slash may be a file's name

    PlayOptions playOptions;
    AddPlayOptions(app, playOptions);

    RequestArguments requestArguments;
    auto* request = app.add_subcommand("request", "send one request and print the reply");
    AddRequestArguments(*request, requestArguments);

    std::string script;
    auto* converse = app.add_subcommand("converse", "play a script of requests over one connection");
    converse->add_option("FILE", script,
                         "lines as the arguments of request, \"reconnect\", \"# comment\"; "
                         "without a file the standard input is read");

    auto reversed = ReversedArguments(count, arguments);
    try {
        app.parse(reversed);
    } catch (const CLI::Success& wish) { // help was asked for
        return app.exit(wish) == 0 ? kExitOk : kExitUsage;
    } catch (const CLI::ParseError& error) {
        std::cerr << error.what() << ". See orvane-player --help.\n";
        return kExitUsage;
    }
    if (request->parsed()) return SendRequest(requestArguments);
    return converse->parsed() ? PlayScriptFile(script) : Play(playOptions);
}

} // namespace

} // namespace orvane::player

int wmain(int count, wchar_t** arguments) {
    return orvane::player::Main(count, arguments);
}
