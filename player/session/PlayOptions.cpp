#include "player/session/PlayOptions.h"

#include <CLI/CLI.hpp>

namespace orvane::player {

namespace {

constexpr double kLongestSeconds = 1e6; // some eleven days
constexpr double kLongestDelay = 2000;  // milliseconds; what a deck remembers
constexpr double kFurthestAhead = -250; // milliseconds; what a device surely has unheard
constexpr int kMostMonitors = 64;

constexpr char kLiveOutput[] = "output";
constexpr char kLiveInput[] = "input";

} // namespace

void AddPlayOptions(CLI::App& app, PlayOptions& options) {
    auto* songs = app.add_option("SONG", options.songs, "music files; none: the built-in piece");
    auto* live = app.add_option("--live", options.live,
                                "show what the machine plays; \"--live input\": what it records")
                     ->expected(0, 1)
                     ->type_name("[output|input]")
                     ->check(CLI::IsMember({ kLiveOutput, kLiveInput }));
    app.add_option("--visualizer", options.visualizer, "its name, or a part of it; see --list");
    app.add_flag("--list", options.list, "list the visualizers that there are");
    app.add_flag("--full-screen", options.fullScreen, "fill the screen");
    app.add_option("--monitor", options.monitor, "the monitor to show it on, from 1")
        ->check(CLI::Range(1, kMostMonitors));
    app.add_option("--artwork", options.artwork, "a picture to show with the track, in place of its own");
    app.add_option("--title", options.title, "the track's title, in place of its own");
    app.add_option("--artist", options.artist, "its artist");
    app.add_option("--album", options.album, "its album");
    auto* start = app.add_option("--start", options.startSeconds, "begin the first song at this second")
                      ->check(CLI::Range(0.0, kLongestSeconds));
    app.add_option("--seconds", options.seconds, "end after so many seconds")
        ->check(CLI::Range(0.0, kLongestSeconds));
    app.add_option("--delay-ms", options.delayMilliseconds,
                   "show the sound so much later than it is played: for loudspeakers that are late")
        ->check(CLI::Range(kFurthestAhead, kLongestDelay));
    app.add_option("--pulse-log", options.pulseLog, "write down in this file when each pulse was sent");
    auto* silent = app.add_flag("--silent", options.silent, "play without a sound");
    live->excludes(songs)->excludes(start)->excludes(silent);
    app.parse_complete_callback([live, &options] {
        if (live->count() != 0 && options.live.empty()) options.live = kLiveOutput; // alone it is the output
    });
}

LiveSource LiveSourceOf(const PlayOptions& options) {
    if (options.live == kLiveOutput) return LiveSource::kOutput;
    return options.live == kLiveInput ? LiveSource::kInput : LiveSource::kNone;
}

} // namespace orvane::player
