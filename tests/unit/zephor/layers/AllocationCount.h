// Every allocation of the program counted, and made to fail on demand.
#pragma once

#include <cstddef>

namespace orvane::tests {

// Calls of operator new, malloc and calloc so far, by all threads.
[[nodiscard]] std::size_t Allocations();

// While one lives, every allocation fails.
class NoMemory {
public:
    NoMemory();
    ~NoMemory();
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
};

} // namespace orvane::tests
