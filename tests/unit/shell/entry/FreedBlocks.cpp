#include "unit/shell/entry/FreedBlocks.h"

namespace {

orvane::tests::FreedBlocks* sWatching = nullptr;

} // namespace

extern "C" {
void __real_free(void* block);
void __wrap_free(void* block);

void __wrap_free(void* block) {
    if (!sWatching || !sWatching->Note(block)) __real_free(block);
}
}

namespace orvane::tests {

FreedBlocks::FreedBlocks() {
    sWatching = this;
}

FreedBlocks::~FreedBlocks() {
    sWatching = nullptr;
    for (const auto& watched : mWatched)
        if (watched.times > 0) __real_free(watched.block);
}

bool FreedBlocks::Note(const void* block) {
    for (auto& watched : mWatched) {
        if (watched.block != block) continue;
        ++watched.times;
        return true;
    }
    return false;
}

} // namespace orvane::tests
