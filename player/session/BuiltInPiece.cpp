#include "player/session/BuiltInPiece.h"

#include "player/music/DemoSong.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace orvane::player {

namespace {

constexpr std::uint32_t kRate = 48000; // frames a second
constexpr char16_t kTitle[] = u"The built-in piece";
constexpr char16_t kArtist[] = u"Orvane";

// The song is made as it is read, so going back means making it anew up to there.
class BuiltInPiece final : public ISoundSource {
public:
    BuiltInPiece() { mSong.emplace(kRate); }

    [[nodiscard]] std::uint32_t Rate() const override { return kRate; }

    [[nodiscard]] std::int64_t Length() const override { return std::int64_t(mSong->Frames()); }

    [[nodiscard]] bool Seek(std::int64_t frame) override {
        if (frame < mNext) {
            mSong.emplace(kRate);
            mNext = 0;
        }
        std::array<StereoFrame, 1024> passed;
        while (mNext < frame) {
            const auto left = std::size_t(std::min<std::int64_t>(frame - mNext, std::int64_t(passed.size())));
            if (Read(std::span(passed).first(left)) == 0) break; // the end
        }
        return true;
    }

    [[nodiscard]] std::size_t Read(std::span<StereoFrame> frames) override {
        mSamples.resize(2 * frames.size());
        const std::size_t count = mSong->Read(mSamples);
        for (std::size_t i = 0; i < count; ++i) frames[i] = { mSamples[2 * i], mSamples[2 * i + 1] };
        mNext += std::int64_t(count);
        return count;
    }

private:
    std::optional<DemoSong> mSong;
    std::vector<float> mSamples; // left and right by turns
    std::int64_t mNext = 0;      // frame
};

} // namespace

Track OpenBuiltInPiece() {
    Track track;
    track.source = std::make_unique<BuiltInPiece>();
    track.texts.title = kTitle;
    track.texts.artist = kArtist;
    return track;
}

} // namespace orvane::player
