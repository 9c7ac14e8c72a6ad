// A visualizer that lives in a separately built module.
//
// Each operation becomes a message to the handler that the module registered; one without a handler prints
// its line and does nothing. Calls are direct and unprotected: a module that crashes takes the host with it.
// 'Vpls' with its 'Vdrw' comes on the service thread, 'init' on whichever thread loads the module, all others
// on the main thread. What a module does to the floating-point control state doesn't outlast a call, and
// nothing in the host depends on the locale or the current folder, which a module may change.
#pragma once

#include "plugins/PlugInMemory.h"
#include "plugins/VisualPlugIn.h"
#include "plugins/external/Messages.h"

#include <string_view>

namespace orvane::plugins {

struct RegistrationRecord;

class ExternalVisualPlugIn : public VisualPlugIn {
public:
    // `module` is what FindPluginMain takes, or null.
    ExternalVisualPlugIn(const char16_t* path, void* module)
        : VisualPlugIn(PlugInKind::kExternal, path)
        , mModule(module) {}

    // Calls the module's entry with the host's callback. True exactly if that returns 0. Whether the module
    // registered a handler meanwhile isn't looked at.
    bool Initialize() override;
    // `window` is kept as soon as there is a handler, whether or not it takes the window.
    bool ActivateInWindow(platform::NativeWindow window) override;
    bool Deactivate() override;
    void Reshape() override;
    void Draw() override;
    void Stop() override;
    void Idle() override; // only for a module that asked for idle messages
    void SetArtwork(const std::uint8_t* data, std::uint32_t size, std::uint32_t format) override;
    // Sends the pulse and then a draw message. Returns what the module left in the pulse record.
    std::uint64_t Pulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                        std::uint32_t pulsePosition) override;
    void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                     const records::AudioFormatBlock* audioFormat, std::int32_t trackStartA,
                                     std::uint32_t trackStartB) override;

    // 'regv': takes the registration at `record` and sends the handler its 'init', whose status it returns;
    // kParamErr, with nothing stored, for a null record, another major version, or a null handler (which
    // could never be called, and must not replace one that can). Reads sizeof(RegistrationRecord) bytes, of
    // which nothing is taken on trust, and of another major version's record the two version words alone.
    std::int32_t Register(const void* record);

protected:
    ~ExternalVisualPlugIn() = default;

private:
    void Store(const RegistrationRecord& record);
    [[nodiscard]] bool HasHandler(std::string_view lineWithout) const;
    std::int32_t Send(std::uint32_t message, void* record = nullptr);

    void* mModule; // never unloaded
    PluginMain mPluginMain = nullptr;
    MessageHandler mVisualPluginProcPtr = nullptr; // once set, never null again
    void* mPluginRefCon = nullptr;                 // handed back to the handler on every call
    void* mRegisterRefCon = nullptr;               // given at registration, for the handler's 'init'
};

} // namespace orvane::plugins
