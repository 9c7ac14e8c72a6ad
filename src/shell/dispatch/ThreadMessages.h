// The private thread messages by which the service thread hands work to the main thread.
//
// A payload travels in lParam and is a heap record of the C runtime's allocator. A successful post passes it
// to the main thread, which frees it; a failed post leaves it with the poster.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace orvane::shell {

enum ThreadMessage : std::uint32_t {
    MESSAGE_START_VISUALIZER = 32968,
    // 32969 is not used
    MESSAGE_ACTVT_VISUALIZER = 32970, // payload: none, or a FourWords of zeros
    MESSAGE_SHAPE_VISUALIZER = 32971, // payload: FourWords
    MESSAGE_DRAWV_VISUALIZER = 32972,
    MESSAGE_STOPV_VISUALIZER = 32973,
    MESSAGE_IDLEV_VISUALIZER = 32974,
    MESSAGE_ARTWK_VISUALIZER = 32975, // payload: records::ArtworkRecord
    MESSAGE_DEACT_VISUALIZER = 32976,
};

struct FourWords {
    std::uint32_t values[4];
};

struct FourWordsFreer {
    void operator()(FourWords* words) const { std::free(words); }
};

using FourWordsOwner = std::unique_ptr<FourWords, FourWordsFreer>;

// A new record of zeros; null if memory is short.
[[nodiscard]] inline FourWordsOwner MakeFourWords() {
    return FourWordsOwner(static_cast<FourWords*>(std::calloc(1, sizeof(FourWords))));
}

} // namespace orvane::shell
