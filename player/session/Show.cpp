#include "player/session/Show.h"

#include "platform/Text.h"
#include "player/session/Messages.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvane::player {

namespace {

constexpr double kLongestFrameSeconds = 60.0;
constexpr HostLink::Milliseconds kLastPatience{ 2000 }; // for the last frame when all is to end
constexpr double kMillisecondsPerSecond = 1000.0;

} // namespace

Show::Show(const PlayOptions& options, IHost& host, IConsole& console, ISessionClock& clock)
    : mOptions(options)
    , mHost(host)
    , mConsole(console)
    , mClock(clock)
    , mLink(host)
    , mFillsScreen(options.fullScreen) {}

bool Show::Fail(ExitCode code, std::string_view line) {
    mConsole.Complain(line);
    mExit = code;
    return false;
}

bool Show::Open() {
    const HostOpening opening = mLink.Open();
    if (!opening) return Fail(ExitCodeOf(opening), ExplainOpening(opening));
    if (mLink.Visualizers().empty()) return Fail(kExitUsage, messages::kNoVisualizers);
    if (Choose(mOptions.visualizer)) return true;
    return Fail(kExitUsage, messages::NoSuchVisualizer(mOptions.visualizer));
}

// An empty wish is the first there is.
bool Show::Choose(std::string_view wish) {
    const auto index = FindVisualizer(mLink.Visualizers(), wish);
    if (index) mVisualizer = mLink.Visualizers()[*index].name;
    return index.has_value();
}

bool Show::Present(ShownTrack track) {
    mTrack = std::move(track);
    return mIsUp ? TellTrack() : BringUp();
}

bool Show::BringUp() {
    if (!ShowAll()) return false;
    mIsUp = true;
    if (mOptions.monitor != 0 && !mHost.MoveToMonitor(mOptions.monitor))
        mConsole.Complain(messages::NoSuchMonitor(mOptions.monitor));
    return !mFillsScreen || Settle(mLink.FillScreen(true));
}

// The visualizer goes up with the track; the artwork comes after it, because it goes to whoever is up by then.
bool Show::ShowAll() {
    mConsole.Say(messages::NowShowing(platform::Utf8FromUtf16(mVisualizer)));
    const auto record = MakeTrackRecord(mTrack.texts, mTrack.rate, mTrack.startSeconds);
    return Settle(mLink.Select(mVisualizer, record.get())) && Settle(mLink.ShowArtwork(mTrack.cover));
}

bool Show::TellTrack() {
    const auto record = MakeTrackRecord(mTrack.texts, mTrack.rate, mTrack.startSeconds);
    return (!record || Settle(mLink.StartTrack(*record))) && Settle(mLink.ShowArtwork(mTrack.cover));
}

bool Show::NextVisualizer() {
    const auto& all = mLink.Visualizers();
    const auto current = std::find_if(all.begin(), all.end(), [this](const Visualizer& visualizer) {
        return visualizer.name == mVisualizer;
    });
    if (all.size() < 2) return true;
    const auto next = current == all.end() || current + 1 == all.end() ? all.begin() : current + 1;
    mVisualizer = next->name;
    return ShowAll();
}

bool Show::ToggleFullScreen() {
    mFillsScreen = !mHost.IsFullScreen();
    return Settle(mLink.FillScreen(mFillsScreen));
}

bool Show::LookAfter() {
    const bool stuck = PulseIsUnderWay() && mClock.Now() - mPulseSent > kLongestFrameSeconds;
    return !stuck && !mHost.IsGone() ? true : StartAgain();
}

bool Show::SendPulse(double positionSeconds, const records::AudioRenderData& sound) {
    mStamp = std::max(mStamp + 1, 1u); // 0 would say that there is no sound
    mPulseSent = mClock.Now();
    const auto position =
        std::uint32_t(std::max(std::llround(positionSeconds * kMillisecondsPerSecond), 0LL));
    return Settle(mLink.SendPulse(mStamp, position, sound));
}

bool Show::AwaitPulse(HostLink::Milliseconds timeout) {
    const Outcome outcome = mLink.TakePulseReply(timeout);
    if (outcome.failure == Failure::kNoReplyInTime) return true;
    return Settle(outcome);
}

bool Show::Settle(const Outcome& outcome) {
    return outcome ? true : StartAgain();
}

bool Show::StartAgain() {
    if (mRestarted) return Fail(kExitConnectionLost, messages::kHostGoneAgain);
    mRestarted = true;
    mConsole.Complain(messages::kRestartingHost);
    mHost.Discard();
    if (const HostOpening opening = mLink.Open(); !opening)
        return Fail(ExitCodeOf(opening), ExplainOpening(opening));
    if (!Choose(platform::Utf8FromUtf16(mVisualizer)) && !Choose({}))
        return Fail(kExitUsage, messages::kNoVisualizers);
    return BringUp();
}

void Show::AwaitLastPulse() {
    if (IsWell() && mLink.PulseIsUnderWay()) (void)mLink.TakePulseReply(kLastPatience);
}

// A host that is still busy isn't told: it is going in any case.
void Show::End() {
    if (IsWell() && !mLink.PulseIsUnderWay() && mLink.Stop()) (void)mLink.Hide();
    mHost.Close();
}

ExitCode ListVisualizers(IHost& host, IConsole& console) {
    HostLink link(host);
    const HostOpening opening = link.Open();
    if (!opening)
        console.Complain(ExplainOpening(opening));
    else if (link.Visualizers().empty())
        console.Complain(messages::kNoVisualizers);
    for (const std::string& line : VisualizerLines(link.Visualizers())) console.Say(line);
    host.Close();
    return ExitCodeOf(opening);
}

} // namespace orvane::player
