#include "player/music/Score.h"

#include <algorithm>
#include <numeric>

namespace orvane::player {

namespace {

constexpr Chord kAm = { 33, { 57, 60, 64, 71 } };
constexpr Chord kF = { 29, { 57, 60, 65, 72 } };
constexpr Chord kC = { 36, { 55, 60, 64, 72 } };
constexpr Chord kG = { 31, { 55, 59, 62, 69 } };
constexpr Chord kEm = { 28, { 55, 59, 64, 71 } };
constexpr Chord kE = { 28, { 56, 59, 64, 68 } };
constexpr Chord kDm = { 38, { 57, 62, 65, 69 } };

constexpr Chord kVerse[] = { kAm, kF, kC, kG };
constexpr Chord kLift[] = { kDm, kE };
constexpr Chord kChorus[] = { kF, kG, kAm, kEm, kF, kG, kC, kE };
constexpr Chord kStill[] = { kAm, kEm, kF, kG };
constexpr Chord kLast[] = { kAm };

constexpr TuneBar kChorusTune[] = {
    { 72, kHold, 69, kHold, 72, kHold, 74, kHold }, // F
    { 74, kHold, 71, kHold, 74, 76, 74, 71 },       // G
    { 76, kHold, kHold, 72, kHold, kHold, 69, kHold }, { 71, kHold, 67, kHold, 71, kHold, kHold, kHold },
    { 72, kHold, 69, kHold, 72, kHold, 77, kHold },    { 74, kHold, 79, kHold, 77, kHold, 74, kHold },
    { 76, kHold, kHold, 79, kHold, kHold, 84, kHold }, { 83, kHold, kHold, 80, kHold, kHold, 76, kHold },
};
constexpr TuneBar kDawnBells[] = {
    { 76, kHold, kHold, kHold, kHold, kHold, kHold, kHold },
    { 72, kHold, kHold, kHold, kHold, kHold, 76, kHold },
    { 79, kHold, kHold, kHold, kHold, kHold, kHold, kHold },
    { 74, kHold, kHold, kHold, 71, kHold, kHold, kHold },
};
constexpr TuneBar kStillBells[] = {
    { 76, kHold, kHold, kHold, 72, kHold, kHold, kHold },
    { 71, kHold, kHold, kHold, 67, kHold, kHold, kHold },
    { 69, kHold, 72, kHold, 77, kHold, kHold, kHold },
    { 74, kHold, kHold, kHold, 71, kHold, 74, kHold },
};
constexpr TuneBar kFinaleBells[] = {
    { 84, kHold, kHold, kHold, 81, kHold, kHold, kHold }, // over the chords of the chorus
    { 86, kHold, kHold, kHold, 83, kHold, kHold, kHold },
    { 88, kHold, kHold, kHold, 84, kHold, kHold, kHold },
    { 83, kHold, kHold, kHold, 79, kHold, kHold, kHold },
    { 81, kHold, kHold, kHold, 84, kHold, kHold, kHold },
    { 83, kHold, kHold, kHold, 86, kHold, kHold, kHold },
    { 84, kHold, kHold, kHold, 88, kHold, kHold, kHold },
    { 80, kHold, kHold, kHold, 83, kHold, 88, kHold },
};
constexpr TuneBar kLastBell[] = { { 81, kHold, kHold, kHold, 76, kHold, kHold, kHold } };

constexpr Pattern kFourToTheFloor = "9...9...9...9...";
constexpr Pattern kBackbeat = "....9.......9...";
constexpr Pattern kBusyBackbeat = "....9..3....9.32";
constexpr Pattern kOffbeats = "..7...7...7...7.";
constexpr Pattern kSixteenths = "3286328632863286";
constexpr Pattern kRoll = "3.4.5.6.66778899";
constexpr Pattern kBassLine = "9..7..8.9..7.68.";
constexpr Pattern kBassPulse = "..9...9...9...9.";
constexpr Pattern kArpOpen = "9.6.7.6.9.6.7.6.";
constexpr Pattern kArpFull = "9567956795679567";

// clang-format off
constexpr Section kSections[] = {
    // name      bars chords     kick             snare          hat
    //     bass        arp       lead          bell          level         brightness    crash  riser
    { "dawn",    4,   kVerse,    {},              {},            {},
           {},         {},       {},           kDawnBells,   0.25f, 0.70f, 0.05f, 0.35f, false, false },
    { "pulse",   4,   kVerse,    kFourToTheFloor, {},            {},
           kBassPulse, kArpOpen, {},           {},           0.75f, 0.85f, 0.20f, 0.45f, true,  false },
    { "verse",   8,   kVerse,    kFourToTheFloor, kBackbeat,     kOffbeats,
           kBassLine,  kArpFull, {},           {},           0.85f, 0.90f, 0.35f, 0.60f, true,  false },
    { "lift",    2,   kLift,     {},              kRoll,         {},
           {},         kArpFull, {},           {},           0.45f, 0.80f, 0.10f, 0.90f, false, true },
    { "chorus",  8,   kChorus,   kFourToTheFloor, kBackbeat,     kSixteenths,
           kBassLine,  kArpOpen, kChorusTune,  {},           1.00f, 1.00f, 0.60f, 0.80f, true,  false },
    { "still",   4,   kStill,    {},              {},            {},
           {},         {},       {},           kStillBells,  0.50f, 0.40f, 0.25f, 0.10f, false, false },
    { "rise",    2,   kLift,     kFourToTheFloor, kRoll,         {},
           {},         kArpFull, {},           {},           0.45f, 0.90f, 0.10f, 1.00f, false, true },
    { "finale",  8,   kChorus,   kFourToTheFloor, kBusyBackbeat, kSixteenths,
           kBassLine,  kArpFull, kChorusTune,  kFinaleBells, 1.00f, 1.00f, 0.70f, 1.00f, true,  false },
    { "end",     2,   kLast,     {},              {},            {},
           {},         {},       {},           kLastBell,    0.80f, 0.50f, 0.50f, 0.10f, true,  false },
};

// clang-format on

constexpr bool WholeBars() {
    for (const auto& section : kSections)
        for (const Pattern pattern : { section.kick, section.snare, section.hat, section.bass, section.arp })
            if (!pattern.empty() && pattern.size() != std::size_t(kStepsPerBar)) return false;
    return true;
}

static_assert(WholeBars(), "sixteen strokes to a bar");

} // namespace

std::span<const Section> SongSections() {
    return kSections;
}

int SongBars() {
    return std::accumulate(std::begin(kSections), std::end(kSections), 0,
                           [](int bars, const Section& section) { return bars + section.bars; });
}

Place PlaceOf(int step) {
    int bar = std::min(step / kStepsPerBar, SongBars() - 1);
    const Section* section = std::begin(kSections);
    for (; bar >= section->bars; ++section) bar -= section->bars;
    return { section, bar, step % kStepsPerBar };
}

float ProgressAt(const Place& place, double partOfStep) {
    const double steps = place.bar * kStepsPerBar + place.step + partOfStep;
    return float(steps / (place.section->bars * kStepsPerBar));
}

float StrokeAt(Pattern pattern, int step) {
    if (pattern.empty() || pattern[std::size_t(step)] == '.') return 0;
    return float(pattern[std::size_t(step)] - '0') / 9;
}

} // namespace orvane::player
