// An account of the work that a player has posted to the host's main thread: what should be heard of it, so that a
// single piece that is lost shows.
//
// What is heard depends on the plug-in that is current when the main thread comes to the work. A deactivation takes
// its turn among the posted work; a selection doesn't, it overtakes all of it. The ledger keeps track of both, and
// tells its owner when to wait for the main thread, so that nothing is ever left to chance in the account: as seldom
// as can be, for it is the races that are wanted.
#pragma once

#include <array>
#include <cstddef>

namespace orvane::tests {

// Who may be current, as far as it makes a difference to what is heard.
enum class Who { kNobody, kBuiltIn, kCounter, kExample };
constexpr std::size_t kWhos = 4;

// What is posted and counted.
enum class Work { kIdle, kStop, kArtwork, kNoArtwork };
constexpr std::size_t kWorks = 4;

// Where a piece of work leaves its mark.
enum class Mark { kNone, kHostLine, kBuiltInLine, kCounted };
constexpr std::size_t kMarks = 4;

[[nodiscard]] Mark MarkOf(Work work, Who current);

class WorkLedger {
public:
    // Whether the main thread must have done everything before `chosen` may be selected: some of what is under way
    // would be heard otherwise than it was put down.
    [[nodiscard]] bool MustSettleBefore(Who chosen) const;
    void Selected(Who chosen);
    void DeactivationPosted();

    // Whether it is open who is current: a deactivation and a selection have crossed. Settle then, find out, and say.
    [[nodiscard]] bool IsOpen() const { return mOpen; }

    void FoundCurrent(bool somebody);

    // Work may be posted only while it isn't open who is current.
    void Posted(Work work);

    // The main thread has done everything that was posted.
    void Settled();

    [[nodiscard]] Who Current() const { return mCurrent; }

    // How much was posted, and where that should have left its marks.
    [[nodiscard]] int Sent(Work work) const;

    [[nodiscard]] int Marked(Work work, Mark mark) const {
        return mMarked[std::size_t(work)][std::size_t(mark)];
    }

private:
    Who mCurrent = Who::kNobody; // for what is posted next
    Who mChosen = Who::kNobody;  // the last selection
    bool mOpen = false;
    bool mDeactivationUnderWay = false;
    bool mUnderWay[kWorks][kMarks] = {}; // by the mark that was put down
    std::array<std::array<int, kMarks>, kWorks> mMarked = {};
};

} // namespace orvane::tests
