#include "player/music/Room.h"

namespace orvane::player {

namespace {

constexpr float kEchoAgain = 0.45f; // of each echo comes another
constexpr double kEchoDullness = 6e-5;
constexpr double kRoomDullness = 4e-5; // seconds to 1/e: a gentle loss of treble at each turn
constexpr float kRoomAgain = 0.84f;
constexpr double kRoomSeconds[] = { 0.0297, 0.0371, 0.0411, 0.0437 }; // with no common measure

std::size_t FramesIn(double seconds, double framesPerSecond) {
    return std::size_t(seconds * framesPerSecond);
}

} // namespace

Echo::Echo(double framesPerSecond, double seconds)
    : mDull(FallPerFrame(kEchoDullness, framesPerSecond))
    , mLeft(FramesIn(seconds, framesPerSecond))
    , mRight(FramesIn(seconds, framesPerSecond)) {}

Frame Echo::Next(const Frame& in) {
    const Frame out = { mLeft.Oldest(), mRight.Oldest() };
    mLeft.Put(in.left + mRightDamp.Toward(out.right, mDull) * kEchoAgain);
    mRight.Put(in.right + mLeftDamp.Toward(out.left, mDull) * kEchoAgain);
    return out;
}

Room::Room(double framesPerSecond)
    : mDull(FallPerFrame(kRoomDullness, framesPerSecond))
    , mDelays{ Delay(FramesIn(kRoomSeconds[0], framesPerSecond)),
               Delay(FramesIn(kRoomSeconds[1], framesPerSecond)),
               Delay(FramesIn(kRoomSeconds[2], framesPerSecond)),
               Delay(FramesIn(kRoomSeconds[3], framesPerSecond)) } {}

Frame Room::Next(const Frame& in) {
    std::array<float, 4> out;
    float sum = 0;
    for (std::size_t i = 0; i < out.size(); ++i) sum += out[i] = mDelays[i].Oldest();
    // Each goes back less half the sum of all: a turn of the four, which neither gains nor loses.
    for (std::size_t i = 0; i < out.size(); ++i) {
        const float turned = (out[i] - sum / 2) * kRoomAgain;
        mDelays[i].Put(mDamps[i].Toward(turned, mDull) + (i % 2 == 0 ? in.left : in.right));
    }
    return { out[0] + out[2], out[1] + out[3] };
}

} // namespace orvane::player
