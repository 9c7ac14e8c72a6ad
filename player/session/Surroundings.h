// What a session needs of the world around it.
#pragma once

#include "player/session/Commands.h"
#include "player/sound/StereoFrame.h"
#include "records/AudioRenderData.h"

#include <cstddef>
#include <cstdint>
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

// Makes the waveforms and spectra of a pulse out of the sound around a moment.
class ISoundAnalysis {
public:
    virtual ~ISoundAnalysis() = default;

    // Begins anew with sound of that many frames a second.
    virtual void Begin(std::uint32_t rate) = 0;

    // How many frames it looks at; the moment is before the one in the middle.
    [[nodiscard]] virtual std::size_t WindowFrames() const = 0;

    // `seconds` is how much time has gone by since the last call.
    [[nodiscard]] virtual records::AudioRenderData Analyze(std::span<const StereoFrame> window,
                                                           double seconds) = 0;
};

} // namespace orvane::player
