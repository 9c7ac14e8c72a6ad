// A host for one module, in the test's own process: loads the DLL, answers its callback as the contract says,
// and sends messages. It knows nothing of the real host's code, so that the modules and the example are
// tested against the contract and the host can be tested against the modules.
#pragma once

#include "orvane_plugin.h"

#include <filesystem>
#include <vector>
#include <windows.h>

namespace orvane::tests {

class PlayedHost {
public:
    // Loads the module and looks its entry up. It is never unloaded, as in the real host.
    explicit PlayedHost(const std::filesystem::path& module);
    PlayedHost(const PlayedHost&) = delete;
    PlayedHost& operator=(const PlayedHost&) = delete;

    [[nodiscard]] bool HasEntry() const { return mEntry != nullptr; }

    // Calls the entry with 'init'. The module registers meanwhile.
    std::int32_t Enter();

    // Sends a message to the registered handler.
    std::int32_t Send(std::uint32_t message, void* record = nullptr);
    std::int32_t Activate(HWND window);
    std::int32_t Play(const OrvaneTrack& track);
    // The pulse and the draw behind it. Returns the pulse's result field.
    std::uint64_t Pulse(const OrvaneRenderData& sound, std::uint32_t stamp, std::uint32_t position = 0);

    // What came through the callback.
    std::vector<OrvaneRegisterRecord> mRegistered; // accepted ones
    std::vector<std::uint32_t> mMessages;          // all messages, in order; other threads' too
    std::uint32_t mNullRecords = 0;

private:
    using EntryProc = std::int32_t (*)(std::uint32_t, OrvaneEntryRecord*, void*);

    static std::int32_t HostProc(void* cookie, std::uint32_t message, void* record);
    std::int32_t Register(const OrvaneRegisterRecord* record);

    EntryProc mEntry = nullptr;
    OrvaneHandlerProc mHandler = nullptr;
    void* mRefcon = nullptr;
    SRWLOCK mLock = SRWLOCK_INIT; // guards mMessages
};

// The folder of the running test program: build products lie beside it.
[[nodiscard]] std::filesystem::path ProgramFolder();

} // namespace orvane::tests
