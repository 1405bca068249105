#include "failures/Failures.h"

#include <sys/types.h>

#include <cstdlib>
#include <new>

namespace {

std::size_t g_allocationsLeft = 0;  // up to the failing one; 0 where none fails
bool g_allocationFailed = false;
std::size_t g_readsLeft = 0;  // up to the first failing one; 0 where none fails
bool g_readFailed = false;

bool AllocationFails() {
    if (g_allocationsLeft == 0 || --g_allocationsLeft > 0) return false;
    g_allocationFailed = true;
    return true;
}

bool ReadFails() {
    if (g_readsLeft > 0 && --g_readsLeft == 0) g_readFailed = true;
    return g_readFailed;
}

void* Allocate(std::size_t size) {
    void* block = AllocationFails() ? nullptr : std::malloc(size > 0 ? size : 1);
    if (!block) throw std::bad_alloc();
    return block;
}

}  // namespace

test::FailingAllocation::FailingAllocation(std::size_t number) {
    g_allocationFailed = false;
    g_allocationsLeft = number;
}
test::FailingAllocation::~FailingAllocation() {
    g_allocationsLeft = 0;
}
bool test::FailingAllocation::Happened() const {
    return g_allocationFailed;
}

test::FailingRead::FailingRead(std::size_t number) {
    g_readsLeft = number;
}
test::FailingRead::~FailingRead() {
    g_readsLeft = 0;
    g_readFailed = false;
}

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

// The linker puts these in the place of the C library's.
extern "C" {

void* __real_realloc(void* block, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size) {
    return AllocationFails() ? nullptr : __real_realloc(block, size);
}

#ifdef _WIN32
// Here a call goes through a pointer that the import library holds.
using ReadFunction = int (*)(int, void*, unsigned);
extern ReadFunction __real___imp__read;
ReadFunction __wrap___imp__read = [](int file, void* buffer, unsigned size) {
    return ReadFails() ? -1 : __real___imp__read(file, buffer, size);
};
#else
ssize_t __real_read(int file, void* buffer, std::size_t size);
ssize_t __wrap_read(int file, void* buffer, std::size_t size) {
    return ReadFails() ? -1 : __real_read(file, buffer, size);
}
#endif
}
