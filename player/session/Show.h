// The picture of a session: the host with a visualizer in its window, told of each track. A host that is gone is
// started again, once.
//
// Where a function returns whether things go on, false means that they can't; the user has been told why by then,
// and Exit() is not kExitOk.
#pragma once

#include "player/console/Failures.h"
#include "player/session/HostLink.h"
#include "player/session/PlayOptions.h"
#include "player/session/Surroundings.h"
#include "player/session/Track.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvane::player {

// What the host is told of a track.
struct ShownTrack {
    TrackTexts texts;
    Bytes cover;
    std::uint32_t rate = 0;  // frames a second of its sound
    double startSeconds = 0; // at which it begins
};

class Show {
public:
    Show(const PlayOptions& options, IHost& host, IConsole& console, ISessionClock& clock);

    // Finds or starts the host and chooses the visualizer that the options name, or the first. Nothing is shown
    // yet.
    [[nodiscard]] bool Open();

    // The first track brings the window up, on the monitor and as large as the options say.
    [[nodiscard]] bool Present(ShownTrack track);

    [[nodiscard]] bool NextVisualizer();
    [[nodiscard]] bool ToggleFullScreen();

    // Looks whether the host and its window are still there. A pulse without a reply for a minute counts as gone.
    [[nodiscard]] bool LookAfter();

    [[nodiscard]] bool PulseIsUnderWay() const { return mLink.PulseIsUnderWay(); }

    [[nodiscard]] bool SendPulse(double positionSeconds, const records::AudioRenderData& sound);

    // Waits for the pulse under way; it may still be under way after that.
    [[nodiscard]] bool AwaitPulse(HostLink::Milliseconds timeout);

    [[nodiscard]] std::optional<PulseEvent> NextEvent() { return mLink.NextEvent(); }

    // How many pulses were answered: each was a frame.
    [[nodiscard]] std::uint64_t Frames() const { return mLink.Frames(); }

    // Waits somewhat longer for a pulse that is under way when all is to end, so that its frame counts.
    void AwaitLastPulse();

    // Stops the track, hides the window and lets the host go.
    void End();

    [[nodiscard]] ExitCode Exit() const { return mExit; }

private:
    [[nodiscard]] bool IsWell() const { return mExit == kExitOk && mIsUp; }

    [[nodiscard]] bool Choose(std::string_view wish);
    [[nodiscard]] bool BringUp();
    [[nodiscard]] bool ShowAll();
    [[nodiscard]] bool TellTrack();
    [[nodiscard]] bool Settle(const Outcome& outcome);
    [[nodiscard]] bool StartAgain();
    [[nodiscard]] bool Fail(ExitCode code, std::string_view line);

    const PlayOptions& mOptions;
    IHost& mHost;
    IConsole& mConsole;
    ISessionClock& mClock;
    HostLink mLink;
    std::u16string mVisualizer; // the current one's name
    ShownTrack mTrack;
    bool mIsUp = false; // the window has been shown
    bool mFillsScreen;  // as it was asked for last
    bool mRestarted = false;
    std::uint32_t mStamp = 0; // of the last pulse
    double mPulseSent = 0;    // seconds of the clock
    ExitCode mExit = kExitOk;
};

// The list that --list prints. Finds or starts the host for it and lets it go again.
[[nodiscard]] ExitCode ListVisualizers(IHost& host, IConsole& console);

} // namespace orvane::player
