// A random walk: a player and a user who do all that there is to do, in no order. The same seed leads to the same
// steps; how they fall in time is the machine's affair, and is what the walk is for.
#pragma once

#include "system/UsageByTenths.h"
#include "system/windows/BuiltInsTest.h"
#include "system/windows/WorkLedger.h"

#include <chrono>
#include <map>
#include <random>
#include <span>

namespace orvane::tests {

class Walk : public BuiltInsTest {
protected:
    struct Step {
        int weight; // how often it is taken, among the sum of all
        const char* name;
        void (Walk::*take)();
        bool whileDragging; // also taken while the user holds the window
    };

    // The seed is the one of the environment variable ORVANE_WALK_SEED, or a fixed one.
    void SetUp() override;
    void TearDown() override;
    void StartProgram() override; // with the module "counter" in a folder too

    // Takes so many steps, and with `reconnectEvery` above 0 lets the player leave and come again behind every so
    // many. In front of them come `warmingUp` steps that count for no tenth. Ends at the first failure, and says
    // where.
    void Take(int steps, int reconnectEvery = 0, int warmingUp = 0);

    // Ends the host, and goes through all that it said: what was posted must have left its marks.
    void CloseTheBooks();

    std::optional<UsageByTenths> mUsageByTenths;
    int mReconnections = 0;

private:
    static std::span<const Step> Steps(); // the table

    // Requests of the player.
    void SendPulse();
    void SendDraw();
    void SendIdle();
    void SendStop();
    void SendArtwork();
    void SendNoArtwork();
    void SendTrack();
    void SendCutTrack();
    void SendKeys();
    void SendShow();
    void SendHide();
    void SendSelect();
    void SendActivate();
    void SendDeactivate();
    void SendEnterFullScreen();
    void SendExitFullScreen();
    void SendNames();
    void SendConsoleLine();
    void SendMove();
    void SendReshape();
    void SendUnknown();

    // The user's hands, and other programs'.
    void TypeCharacter();
    void PressKey();
    void PressAltEnter();
    void CommandSystem();
    void SizeFromOutside();
    void DragStrip();
    void DragCorner();

    const Step& Choose(bool whileDragging);
    void TakeStep();

    std::uint32_t Below(std::uint32_t end) { return std::uint32_t(mRandom() % end); }

    HWND EitherWindow() { return Below(2) ? mWindow : mProxy; }

    // A request, whose reply must come in time.
    [[nodiscard]] player::Bytes Exchange(const Bytes& request);
    void Expect(std::string_view reply, const Bytes& request);
    void Expect(std::string_view reply, std::string_view tag);

    // Work that the ledger keeps account of.
    void PostWork(Work work, const Bytes& request);
    void FindOutWhoIsCurrent();
    void ChooseVisualizer(Who who, std::string_view reply, const Bytes& request);

    // Waits until the main thread has done all that it was given so far. What the host said since the last time.
    std::string WaitForMainThread();
    void PostSystemCommand(WPARAM command);
    void ExpectSystemCommand(WPARAM command);

    void Reconnect();
    void BringWindowToItsPlace();
    void Drag(int x, int y);
    [[nodiscard]] bool IsBeingDragged() const;
    [[nodiscard]] std::string UnderMouse() const;
    void Rest(); // lets go of all that the host needs for drawing

    unsigned mSeed = 0;
    std::mt19937 mRandom;
    Bytes mSound;
    std::vector<Bytes> mImages;
    WorkLedger mLedger;
    unsigned mFences = 0, mDrags = 0;
    std::size_t mRead = 0; // of what the host said
    std::size_t mVisualizers = 0;
    double mLongestReply = 0;                  // seconds
    std::map<std::string, int> mExpectedLines; // how often each must have been said in the end
    std::map<std::string, int> mTaken;         // steps by name
};

} // namespace orvane::tests
