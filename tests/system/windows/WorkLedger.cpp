#include "system/windows/WorkLedger.h"

#include <numeric>

namespace orvane::tests {

namespace {

// A row for each Work, a column for each Who. A stop that meets nobody, and the example module, say nothing; a module
// isn't told that there is no artwork.
constexpr Mark kMarkOf[kWorks][kWhos] = {
    { Mark::kHostLine, Mark::kBuiltInLine, Mark::kCounted, Mark::kNone },
    { Mark::kNone, Mark::kBuiltInLine, Mark::kCounted, Mark::kNone },
    { Mark::kHostLine, Mark::kBuiltInLine, Mark::kCounted, Mark::kNone },
    { Mark::kHostLine, Mark::kBuiltInLine, Mark::kNone, Mark::kNone },
};

} // namespace

Mark MarkOf(Work work, Who current) {
    return kMarkOf[std::size_t(work)][std::size_t(current)];
}

bool WorkLedger::MustSettleBefore(Who chosen) const {
    for (std::size_t work = 0; work < kWorks; ++work)
        for (std::size_t mark = 0; mark < kMarks; ++mark)
            if (mUnderWay[work][mark] && MarkOf(Work(work), chosen) != Mark(mark)) return true;
    return false;
}

void WorkLedger::Selected(Who chosen) {
    mOpen = mDeactivationUnderWay && chosen != Who::kNobody;
    mCurrent = mChosen = chosen;
}

void WorkLedger::DeactivationPosted() {
    mDeactivationUnderWay = true;
    mOpen = false; // whoever it is by then, nobody is behind it
    mCurrent = Who::kNobody;
}

void WorkLedger::FoundCurrent(bool somebody) {
    mOpen = false;
    mCurrent = somebody ? mChosen : Who::kNobody;
}

void WorkLedger::Posted(Work work) {
    const auto mark = std::size_t(MarkOf(work, mCurrent));
    ++mMarked[std::size_t(work)][mark];
    mUnderWay[std::size_t(work)][mark] = true;
}

void WorkLedger::Settled() {
    mDeactivationUnderWay = false;
    for (auto& marks : mUnderWay)
        for (bool& mark : marks) mark = false;
}

int WorkLedger::Sent(Work work) const {
    const auto& marks = mMarked[std::size_t(work)];
    return std::accumulate(marks.begin(), marks.end(), 0);
}

} // namespace orvane::tests
