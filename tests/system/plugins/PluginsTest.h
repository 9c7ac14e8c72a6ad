// What the tests of the modules share: folders, a host, a player, the modules' log.
#pragma once

#include "player/protocol/PluginList.h"
#include "support/ModuleLog.h"
#include "system/HostProcess.h"
#include "system/plugins/PluginFolders.h"

#include <gtest/gtest.h>

#include <optional>

namespace orvane::tests {

// What a host prints in front of the modules' lines, behind them, and at its end.
constexpr char kBuiltInsLine[] = "RegisterBuiltInVisualizers**********************\n";
constexpr char kExitLine[] = "Exiting windows message loop\n";
constexpr char kBrokenLine[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n";
// A path as the console shows it.
[[nodiscard]] std::string Shown(const std::filesystem::path& path);

// "Registering ..." and "LoadLibraryExW failed ...", cut as a console line is.
[[nodiscard]] std::string RegisteringLine(const std::filesystem::path& path);
[[nodiscard]] std::string LoadFailedLine(const std::filesystem::path& path);

class PluginsTest : public testing::Test {
protected:
    enum class Token { kLimited, kFull };

    PluginsTest();
    ~PluginsTest() override;

    void SetUp() override;

    // Starts the real host but for its built-ins, or the test host (host/TestHost.h), and a player on it. Each is a copy in the
    // temporary folder, so that the second plug-in folder is there too.
    void ServeHost(Token token = Token::kLimited);
    void ServeTestHost(const std::wstring& arguments = L"", Token token = Token::kLimited);
    void Serve(std::wstring_view program, Token token, const std::wstring& arguments);

    // The player leaves and comes again, `times` times in all.
    void Reconnect(int times = 1);

    // Ends the host; all that it printed, except for the line of a read that was waiting when its player left:
    // whether a read was waiting by then is the system's affair.
    std::string QuitAndRead();

    std::string Ask(const Bytes& request);
    std::string Ask(std::string_view tag);

    // Asks something whose work is posted, and waits until the test host's main thread has done it.
    std::string AskAndSettle(const Bytes& request);
    void Settle();

    // The test host's window.
    [[nodiscard]] HWND Window() const;

    // The plug-in list, asked for without any localized strings.
    player::PluginList List();

    [[nodiscard]] std::vector<ModuleCall> Calls() const { return ReadModuleLog(mLog); }

    PluginFolders mFolders;
    std::optional<HostProcess> mHost;
    player::PipeClient mClient;

private:
    std::filesystem::path mLog;
    WPARAM mFence = 0;
};

// A pulse with two channels of waveform and spectrum, all bytes different from their neighbours'.
[[nodiscard]] Bytes SampleSound();
[[nodiscard]] Bytes PulseRequest(std::uint32_t stamp, std::uint32_t position);

// 'STRT' with the sample track, and 'ACTV'.
[[nodiscard]] Bytes SampleStartRequest();
[[nodiscard]] Bytes ActivateRequest(std::u16string_view name);

} // namespace orvane::tests
