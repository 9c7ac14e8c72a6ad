// The thirty operations of the server, through which requests and posted work reach it.
//
// The bodies here are those of a server that does nothing yet: each says that it wants to be overridden and
// answers. Operations named after a request run on the service thread, write the request's one reply and
// return whether it was written at once (IExchange::WriteReply); operations named ...MainThread run on the
// main thread and write none.
//
// The order of the operations is part of the contract; the numbers are their slots.
#pragma once

#include "shell/dispatch/Exchange.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace orvane::records {
struct ArtworkRecord;
}

namespace orvane::shell {

class RequestOperations {
public:
    explicit RequestOperations(std::unique_ptr<IExchange> exchange)
        : mExchange(std::move(exchange)) {}

    RequestOperations(const RequestOperations&) = delete;
    RequestOperations& operator=(const RequestOperations&) = delete;

    virtual ~RequestOperations() = default;                 // 0
    virtual bool Initialize(std::uint8_t messageMode) = 0;  // 1: makes ready to serve; false if it can't
    virtual bool HandleUPVMMessage();                       // 2: 'UPVM'; writes no reply here
    virtual bool PulseVisualizer();                         // 3: 'PULS'
    virtual bool KeyInputVisualizer();                      // 4: 'KEYI'
    virtual bool ActivateVisualizerWindow();                // 5: no tag reaches it
    virtual bool ShowVisualizerWindow();                    // 6: 'SWND'
    virtual bool ShowVisualizerWindowAndSelectVisualizer(); // 7: 'SWSV'
    virtual bool HideVisualizerWindow();                    // 8: 'HWND'
    virtual bool EnterFullscreen();                         // 9: 'NTFS'
    virtual bool ExitFullscreen();                          // 10: 'XTFS'
    virtual bool PostMessageToConsole();                    // 11: 'PM2C'
    virtual bool DeactivateVisualizer();                    // 12: 'DCTV'
    virtual bool StartVisualizerPlaybackWithTrackInfo();    // 13: 'STRT'
    virtual void StartVisualizerWithTrackParam();           // 14: main thread
    virtual bool DrawVisualizer();                          // 15: 'DRAW'
    virtual bool IdleVisualizer();                          // 16: 'IDLE'
    virtual bool StopVisualizer();                          // 17: 'STOP'
    virtual void Reserved18();                              // 18: called by nobody
    virtual void ShapeVisualizerInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                             std::uint32_t d); // 19: no class overrides it
    virtual void DrawVisualizerInMainThread();                 // 20
    virtual void StopVisualizerInMainThread();                 // 21
    virtual void IdleVisualizerInMainThread();                 // 22
    virtual void DeactivateVisualizerOnMainThread();           // 23
    virtual bool MoveVisualizer();                             // 24: 'MOVW'; no class overrides it
    virtual bool ReshapeVisualizer();                          // 25: 'RSHP'
    virtual bool ActivateVisualizer();                         // 26: 'ACTV'
    virtual void ActivateProxyWindowInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                                 std::uint32_t d);             // 27
    virtual void SetArtworkInMainThread(const records::ArtworkRecord* record); // 28: the caller frees it
    virtual bool SetArtworkVisualizer(std::uint32_t format); // 29: 'NOAR' 0, 'AR13' 13, 'AR14' 14

protected:
    // Writes `reply` as the whole reply.
    bool Answer(std::string_view reply);

    [[nodiscard]] IExchange& Exchange() { return *mExchange; }

private:
    bool OverrideMe(std::string_view line);

    const std::unique_ptr<IExchange> mExchange;
};

} // namespace orvane::shell
