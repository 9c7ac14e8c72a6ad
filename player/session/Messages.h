// What the player says, each a line without its newline, and what it says of everything that can go wrong: one
// line that tells what to do.
#pragma once

#include "player/console/Failures.h"
#include "player/session/Host.h"

#include <string>
#include <string_view>

namespace orvane::player {

namespace messages {

constexpr char kNoDevice[] = "There is no sound device: the music plays in silence.";
constexpr char kDeviceLost[] = "The sound device is gone: the music goes on in silence.";
constexpr char kRestartingHost[] = "The visualizer host is gone: starting it again.";
constexpr char kHostGoneAgain[] =
    "The visualizer host is gone again. Try another visualizer with --visualizer NAME.";
constexpr char kNoVisualizers[] =
    "The visualizer host has no visualizers. Put one into the folder Plug-ins beside orvane-visualizer.exe.";
constexpr char kNoLiveOutput[] =
    "There is no sound device to listen to. Connect one, or name a song to play.";
constexpr char kNoLiveInput[] = "There is no recording device. Connect one, or name a song to play.";
constexpr char kLiveDeaf[] =
    "This system hands out nothing of what it plays: the picture moves as it does in silence.";
constexpr char kLiveLost[] = "The sound device is gone: there is nothing left to show.";
constexpr char kLiveTitleOutput[] = "What this machine plays";
constexpr char kLiveTitleInput[] = "What this machine records";

[[nodiscard]] std::string NoSuchFile(std::string_view name);
[[nodiscard]] std::string NoSound(std::string_view name);
[[nodiscard]] std::string NoSuchPicture(std::string_view name);
[[nodiscard]] std::string PictureTooLarge(std::string_view name);
[[nodiscard]] std::string NoPulseLog(std::string_view name);
[[nodiscard]] std::string NoSuchVisualizer(std::string_view name);
[[nodiscard]] std::string NoSuchMonitor(int number);
[[nodiscard]] std::string NowShowing(std::string_view visualizer);
[[nodiscard]] std::string NowPlaying(std::string_view track);

} // namespace messages

// Why the host can't be had; empty if it can.
[[nodiscard]] std::string ExplainOpening(const HostOpening& opening);
[[nodiscard]] ExitCode ExitCodeOf(const HostOpening& opening);

} // namespace orvane::player
