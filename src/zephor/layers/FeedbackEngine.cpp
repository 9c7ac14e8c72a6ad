#include "zephor/layers/FeedbackEngine.h"

#include "zephor/layers/AverageRows.h"
#include "zephor/layers/FetchRows.h"

#include <new>

namespace orvane::zephor {

namespace {

constexpr std::ptrdiff_t kCacheLine = 64;
// Rows a multiple of this apart fall on the same few places of a cache.
constexpr std::ptrdiff_t kPage = 4096;

std::ptrdiff_t AveragedRowBytes(int width) {
    const std::ptrdiff_t lines = (width + kCacheLine - 1) / kCacheLine * kCacheLine;
    return lines % kPage == 0 ? lines + kCacheLine : lines;
}

} // namespace

FeedbackEngine::FeedbackEngine(int threads, FeedbackForm form)
    : mThreads(threads)
    , mForm(form) {}

void FeedbackEngine::UseForm(FeedbackForm form) {
    mForm = form;
    mPrepared = {};
}

std::size_t FeedbackEngine::PreparedBytes() const {
    std::size_t bytes = 0;
    for (const FetchPlan& plan : mPlans) bytes += plan.Size();
    return bytes;
}

void FeedbackEngine::Step(const FeedbackImages& images, const FeedbackField& field,
                          std::uint64_t fieldVersion, int sliceCount) {
    if (images.width < 1 || images.height < 1) return;
    if (field.width < images.width || field.height < images.height) return;
    const Prepared wanted{ fieldVersion, images.width, images.height, sliceCount };
    if (mForm == FeedbackForm::Definition || !(mPrepared == wanted || Prepare(field, wanted))) {
        const auto work = [&](int i) {
            FeedbackRows(images, field, RowsOfSlice(images.height, sliceCount, i));
        };
        mThreads.Run(sliceCount, work);
        return;
    }
    // A row is fed by any other, so all are averaged before the first is fetched.
    mThreads.Run(sliceCount, [&](int i) { Average(images, i); });
    mThreads.Run(sliceCount, [&](int i) { Fetch(images, i); });
}

bool FeedbackEngine::Prepare(const FeedbackField& field, const Prepared& wanted) {
    const bool isSameSize = mPrepared.width == wanted.width && mPrepared.height == wanted.height;
    mPrepared = {};
    try {
        if (!isSameSize && !PrepareAveraged(wanted.width, wanted.height)) return false;
        mPlans.resize(std::size_t(wanted.sliceCount));
        std::atomic<bool> failed{ false };
        mThreads.Run(wanted.sliceCount, [&](int i) {
            try {
                mPlans[std::size_t(i)].Build(field, wanted.width, wanted.height, mAveragedRowBytes,
                                             RowsOfSlice(wanted.height, wanted.sliceCount, i), mForm);
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        });
        if (failed) return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
    mPrepared = wanted;
    return true;
}

bool FeedbackEngine::PrepareAveraged(int width, int height) {
    mAveragedRowBytes = AveragedRowBytes(width);
    // A window may begin at the last pixel.
    const std::size_t bytes = std::size_t(mAveragedRowBytes) * std::size_t(height) + kBlockPixels;
    mAveraged.reset(new (std::nothrow) std::uint8_t[bytes]());
    return mAveraged != nullptr;
}

void FeedbackEngine::Average(const FeedbackImages& images, int slice) {
    const AverageRowFunction averageRow = AverageRowOf(mForm);
    const RowRange rows = RowsOfSlice(images.height, mPrepared.sliceCount, slice);
    for (int y = rows.first; y < rows.end; ++y) {
        const std::uint8_t* const upper = images.source + y * images.sourceRowBytes;
        const std::uint8_t* const lower = y + 1 < images.height ? upper + images.sourceRowBytes : upper;
        averageRow(upper, lower, mAveraged.get() + y * mAveragedRowBytes, images.width);
    }
}

void FeedbackEngine::Fetch(const FeedbackImages& images, int slice) {
    const FetchRowFunction fetchRow = FetchRowOf(mForm);
    const RowRange rows = RowsOfSlice(images.height, mPrepared.sliceCount, slice);
    const std::byte* plan = mPlans[std::size_t(slice)].Data();
    for (int y = rows.first; y < rows.end; ++y)
        plan = fetchRow(plan, mAveraged.get(), images.target + y * images.targetRowBytes, images.width);
}

} // namespace orvane::zephor
