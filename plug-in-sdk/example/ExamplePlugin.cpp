// "Orvane Oscilloscope", the example module: how a visualizer is entered, registered and driven. What it
// draws is in Oscilloscope.h; this file is the part that every module has in some form.
#include "Oscilloscope.h"
#include "orvane_plugin.h"

#include <mutex>
#include <new>
#include <string_view>

namespace example {
namespace {

constexpr std::u16string_view kName = u"Orvane Oscilloscope";
constexpr std::uint32_t kPulsesPerSecond = 60;

// Pulses and the draws behind them come on the service thread, all else on the main thread, and a draw can
// come on both at once. One lock around everything is enough, because nothing here waits while it is held:
// no message is sent to the window, which belongs to the main thread; asking its size and copying pixels
// into it wait for nobody.
class Module {
public:
    std::int32_t Handle(std::uint32_t message, void* record) {
        const std::lock_guard lock(mLock);
        switch (message) {
        case ORVANE_MSG_INIT:
            return ORVANE_OK;
        case ORVANE_MSG_ACTIVATE:
            return Activate(*static_cast<const OrvaneActivateRecord*>(record));
        case ORVANE_MSG_DEACTIVATE:
            return Deactivate();
        case ORVANE_MSG_PULSE:
            return TakeSound(*static_cast<const OrvanePulseRecord*>(record));
        case ORVANE_MSG_PLAY:
            mOscilloscope.SetTrack(*static_cast<const OrvanePlayRecord*>(record)->track);
            return ORVANE_OK;
        case ORVANE_MSG_STOP:
            mOscilloscope.Stop();
            return Draw();
        case ORVANE_MSG_DRAW:
        case ORVANE_MSG_FRAME_CHANGED:
            return Draw();
        case ORVANE_MSG_IDLE:
            return mOscilloscope.IsAtRest() ? ORVANE_OK : Draw();
        default:
            return ORVANE_UNIMPLEMENTED;
        }
    }

private:
    std::int32_t Activate(const OrvaneActivateRecord& record) {
        mWindow = static_cast<HWND>(record.window);
        return Draw();
    }

    std::int32_t Deactivate() {
        mWindow = nullptr;
        mOscilloscope.Release();
        return ORVANE_OK;
    }

    // The sound is copied: it is gone when the call returns. Without a stamp there is none.
    std::int32_t TakeSound(const OrvanePulseRecord& record) {
        if (record.stamp != 0 && record.renderData) mOscilloscope.SetSound(*record.renderData);
        return ORVANE_OK;
    }

    std::int32_t Draw() {
        if (mWindow) mOscilloscope.Draw(mWindow, Now());
        return ORVANE_OK;
    }

    static double Now() {
        LARGE_INTEGER ticks, perSecond;
        QueryPerformanceCounter(&ticks);
        QueryPerformanceFrequency(&perSecond);
        return double(ticks.QuadPart) / double(perSecond.QuadPart);
    }

    std::mutex mLock;
    HWND mWindow = nullptr; // null between deactivation and activation: then there is nothing to draw on
    Oscilloscope mOscilloscope;
};

// Made on the first registration and never destroyed: the module stays loaded until the process is gone,
// where windows and threads may have ended already.
Module* sModule = nullptr;

// No exception may leave a handler; the only one that can arise here is a lack of memory.
std::int32_t HandleMessage(std::uint32_t message, void* record, void* refcon) {
    try {
        return static_cast<Module*>(refcon)->Handle(message, record);
    } catch (const std::bad_alloc&) {
        return ORVANE_UNIMPLEMENTED;
    }
}

std::int32_t Register(const OrvaneEntryRecord& entry) {
    if (!sModule) sModule = new (std::nothrow) Module;
    if (!sModule) return ORVANE_UNIMPLEMENTED;
    OrvaneRegisterRecord record = {};
    record.majorVersion = ORVANE_MAJOR_VERSION;
    record.minorVersion = ORVANE_MINOR_VERSION;
    record.name.count = std::uint16_t(kName.size());
    for (std::size_t i = 0; i < kName.size(); ++i) record.name.units[i] = kName[i];
    record.options = ORVANE_OPTION_IDLE;
    record.rate = kPulsesPerSecond;
    record.handler = &HandleMessage;
    record.refcon = sModule;
    return entry.hostProc(entry.hostCookie, ORVANE_HOST_REGISTER, &record);
}

} // namespace
} // namespace example

int32_t OrvanePluginMain(uint32_t message, OrvaneEntryRecord* record, void*) {
    if (message != ORVANE_MSG_INIT) return ORVANE_UNIMPLEMENTED;
    if (!record || record->majorVersion != ORVANE_MAJOR_VERSION) return ORVANE_BAD_PARAMETER;
    return example::Register(*record);
}
