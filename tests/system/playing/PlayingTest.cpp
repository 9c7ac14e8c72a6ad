#include "system/playing/PlayingTest.h"

#include "support/WavFile.h"

#include <cmath>
#include <fstream>
#include <numbers>
#include <regex>

namespace orvane::tests {

namespace fs = std::filesystem;

PlayingTest::PlayingTest() {
    fs::create_directories(mFolder);
}

PlayingTest::~PlayingTest() {
    std::error_code ignored;
    fs::remove_all(mFolder, ignored);
}

fs::path PlayingTest::WriteTone(const std::string& name, double seconds) const {
    constexpr std::uint32_t kRate = 22050;
    constexpr double kTone = 440; // hertz
    constexpr double kLoud = 20000;
    return Write(
        name, WavFile({ kRate, 2, std::uint32_t(seconds * kRate) }, [](std::uint32_t frame, std::uint16_t) {
            return std::int16_t(kLoud * std::sin(2 * std::numbers::pi * kTone * frame / kRate));
        }));
}

fs::path PlayingTest::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(mFolder / name, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return mFolder / name;
}

fs::path PlayingTest::CopyProgram(std::wstring_view name, const std::string& copy) const {
    fs::copy_file(ProgramBeside(name), mFolder / copy, fs::copy_options::overwrite_existing);
    return mFolder / copy;
}

bool PlayingTest::StartPlayer(ChildProcess& player, const std::wstring& arguments,
                              const StartOptions& options, const std::wstring& program) {
    const std::wstring chosen = program.empty() ? ProgramBeside(L"orvane-player.exe") : program;
    return player.Start(chosen, L"--silent " + arguments, options);
}

Played PlayingTest::Play(const std::wstring& arguments, const std::wstring& program) {
    ChildProcess player;
    if (!StartPlayer(player, arguments, {}, program)) return {};
    return Finish(player);
}

Played PlayingTest::Finish(ChildProcess& player) {
    const auto exitCode = player.WaitForExit();
    std::string text = player.Text();
    std::erase(text, '\r');
    return { exitCode, text };
}

namespace {

const std::regex kSummary("Played [0-9]+\\.[0-9] s: ([0-9]+) frames?, [0-9]+\\.[0-9] a second\\.\n");

}

std::optional<std::size_t> FramesPlayed(const std::string& text) {
    std::smatch found;
    if (!std::regex_search(text, found, kSummary)) return std::nullopt;
    return std::stoul(found[1]);
}

std::string WithoutSummary(const std::string& text) {
    return std::regex_replace(text, kSummary, "");
}

std::string NoSoundLine(const fs::path& path) {
    return std::string("\"")
        .append(path.string())
        .append("\" holds no sound that this system can decode: try a WAV, MP3 or FLAC file.\n");
}

std::wstring Quoted(const fs::path& path) {
    return L"\"" + path.wstring() + L"\"";
}

} // namespace orvane::tests
