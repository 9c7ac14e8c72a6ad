#include "AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> sAllocations{ 0 };
std::atomic<bool> sIsExhausted{ false };

} // namespace

// The linker puts these in the place of malloc and calloc.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);

void* __wrap_malloc(std::size_t size) {
    ++sAllocations;
    return sIsExhausted ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    ++sAllocations;
    return sIsExhausted ? nullptr : __real_calloc(count, size);
}
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return __wrap_malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
    void* const block = operator new(size, std::nothrow);
    if (!block) throw std::bad_alloc();
    return block;
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return operator new(size, std::nothrow);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete[](void* block) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace orvane::tests {

std::size_t Allocations() {
    return sAllocations;
}

NoMemory::NoMemory() {
    sIsExhausted = true;
}

NoMemory::~NoMemory() {
    sIsExhausted = false;
}

} // namespace orvane::tests
