#include "player/session/Session.h"

#include "platform/Text.h"
#include "player/session/Messages.h"
#include "player/session/Progress.h"

#include <algorithm>
#include <utility>

namespace orvane::player {

namespace {

constexpr double kSeekSeconds = 5.0;
constexpr double kBackToTheBeginning = 3.0; // seconds of a track, from which "previous" begins it anew
constexpr double kProgressSeconds = 0.25;   // between two progress lines
constexpr double kLookSeconds = 0.25;       // between two looks after the host
constexpr double kLongestSleep = 0.005;     // seconds; keys and the music's end are looked at in between
constexpr HostLink::Milliseconds kReplyStep{ 5 };

std::vector<std::string> SongsOf(const PlayOptions& options) {
    return options.songs.empty() ? std::vector<std::string>{ "" } : options.songs; // the built-in piece
}

IHeardSound& HeardOf(const SessionParts& parts) {
    if (parts.live) return *parts.live;
    return *parts.deck;
}

} // namespace

Session::Session(PlayOptions options, SessionParts parts)
    : mOptions(std::move(options))
    , mParts(parts)
    , mHeard(HeardOf(mParts))
    , mShow(mOptions, mParts.host, mParts.console, mParts.clock)
    , mPlaylist(SongsOf(mOptions))
    , mPulseLog(mOptions.pulseLog) {}

ExitCode Session::Run() {
    if (Begin()) {
        Loop();
        const double played = mParts.clock.Now() - mBegan;
        mShow.AwaitLastPulse(); // the summary counts its frame too
        mParts.console.Say(SummaryLine(played, mShow.Frames()));
    }
    mShow.End();
    return mShow.Exit() != kExitOk ? mShow.Exit() : mExit;
}

// The song is opened before the host: a name that is wrong shows no window.
bool Session::Begin() {
    if (!mPulseLog.IsWell()) {
        mParts.console.Complain(messages::NoPulseLog(mOptions.pulseLog));
        mExit = kExitUsage;
        return false;
    }
    Track track;
    if (mParts.live) {
        const bool input = LiveSourceOf(mOptions) == LiveSource::kInput;
        const char* title = input ? messages::kLiveTitleInput : messages::kLiveTitleOutput;
        track.texts.title = platform::Utf16FromUtf8(title).value_or(u"");
    } else {
        track = OpenPlayable();
        if (!track.source) {
            mExit = kExitUsage;
            return false;
        }
    }
    if (!mShow.Open()) return false;
    mBegan = mAnalyzed = mParts.clock.Now();
    return Play(std::move(track), mOptions.startSeconds);
}

// The current song, or the next that can be played. Without a source there is none left.
Track Session::OpenPlayable() {
    for (;;) {
        Track track = mParts.opener.Open(mPlaylist.Current());
        if (track.source) return track;
        mParts.console.Complain(track.error);
        if (!mPlaylist.Next()) return track;
    }
}

bool Session::Play(Track track, double seconds) {
    const TrackTexts texts = TextsWithOptions(std::move(track.texts), mOptions);
    mTitle = platform::Utf8FromUtf16(texts.title);
    mParts.console.Say(messages::NowPlaying(TrackLine(texts)));
    const std::uint32_t rate = track.source ? track.source->Rate() : mHeard.Rate();
    if (!mShow.Present({ texts, std::move(track.cover), rate, seconds })) return false;
    mParts.analysis.Begin(rate);
    mWindow.resize(mParts.analysis.WindowFrames());
    if (track.source) mParts.deck->Load(std::move(track.source), seconds);
    TellOfDevice();
    return true;
}

void Session::TellOfDevice() {
    if (mOnSpare || !mParts.deck || !mParts.deck->IsOnSpare()) return;
    mOnSpare = true;
    mParts.console.Complain(mShow.Frames() == 0 ? messages::kNoDevice : messages::kDeviceLost);
}

void Session::Loop() {
    while (HeedConsole() && HeedSound() && HeedHost() && Pulse()) ShowProgress();
}

bool Session::HeedConsole() {
    if (mParts.console.EndIsWanted()) return false;
    while (const auto key = mParts.console.NextKey())
        if (!Obey(CommandOfConsoleKey(*key))) return false;
    return true;
}

bool Session::HeedSound() {
    const double now = mParts.clock.Now();
    if (mOptions.seconds && now - mBegan >= *mOptions.seconds) return false;
    if (mParts.live && mParts.live->IsLost()) {
        mParts.console.Complain(messages::kLiveLost);
        mExit = kExitSystem;
        return false;
    }
    TellOfDevice();
    return !mParts.deck || !mParts.deck->IsOver() || PlayNext();
}

bool Session::HeedHost() {
    const double now = mParts.clock.Now();
    if (now >= mNextLook) {
        mNextLook = now + kLookSeconds;
        if (!mShow.LookAfter()) return false;
    }
    while (const auto event = mShow.NextEvent()) {
        if (std::holds_alternative<CloseRequest>(*event)) return false;
        if (std::holds_alternative<TrackDisplayChanged>(*event)) mNextProgress = now; // the title at once
        const auto* character = std::get_if<CharacterLeftOver>(&*event);
        if (character && !Obey(CommandOfWindowCharacter(character->code))) return false;
    }
    return true;
}

// One step of the pulse: its reply awaited for a moment, or the next one sent if it is due. A pulse never goes out
// while the last is under way.
bool Session::Pulse() {
    if (mShow.PulseIsUnderWay()) return mShow.AwaitPulse(kReplyStep);
    const double now = mParts.clock.Now();
    if (const double wait = mPulses.SecondsUntilDue(now); wait > 0) {
        mParts.clock.Sleep(std::min(wait, kLongestSleep));
        return true;
    }
    const bool silent = mParts.deck && mParts.deck->IsPaused(); // the picture goes on, and nothing is heard
    if (silent)
        std::fill(mWindow.begin(), mWindow.end(), StereoFrame{});
    else
        mHeard.CopyHeard(mWindow);
    mPulses.Sent(now);
    const records::AudioRenderData sound =
        mParts.analysis.Analyze(mWindow, now - std::exchange(mAnalyzed, now));
    const double position = Position();
    mPulseLog.Sent(mParts.clock.Now(), position, sound);
    return mShow.SendPulse(position, sound);
}

double Session::Position() {
    return mParts.deck ? mParts.deck->Position() : mParts.clock.Now() - mBegan;
}

void Session::ShowProgress() {
    const double now = mParts.clock.Now();
    if (now < mNextProgress) return;
    mNextProgress = now + kProgressSeconds;
    const double duration = mParts.deck ? mParts.deck->Duration() : 0;
    const bool paused = mParts.deck && mParts.deck->IsPaused();
    mParts.console.ShowProgress(ProgressLine({ Position(), duration, paused, mTitle, mShow.Frames() }));
}

bool Session::Obey(Command command) {
    Deck* deck = mParts.deck;
    switch (command) {
    case Command::kNone:
        return true;
    case Command::kPause:
        if (deck) deck->Pause(!deck->IsPaused());
        return true;
    case Command::kSeekBack:
    case Command::kSeekForward:
        if (deck)
            deck->Seek(deck->Position() + (command == Command::kSeekBack ? -kSeekSeconds : kSeekSeconds));
        return true;
    case Command::kNextTrack:
        return !deck || PlayNext();
    case Command::kPreviousTrack:
        return !deck || PlayPrevious();
    case Command::kNextVisualizer:
        return mShow.NextVisualizer();
    case Command::kFullScreen:
        return mShow.ToggleFullScreen();
    case Command::kEnd:
        return false;
    }
    return true;
}

bool Session::PlayNext() {
    if (!mPlaylist.Next()) return false;
    Track track = OpenPlayable();
    return track.source && Play(std::move(track), 0);
}

// Begins the track anew, or right at its beginning the one before. The first one has none before it.
bool Session::PlayPrevious() {
    if (mParts.deck->Position() >= kBackToTheBeginning || !mPlaylist.Previous()) {
        mParts.deck->Seek(0);
        return true;
    }
    Track track = OpenPlayable(); // it was played before; if it is gone by now, the music goes on behind it
    return track.source && Play(std::move(track), 0);
}

} // namespace orvane::player
