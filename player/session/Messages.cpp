#include "player/session/Messages.h"

namespace orvane::player {

namespace {

std::string Quoted(std::string_view before, std::string_view name, std::string_view behind) {
    return std::string(before).append("\"").append(name).append("\"").append(behind);
}

struct OpeningRow {
    HostStart start;
    ExitCode exitCode;
    std::string_view text; // "%u" in it: the system's error
};

constexpr OpeningRow kOpenings[] = {
    { HostStart::kNoProgram, kExitHostNotFound,
      "There is no visualizer host: put orvane-visualizer.exe into the folder of orvane-player.exe." },
    { HostStart::kNotStarted, kExitHostNotFound,
      "The visualizer host can't be started (system error %u): run orvane-visualizer.exe by hand." },
    { HostStart::kNoPipe, kExitNoReply,
      "The visualizer host was started and doesn't answer: see what orvane-visualizer.exe -c says." },
    { HostStart::kForeignServer, kExitSystem,
      "Another program answers in the visualizer host's place: close it, then try again." },
    { HostStart::kPipeBusy, kExitPipeBusy,
      "The visualizer host serves another player: close that player, then try again." },
    { HostStart::kSystem, kExitSystem,
      "The visualizer host can't be reached (system error %u): end orvane-visualizer.exe, then try again." },
};

const OpeningRow* Find(HostStart start) {
    for (const OpeningRow& row : kOpenings)
        if (row.start == start) return &row;
    return nullptr;
}

} // namespace

namespace messages {

std::string NoSuchFile(std::string_view name) {
    return Quoted("There is no file ", name, ": check its name.");
}

std::string NoSound(std::string_view name) {
    return Quoted("", name, " holds no sound that this system can decode: try a WAV, MP3 or FLAC file.");
}

std::string NoSuchPicture(std::string_view name) {
    return Quoted("There is no picture ", name, ": check the name behind --artwork.");
}

std::string PictureTooLarge(std::string_view name) {
    return Quoted("The picture ", name, " is larger than 1 MiB: make it smaller.");
}

std::string NoPulseLog(std::string_view name) {
    return Quoted("The file ", name, " can't be written: check the name behind --pulse-log.");
}

std::string NoSuchVisualizer(std::string_view name) {
    return Quoted("There is no visualizer ", name, ": see orvane-player --list.");
}

std::string NoSuchMonitor(int number) {
    return std::string("There is no monitor ")
        .append(std::to_string(number))
        .append(": the window stays where it is.");
}

std::string NowShowing(std::string_view visualizer) {
    return std::string("Visualizer: ").append(visualizer);
}

std::string NowPlaying(std::string_view track) {
    return std::string("Playing: ").append(track);
}

} // namespace messages

std::string ExplainOpening(const HostOpening& opening) {
    const OpeningRow* row = Find(opening.start);
    if (!row) return {};
    constexpr std::string_view kCode = "%u";
    std::string text(row->text);
    if (const auto at = text.find(kCode); at != std::string::npos)
        text.replace(at, kCode.size(), std::to_string(opening.systemCode));
    return text;
}

ExitCode ExitCodeOf(const HostOpening& opening) {
    const OpeningRow* row = Find(opening.start);
    return row ? row->exitCode : kExitOk;
}

} // namespace orvane::player
