// Where the operations of a class stand in its virtual table.
//
// A pointer to a virtual member holds its place in the table, in both compilers' ABI: one more than the offset
// in bytes. A destructor takes two places there and one slot in a contract.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace orvane::tests {

template <typename Member>
std::size_t PlaceOf(Member member) {
    std::ptrdiff_t words[2];
    static_assert(sizeof member == sizeof words);
    std::memcpy(words, &member, sizeof words);
    EXPECT_EQ(words[0] % 2, 1) << "not virtual";
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
}

struct SlotRow {
    std::size_t slot;
    const char* operation;
    std::size_t place;
};

#define ORVANE_SLOT(number, type, operation)                                                                 \
    ::orvane::tests::SlotRow {                                                                               \
        number, #operation, ::orvane::tests::PlaceOf(&type::operation)                                       \
    }

// Every slot but the destructor's has one row.
inline void ExpectSlotOrder(const std::vector<SlotRow>& rows, std::size_t firstSlot,
                            std::size_t destructorSlot) {
    std::size_t expectedSlot = firstSlot;
    for (const SlotRow& row : rows) {
        if (expectedSlot == destructorSlot) ++expectedSlot;
        EXPECT_EQ(row.slot, expectedSlot++) << row.operation;
        EXPECT_EQ(row.place, row.slot > destructorSlot ? row.slot + 1 : row.slot) << row.operation;
    }
}

} // namespace orvane::tests
