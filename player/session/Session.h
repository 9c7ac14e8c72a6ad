// A player at work: music on a deck, or sound from outside, and a host that shows it, until the music or the user's
// patience ends.
//
// Everything here runs in one thread and waits for some milliseconds at a time, but for the host's replies to its
// own requests. The sound is fed by another thread, and so doesn't wait for any of this.
#pragma once

#include "player/pacing/PulseClock.h"
#include "player/session/Playlist.h"
#include "player/session/PulseLog.h"
#include "player/session/Show.h"
#include "player/sound/Deck.h"
#include "player/sound/LiveSound.h"

#include <vector>

namespace orvane::player {

struct SessionParts {
    IHost& host;
    IConsole& console;
    ISessionClock& clock;
    ITrackOpener& opener;
    ISoundAnalysis& analysis;
    Deck* deck = nullptr;      // plays the songs; null for live sound
    LiveSound* live = nullptr; // null for songs
};

class Session {
public:
    Session(PlayOptions options, SessionParts parts);

    // Plays to the end; how it went.
    [[nodiscard]] ExitCode Run();

private:
    [[nodiscard]] bool Begin();
    void Loop();

    // The steps of the loop. Each is false when it is time to end.
    [[nodiscard]] bool HeedConsole();
    [[nodiscard]] bool HeedSound();
    [[nodiscard]] bool HeedHost();
    [[nodiscard]] bool Pulse();
    void ShowProgress();
    [[nodiscard]] bool Obey(Command command);

    // The music.
    [[nodiscard]] Track OpenPlayable();
    [[nodiscard]] bool Play(Track track, double seconds);
    [[nodiscard]] bool PlayNext();
    [[nodiscard]] bool PlayPrevious();
    void TellOfDevice();
    [[nodiscard]] double Position();

    const PlayOptions mOptions;
    const SessionParts mParts;
    IHeardSound& mHeard;
    Show mShow;
    Playlist mPlaylist;
    std::string mTitle; // of the current track, UTF-8
    PulseClock mPulses;
    PulseLog mPulseLog;
    std::vector<StereoFrame> mWindow; // of the sound that the last pulse showed
    double mAnalyzed = 0;             // seconds of the clock
    double mBegan = 0;                // seconds of the clock
    double mNextProgress = 0;         // the same
    double mNextLook = 0;             // the same: whether the host is still there
    bool mOnSpare = false;            // the user knows that there is no sound
    ExitCode mExit = kExitOk;
};

} // namespace orvane::player
