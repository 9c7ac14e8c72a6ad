#include "player/session/HelpTexts.h"

#include <iterator>

namespace orvane::player {

namespace {

// A text is a row of some 35 characters, and its key stands in a column of 30 pixels. The panel has nine rows.
const LocalizedText kQuellspire[] = {
    { "Show or hide this help", "?" },
    { "Next scene", "M" },
    { "Change scenes with the tracks", "C" },
    { "New colours", "P" },
    { "Nebula on or off", "N" },
    { "React stronger (- weaker, R as before)", "+" },
    { "Freeze or go on", "X" },
    { "Hold the camera", "L" },
    { "Orvane Visualizer", "" },
};

const LocalizedText kZephor[] = {
    { "Next page of help, or none", "H" }, { "Another movement", "S" },
    { "Another waveform", "W" },           { "Other colours", "X" },
    { "Change everything", "R" },          { "Hold, change at random, or presets", "M" },
    { "Names of what is shown", "C" },     { "Frames per second", "F" },
    { "Orvane Classic Visualizer", "" },
};

static_assert(std::size(kQuellspire) == 9, "as many rows as the help panel has");
static_assert(std::size(kZephor) == 9, "two panels and the title");

} // namespace

std::span<const LocalizedText> QuellspireTexts() {
    return kQuellspire;
}

std::span<const LocalizedText> ZephorTexts() {
    return kZephor;
}

} // namespace orvane::player
