// One run of frames has one picture: whatever the form, the threads and the platform. The checksums are those that
// moving_picture.py, a second program, works out from the definition. The environment variable ORVANE_SOAK=1 asks
// for the long run.
#include "MovingPicture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace orvane::zephor {
namespace {

struct ChecksumRow {
    int frame;
    std::uint64_t checksum;
};

constexpr ChecksumRow kChecksums[] = {
    { 1, 0x117d5bb644a550f3 },
    { 60, 0xc10c17fb803f0b2d },
    { 600, 0x362c8491c61fcd6d },
    { 6000, 0xb90bd29663decac4 },
};
constexpr int kFrames = 600, kFramesOfSoak = 6000;

int FramesToRun() {
    const char* wish = std::getenv("ORVANE_SOAK");
    return wish && std::string(wish) == "1" ? kFramesOfSoak : kFrames;
}

void ExpectTheChecksums(int threads, FeedbackForm form) {
    tests::MovingPicture picture(threads, form);
    int frame = 0;
    for (const ChecksumRow& row : kChecksums) {
        if (row.frame > FramesToRun()) break;
        for (; frame < row.frame; ++frame) picture.Frame();
        EXPECT_EQ(picture.Checksum(), row.checksum)
            << NameOf(form) << " on " << threads << ", frame " << row.frame;
    }
}

TEST(MovingPicture, HasTheSameChecksumInEveryFormOnOneThread) {
    for (const FeedbackForm form : RunnableForms()) ExpectTheChecksums(1, form);
}

TEST(MovingPicture, HasTheSameChecksumInEveryFormOnTwoThreads) {
    for (const FeedbackForm form : RunnableForms()) ExpectTheChecksums(2, form);
}

} // namespace
} // namespace orvane::zephor
