// Building a delta field beside the same loop on the C library's functions, in the Windows build, whose C library is
// another one. Prints a line for each job; the runs of both take turns, and the shortest of each counts.
#include "../../SameAnswer.h"
#include "../LibmField.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using namespace orvane::benches;
using namespace orvane::zephor;

constexpr int kRuns = 15;
constexpr int kStorageKind = 5;
constexpr FieldSize kSizes[] = { { 1002, 802 }, { 1922, 1082 }, { 3840, 2160 } };

template <class Work>
double Milliseconds(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void MeasureJob(const MeasuredMember& member, FieldSize size) {
    ZephorLayerNextDeltaField field(kStorageKind);
    field.Resize(size.width, size.height);
    Cells cells(std::size_t(size.width) * std::size_t(size.height));
    const auto functor = MakeMeasured(member.name);
    double own = 1e9, libm = 1e9;
    for (int run = 0; run < kRuns; ++run) {
        own = std::min(own, Milliseconds([&] { ComputeDeltaField(field, *functor); }));
        libm = std::min(libm, Milliseconds([&] { member.byLibm(size, cells); }));
        RequireSameAnswer(NearlyTheSame(field, cells), member.name);
    }
    std::printf("DeltaField/%s-%d, Windows build: own %.2f ms, libm %.2f ms, ratio %.2f\n", member.job,
                size.width, own, libm, libm / own);
}

} // namespace

int main() {
    for (const MeasuredMember& member : kMeasuredMembers)
        for (const FieldSize size : kSizes) MeasureJob(member, size);
}
