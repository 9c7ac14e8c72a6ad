// The way back from a visualizer's key handler to the plug-in that hosts it.
//
// All state stays in the visualizer; the receiver is told of a change after it was made. It is there for the
// length of one HandleKeyInput, and nobody keeps it.
#pragma once

namespace orvane::visualizer {

class IVisualizerCommandReceiver {
public:
    // The operations, in slot order.
    virtual void ResetTrackChangeTime() = 0;                   // 0: the track info's fade was restarted
    virtual void SetTrackInfoToDisplayAlways(bool always) = 0; // 1: the new value
    virtual void HelpToggled(bool shown) = 0;                  // 2
    virtual void ToggleConfigDisplay() = 0;                    // 3
    virtual void FPSToggled() = 0;                             // 4

    virtual ~IVisualizerCommandReceiver() = default; // 5
};

} // namespace orvane::visualizer
