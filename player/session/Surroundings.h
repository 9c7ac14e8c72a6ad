// What a session needs of the world around it.
#pragma once

#include "player/session/Commands.h"
#include "player/sound/StereoFrame.h"
#include "records/AudioRenderData.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace orvane::player {

// Where the user sits.
class IConsole {
public:
    virtual ~IConsole() = default;

    // The next key that was pressed; nothing if there is none. Never waits.
    [[nodiscard]] virtual std::optional<ConsoleKey> NextKey() = 0;

    // Whether the user or the system wants the program to end (Ctrl+C, the console closed).
    [[nodiscard]] virtual bool EndIsWanted() const = 0;

    // A line of its own.
    virtual void Say(std::string_view line) = 0;

    // A line that the next one replaces; nothing if nobody watches.
    virtual void ShowProgress(std::string_view line) = 0;

    // A line about what went wrong.
    virtual void Complain(std::string_view line) = 0;
};

class ISessionClock {
public:
    virtual ~ISessionClock() = default;

    // Seconds from any origin; never runs backwards.
    [[nodiscard]] virtual double Now() = 0;

    virtual void Sleep(double seconds) = 0;
};

// When the next pulse is to go out.
class IPulsePace {
public:
    virtual ~IPulsePace() = default;

    // 0 if one is due.
    [[nodiscard]] virtual double SecondsUntilDue(double now) = 0;

    // One goes out now.
    virtual void Sent(double now) = 0;
};

// Makes the waveforms and spectra of a pulse out of the last sound that was heard.
struct SoundAnalysis {
    std::size_t frames = records::kSamplesPerChannel; // that it looks at, the newest last
    std::function<void(std::span<const StereoFrame> frames, std::uint32_t rate,
                       records::AudioRenderData& result)>
        analyze;
};

} // namespace orvane::player
