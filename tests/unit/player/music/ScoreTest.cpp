#include "player/music/Score.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace orvane::player {
namespace {

TEST(Score, TheSectionsBeginWhereTheTableSays) {
    const struct {
        const char* name;
        int seconds;
    } sections[] = {
        { "dawn", 0 },   { "pulse", 8 }, { "verse", 16 },  { "lift", 32 }, { "chorus", 36 },
        { "still", 52 }, { "rise", 60 }, { "finale", 64 }, { "end", 80 },
    };

    ASSERT_EQ(SongSections().size(), std::size(sections));
    for (const auto& [name, seconds] : sections) {
        const int step = seconds * int(kStepsPerSecond);
        const Place place = PlaceOf(step);
        EXPECT_EQ(place.section->name, name);
        EXPECT_EQ(place.bar, 0);
        EXPECT_EQ(place.step, 0);
        EXPECT_TRUE(step == 0 || PlaceOf(step - 1).section->name != name) << name;
    }
    EXPECT_EQ(SongBars(), 42); // 84 s
}

TEST(Score, AStepHasItsBarAndItsPlaceInIt) {
    const Place place = PlaceOf(16 * 8 + 16 * 3 + 5); // verse begins with bar 8
    EXPECT_EQ(place.section->name, "verse");
    EXPECT_EQ(place.bar, 3);
    EXPECT_EQ(place.step, 5);
}

TEST(Score, BehindTheEndIsTheLastBar) {
    const Place place = PlaceOf(42 * 16 + 100);
    EXPECT_EQ(place.section->name, "end");
    EXPECT_EQ(place.bar, 1);
}

TEST(Score, ProgressRunsFrom0To1InASection) {
    EXPECT_FLOAT_EQ(ProgressAt(PlaceOf(16 * 8), 0), 0);
    EXPECT_FLOAT_EQ(ProgressAt(PlaceOf(16 * 12), 0), 0.5f);
    EXPECT_FLOAT_EQ(ProgressAt(PlaceOf(16 * 16 - 1), 1), 1);
    EXPECT_FLOAT_EQ(ProgressAt(PlaceOf(16 * 16), 0.5), 0.5f / 32); // lift, two bars
}

TEST(Score, StrokesAreOutOfNine) {
    EXPECT_EQ(StrokeAt("", 3), 0);
    EXPECT_EQ(StrokeAt("9..3............", 0), 1);
    EXPECT_EQ(StrokeAt("9..3............", 1), 0);
    EXPECT_FLOAT_EQ(StrokeAt("9..3............", 3), 1 / 3.0f);
}

// Every note that an instrument is given is one that it can play and an ear can hear.
TEST(Score, TheNotesLieBetweenTheLowestAndTheHighestOfAPiano) {
    const auto isNote = [](int note) { return note >= 21 && note <= 108; };
    for (const auto& section : SongSections()) {
        EXPECT_FALSE(section.chords.empty()) << section.name;
        for (const auto& chord : section.chords) {
            EXPECT_TRUE(isNote(chord.bass)) << section.name;
            for (const int note : chord.notes) EXPECT_TRUE(isNote(note) && isNote(note + 12)) << section.name;
        }
        for (const auto& tune : { section.lead, section.bell })
            for (const auto& bar : tune)
                for (const int note : bar) EXPECT_TRUE(note == kHold || isNote(note)) << section.name;
    }
}

// The tune's accented notes belong to the chord under them: the first of each bar.
TEST(Score, EveryBarOfATuneBeginsWithANoteOfItsChord) {
    for (const auto& section : SongSections())
        for (const auto& tune : { section.lead, section.bell })
            for (std::size_t bar = 0; bar < tune.size(); ++bar) {
                const Chord& chord = section.chords[bar % section.chords.size()];
                const int note = tune[bar][0];
                const bool belongs = std::ranges::any_of(
                    chord.notes, [note](int ofChord) { return (note - ofChord) % 12 == 0; });
                EXPECT_TRUE(belongs) << section.name << " bar " << bar << " note " << note;
            }
}

} // namespace
} // namespace orvane::player
