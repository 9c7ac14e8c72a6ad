// Which heap blocks have been freed: the linker hands every free() of this test program to us first
// (--wrap=free), so that a test can see whose hands a payload ended in.
#pragma once

#include <cstddef>
#include <vector>

namespace orvane::tests {

// Watches blocks while it lives; one at a time. A watched block is held back until then, so that its address
// isn't given out again and each free() seen is one of the block's own.
class FreedBlocks {
public:
    FreedBlocks();
    ~FreedBlocks();
    FreedBlocks(const FreedBlocks&) = delete;
    FreedBlocks& operator=(const FreedBlocks&) = delete;

    // Begins to watch `block`, a live one; returns it.
    template <class Block>
    Block* Watch(Block* block) {
        mWatched.push_back({ block, 0 });
        return block;
    }

    // How often the n-th watched block was freed.
    [[nodiscard]] int Times(std::size_t n) const { return mWatched.at(n).times; }

    // Counts a free(). True if the block is a watched one.
    bool Note(const void* block);

private:
    struct Watched {
        void* block;
        int times;
    };

    std::vector<Watched> mWatched;
};

} // namespace orvane::tests
