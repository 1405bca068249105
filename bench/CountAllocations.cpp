#include "CountAllocations.h"

#include <cstdlib>
#include <new>

std::atomic<std::int64_t> g_allocations{0};

void* operator new(std::size_t size) {
    ++g_allocations;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
