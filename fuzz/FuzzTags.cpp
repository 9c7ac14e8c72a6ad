// Any bytes as a music file: nothing is read outside them, and what comes of them fits into a track and a
// request. The file lies in a heap block of exactly its size.
#include "player/tags/Tags.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

using namespace orvane::player;

constexpr std::size_t kLongestTrackText = 255;

void Require(bool condition) {
    if (!condition) std::abort();
}

// The walk through a file ends, however its parts hang together.
class CountedSource final : public IByteSource {
public:
    explicit CountedSource(std::span<const std::uint8_t> bytes)
        : mBytes(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return mBytes.Size(); }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override {
        Require(++mReads <= kMostReads);
        return mBytes.Read(at, out);
    }

private:
    BytesSource mBytes;
    std::uint64_t mReads = 0;
};

bool IsText(const std::u16string& text) {
    return text.size() <= kLongestTrackText &&
           std::ranges::none_of(text, [](char16_t unit) { return unit < u' '; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto file = std::make_unique<std::uint8_t[]>(size);
    std::copy_n(data, size, file.get());
    CountedSource source({ file.get(), size });
    const Tags tags = ReadTags(source, {});
    for (const auto* text : { &tags.title, &tags.artist, &tags.album }) Require(IsText(*text));
    Require(tags.cover.size() <= std::min(size, kLargestCover));
    return 0;
}
