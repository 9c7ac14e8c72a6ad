// UTF-16 text in a block of fixed size, as requests carry it and records keep it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvane::records {

// A count and room for `Capacity` UTF-16 units. Zeroed before it is filled, so a shorter text ends in a zero
// unit; a full block has no terminator of its own. A block that came from outside may claim more units than
// it has: View() never goes beyond the block.
template <std::size_t Capacity>
struct UnitBlock {
    static constexpr std::size_t kCapacity = Capacity;

    std::uint16_t count = 0;
    char16_t units[Capacity] = {};

    [[nodiscard]] std::u16string_view View() const {
        return { units, std::min<std::size_t>(count, Capacity) };
    }

    // Takes the first `Capacity` units of `text`, which may be a part of this block's own; the rest of the
    // block becomes zero.
    void Assign(std::u16string_view text) {
        text = text.substr(0, Capacity);
        UnitBlock filled;
        filled.count = std::uint16_t(text.size());
        std::copy(text.begin(), text.end(), filled.units);
        *this = filled;
    }

    bool operator==(const UnitBlock&) const = default;
};

using StringBlock = UnitBlock<255>; // names and track texts
using PathBlock = UnitBlock<1027>;  // a module's path

static_assert(sizeof(StringBlock) == 512 && offsetof(StringBlock, units) == 2);
static_assert(sizeof(PathBlock) == 2 + 2 * 1027);

} // namespace orvane::records
