// The written form of the demo song: sections, chords, patterns and tunes, at 120 beats a minute in four-four time.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace orvane::player {

constexpr double kBeatsPerMinute = 120;
constexpr int kStepsPerBeat = 4; // a step is a sixteenth
constexpr int kStepsPerBar = 16;
constexpr double kStepsPerSecond = kBeatsPerMinute / 60 * kStepsPerBeat;

// Notes are counted in semitones: 69 is A at 440 Hz.
constexpr int kHold = 0; // in a tune: the note before goes on

struct Chord {
    int bass;
    std::array<int, 4> notes; // from the lowest up
};

// Eight notes to a bar.
using TuneBar = std::array<int, 8>;

// Sixteen characters to a bar: "." is nothing, "1" to "9" a stroke of that strength. Empty: silent throughout.
using Pattern = std::string_view;

// Patterns of one bar are repeated; chords and tunes run through the section and repeat too.
struct Section {
    std::string_view name;
    int bars;
    std::span<const Chord> chords; // one a bar
    Pattern kick, snare, hat, bass, arp;
    std::span<const TuneBar> lead, bell;
    float levelFrom, levelTo;           // of everything, across the section
    float brightnessFrom, brightnessTo; // how far the filters are open, 0 to 1
    bool crash;                         // a cymbal at the beginning
    bool riser;                         // noise that rises to the end
};

[[nodiscard]] std::span<const Section> SongSections();

[[nodiscard]] int SongBars();

// Where a step of the song lies.
struct Place {
    const Section* section = nullptr;
    int bar = 0;  // of the section
    int step = 0; // of the bar
};

// `step` counts from 0 to SongBars() * kStepsPerBar - 1; behind that the last place is given.
[[nodiscard]] Place PlaceOf(int step);

// How far into its section a moment is, 0 to 1; `steps` as above, with a part of a step.
[[nodiscard]] float ProgressAt(const Place& place, double partOfStep);

// The strength of a pattern's stroke, 0 to 1.
[[nodiscard]] float StrokeAt(Pattern pattern, int step);

} // namespace orvane::player
