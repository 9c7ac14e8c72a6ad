// Runs the feedback step, frame after frame, from what it has prepared of the field.
#pragma once

#include "zephor/layers/FeedbackForm.h"
#include "zephor/layers/FeedbackStep.h"
#include "zephor/layers/FetchPlan.h"
#include "zephor/layers/SliceThreads.h"

#include <memory>
#include <vector>

namespace orvane::zephor {

class FeedbackEngine {
public:
    // `threads` counts the caller's.
    explicit FeedbackEngine(int threads = 1, FeedbackForm form = BestForm());

    // One step. `fieldVersion` tells fields apart: the preparations of the last step are used again as long
    // as it, the size and the slice count stay. Without memory for the preparations the step is done by its
    // definition. Allocates nothing while nothing changes.
    void Step(const FeedbackImages& images, const FeedbackField& field, std::uint64_t fieldVersion,
              int sliceCount);

    // Another form from the next step on.
    void UseForm(FeedbackForm form);

    [[nodiscard]] FeedbackForm Form() const { return mForm; }

    // Bytes held for the current field, for measurements.
    [[nodiscard]] std::size_t PreparedBytes() const;

private:
    struct Prepared {
        std::uint64_t fieldVersion = 0;
        int width = 0, height = 0, sliceCount = 0;
        bool operator==(const Prepared&) const = default;
    };

    [[nodiscard]] bool Prepare(const FeedbackField& field, const Prepared& wanted);
    [[nodiscard]] bool PrepareAveraged(int width, int height);
    void Average(const FeedbackImages& images, int slice);
    void Fetch(const FeedbackImages& images, int slice);

    SliceThreads mThreads;
    FeedbackForm mForm;
    Prepared mPrepared;            // a width of 0: nothing is
    std::vector<FetchPlan> mPlans; // one for each slice
    std::unique_ptr<std::uint8_t[]> mAveraged;
    std::ptrdiff_t mAveragedRowBytes = 0;
};

} // namespace orvane::zephor
