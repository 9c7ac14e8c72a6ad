// The host's view of one visualizer: its names, a handful of numbers that the player reads, and the twelve
// operations by which the server drives it. A module found on disk and a built-in both derive from it.
//
// It has no state machine: after Initialize it waits in the server's list; ActivateInWindow binds it to a
// window, Deactivate ends that, and everything else comes in whatever order the player's requests arrive.
// Made and freed by the functions of PlugInMemory.h alone.
#pragma once

#include "platform/NativeWindow.h"
#include "records/LocalizedString.h"
#include "records/StringBlock.h"
#include "records/TrackParam.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace orvane::plugins {

enum class PlugInKind : std::uint32_t { kExternal = 0, kZephor = 1, kQuellspire = 2 };

constexpr std::uint32_t kWantsIdle = 8; // a bit of the registered options: send idle messages

// Everything that a pointer argument of the operations points to is the caller's and is there during the call
// alone.
class VisualPlugIn {
public:
    VisualPlugIn(const VisualPlugIn&) = delete;
    VisualPlugIn& operator=(const VisualPlugIn&) = delete;

    // The operations, in slot order.
    virtual bool Initialize(); // 0: here true
    virtual bool ActivateInWindow(platform::NativeWindow window) = 0;
    virtual bool Deactivate() = 0;
    virtual void Reshape() = 0;
    virtual void Draw() = 0;
    virtual void Stop() = 0;
    virtual void Idle() = 0;
    virtual void SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) = 0; // 7
    // `renderData` claims to be records/AudioRenderData.h and holds `length` bytes.
    virtual std::uint64_t Pulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                                std::uint32_t pulsePosition) = 0; // 8
    // `audioFormat` is the block inside `trackParam`; neither is null.
    virtual void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                             const records::AudioFormatBlock* audioFormat,
                                             std::int32_t trackStartA, std::uint32_t trackStartB) = 0; // 9
    // True if the key was taken. Here false, whatever comes.
    virtual bool KeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers); // 10
    virtual void ParkLocalizedStrings(const records::LocalizedStrings& list); // 11: here nothing

    // Whether the player means this plug-in by the `length` units at `name`: exactly the display name, unit
    // by unit. A null name, an empty one and one of another length have a line each.
    [[nodiscard]] bool NameIs(const char16_t* name, std::uint16_t length) const;

    [[nodiscard]] PlugInKind Kind() const { return mKind; }

    [[nodiscard]] const records::StringBlock& Name() const { return mName; }

    [[nodiscard]] const records::StringBlock& DisplayName() const { return mDisplayName; }

    [[nodiscard]] const records::PathBlock& Path() const { return mPath; }

    // Null if it was never activated; kept after Deactivate.
    [[nodiscard]] platform::NativeWindow Window() const { return mWindow; }

    [[nodiscard]] std::uint32_t RegisteredWord0() const { return mRegisteredWord0; }

    [[nodiscard]] std::uint32_t Options() const { return mOptions; }

    [[nodiscard]] std::uint32_t RegisteredRate() const { return mRegisteredRate; }

    [[nodiscard]] std::uint32_t RegisteredWord1() const { return mRegisteredWord1; }

    [[nodiscard]] std::uint32_t RegisteredWord2() const { return mRegisteredWord2; }

    [[nodiscard]] std::span<const std::uint32_t, 4> RegisteredLimits() const { return mRegisteredLimits; }

    [[nodiscard]] std::span<const std::uint8_t, 4> RegisteredBytes() const { return mRegisteredBytes; }

    // The plug-in's own name, cut to 255 units. The display name stays as it is.
    void SetName(std::u16string_view name) { mName.Assign(name); }

protected:
    // `path` ends in a zero unit and is cut to 1,027 units. If it is null, a built-in's path is "Built-In" and
    // any other plug-in's is empty.
    VisualPlugIn(PlugInKind kind, const char16_t* path);

    // Neither virtual nor public: nobody deletes a plug-in (PlugInMemory.h). A class derived from this one
    // hides its own in the same way.
    ~VisualPlugIn() = default;

    // Fields marked "registered" come from a module's registration and are the constructor's for a built-in.
    PlugInKind mKind;
    std::uint32_t mRegisteredWord0 = 0; // registered
    std::uint32_t mOptions = 0;         // registered: kWantsIdle
    std::uint32_t mRegisteredRate;      // registered
    std::uint32_t mRegisteredWord1 = 0; // registered
    std::uint32_t mRegisteredWord2 = 0; // registered
    records::StringBlock mName;         // its own: a built-in's fixed title, or what a module registered
    records::StringBlock mDisplayName;  // what the player shows and selects by
    std::uint32_t mRegisteredLimits[4] = {};
    platform::NativeWindow mWindow;
    records::PathBlock mPath;
    std::uint8_t mRegisteredBytes[4] = {}; // registered
};

} // namespace orvane::plugins
