// How music is to be played: the options of the command line that names songs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI { // NOLINT(readability-identifier-naming): the library's own name
class App;
}

namespace orvane::player {

// What the sound is, if it isn't songs.
enum class LiveSource {
    kNone,
    kOutput, // whatever the machine plays
    kInput,  // the default recording device
};

// Texts are UTF-8; an empty one wasn't given.
struct PlayOptions {
    std::vector<std::string> songs; // files; none: the built-in piece
    std::string visualizer;
    std::string artwork; // a picture's file
    std::string title;
    std::string artist;
    std::string album;
    std::string pulseLog; // a file
    std::string live;     // "output" or "input"
    double startSeconds = 0;
    std::optional<double> seconds; // of playing, then it ends
    double delayMilliseconds = 0;  // by which the picture comes after the sound
    int monitor = 0;               // from 1; 0: where the host likes
    bool list = false;
    bool fullScreen = false;
    bool silent = false;
};

// Makes `app` understand the options; parsing fills `options`, which has to live as long.
void AddPlayOptions(CLI::App& app, PlayOptions& options);

[[nodiscard]] LiveSource LiveSourceOf(const PlayOptions& options);

} // namespace orvane::player
