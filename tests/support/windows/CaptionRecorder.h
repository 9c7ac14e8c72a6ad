// A caption strip that is only written down: what was drawn on it, in order, one text for each call.
#pragma once

#include "shell/server/CaptionCalls.h"

#include <string>
#include <vector>

namespace orvane::tests {

struct CaptionRecorder {
    // What was called, as "FillRectangle(0 0 1000 30)". Icons go by "close", "maximize" and "restore".
    std::vector<std::string> calls;

    // What shall go wrong.
    bool refuseTarget = false, refuseTextFormat = false, losePicture = false;
    std::vector<std::string> refusedIcons;

    // What there is at the moment.
    int targets = 0, icons = 0, formats = 0;
    HWND window = nullptr; // the last target's
};

// The one record, empty again after ResetCaptionRecorder, and the table that leads to it.
[[nodiscard]] CaptionRecorder& RecordedCaption();
void ResetCaptionRecorder();
extern const shell::CaptionCalls kRecordedCaptionCalls;

} // namespace orvane::tests
