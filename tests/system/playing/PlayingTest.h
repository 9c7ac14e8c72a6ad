// The real player playing music that a test made.
#pragma once

#include "system/ChildProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace orvane::tests {

// What a player came to.
struct Played {
    std::optional<int> exitCode;
    std::string text; // without carriage returns
};

// Has a folder for songs and programs, empty at first and gone with the test.
class PlayingTest : public testing::Test {
protected:
    PlayingTest();
    ~PlayingTest() override;

    // A WAV file of a tone, in stereo, of so many seconds. Its full path.
    [[nodiscard]] std::filesystem::path WriteTone(const std::string& name, double seconds) const;

    [[nodiscard]] std::filesystem::path Write(const std::string& name, const std::string& bytes) const;

    // A copy of a program that stands beside the test program, under that name.
    [[nodiscard]] std::filesystem::path CopyProgram(std::wstring_view name, const std::string& copy) const;

    // Starts the player beside the test program, or another. It keeps silent and is given the arguments.
    [[nodiscard]] static bool StartPlayer(ChildProcess& player, const std::wstring& arguments,
                                          const StartOptions& options = {}, const std::wstring& program = {});

    // Starts it and waits for its end.
    [[nodiscard]] static Played Play(const std::wstring& arguments, const std::wstring& program = {});

    // Waits for the end of one that was started.
    [[nodiscard]] static Played Finish(ChildProcess& player);

    const std::filesystem::path mFolder = std::filesystem::temp_directory_path() / "orvane-playing";
};

// How many frames the summary tells of, "Played 1.0 s: 60 frames, 60.0 a second."; nothing if there is none.
[[nodiscard]] std::optional<std::size_t> FramesPlayed(const std::string& text);

// Its lines but the summary.
[[nodiscard]] std::string WithoutSummary(const std::string& text);

// What the player says of a file that holds no sound.
[[nodiscard]] std::string NoSoundLine(const std::filesystem::path& path);

// An argument in quotes.
[[nodiscard]] std::wstring Quoted(const std::filesystem::path& path);

} // namespace orvane::tests
