#include "player/playing/Play.h"

#include "player/host/PipedHost.h"
#include "player/playing/FeedThread.h"
#include "player/playing/FileOpener.h"
#include "player/session/Messages.h"
#include "player/session/MusicAnalysis.h"
#include "player/session/Session.h"
#include "player/sound/SilentDevice.h"
#include "player/sound/windows/WasapiCapture.h"
#include "player/sound/windows/WasapiDevice.h"
#include "player/terminal/Terminal.h"

#include <mmsystem.h>

#include <chrono>
#include <cmath>
#include <string>

namespace orvane::player {

namespace {

constexpr wchar_t kHostProgram[] = L"orvane-visualizer.exe";
constexpr double kMillisecondsPerSecond = 1000.0;

double SecondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Sleeps to the millisecond: without being asked the system wakes nobody up before the next tick of its own, which is
// as long as a whole frame.
class PreciseClock final : public ISessionClock {
public:
    PreciseClock() { timeBeginPeriod(kTickMilliseconds); }

    ~PreciseClock() override { timeEndPeriod(kTickMilliseconds); }

    PreciseClock(const PreciseClock&) = delete;
    PreciseClock& operator=(const PreciseClock&) = delete;

    [[nodiscard]] double Now() override { return SecondsNow(); }

    void Sleep(double seconds) override { ::Sleep(DWORD(std::ceil(seconds * kMillisecondsPerSecond))); }

private:
    static constexpr UINT kTickMilliseconds = 1;
};

std::wstring HostBesidePlayer() {
    constexpr DWORD kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
    path.resize(path.rfind(L'\\') + 1);
    return path.append(kHostProgram);
}

// What every session has.
struct Equipment {
    PipedHost host{ HostBesidePlayer() };
    PreciseClock clock;
    MusicAnalysis analysis;
};

ExitCode PlaySongs(const PlayOptions& options, Equipment& equipment, IConsole& console,
                   ITrackOpener& opener) {
    SilentDevice spare(SecondsNow);
    SilentDevice silent(SecondsNow);
    const auto device = MakeWasapiDevice();
    ISoundDevice& chosen = options.silent ? static_cast<ISoundDevice&>(silent) : *device;
    Deck deck(chosen, spare, SecondsNow, options.delayMilliseconds / kMillisecondsPerSecond);
    const FeedThread feeding(deck);
    return Session(options,
                   { equipment.host, console, equipment.clock, opener, equipment.analysis, &deck, nullptr })
        .Run();
}

ExitCode ShowLiveSound(const PlayOptions& options, Equipment& equipment, IConsole& console,
                       ITrackOpener& opener) {
    const bool input = LiveSourceOf(options) == LiveSource::kInput;
    const auto capture = OpenWasapiCapture(input ? CaptureFrom::kInput : CaptureFrom::kOutput);
    if (!capture) {
        console.Complain(input ? messages::kNoLiveInput : messages::kNoLiveOutput);
        return kExitSystem;
    }
    if (capture->IsDeaf()) console.Say(messages::kLiveDeaf);
    LiveSound live(*capture, SecondsNow);
    const FeedThread feeding(live);
    return Session(options,
                   { equipment.host, console, equipment.clock, opener, equipment.analysis, nullptr, &live })
        .Run();
}

} // namespace

ExitCode Play(const PlayOptions& options) {
    const ComApartment apartment;
    Terminal terminal;
    Equipment equipment;
    if (options.list) return ListVisualizers(equipment.host, terminal);
    PictureFile picture;
    if (!options.artwork.empty()) picture = ReadPicture(options.artwork);
    if (!picture.error.empty()) {
        terminal.Complain(picture.error);
        return kExitUsage;
    }
    FileOpener opener(std::move(picture.bytes));
    if (LiveSourceOf(options) != LiveSource::kNone)
        return ShowLiveSound(options, equipment, terminal, opener);
    return PlaySongs(options, equipment, terminal, opener);
}

} // namespace orvane::player
