#include "CostLimit.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

// Only clang comes with the header.
#if defined(__clang__) && defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VEKA_COUNT_MEMORY
#include <sanitizer/allocator_interface.h>
#endif
#endif

namespace fuzz {

namespace {

constexpr double kSeconds = 0.5;  // for any input
constexpr double kNanosecondsAByte = 10'000;
constexpr double kBytes = 4e6;  // for any input
constexpr double kBytesAByte = 128;

double g_allocated = 0;
double g_peak = 0;

#ifdef VEKA_COUNT_MEMORY
void CountAllocated(const volatile void*, std::size_t size) {
    g_allocated += static_cast<double>(size);
    g_peak = std::max(g_peak, g_allocated);
}
void CountFreed(const volatile void* block) {
    if (block)
        g_allocated -= static_cast<double>(__sanitizer_get_allocated_size(const_cast<const void*>(block)));
}
#endif

double ProcessorTime() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void Require(double cost, double most, const char* unit) {
    if (cost <= most) return;
    std::fprintf(stderr, "the input costs too much: %g %s, %g are allowed\n", cost, unit, most);
    std::abort();
}

}  // namespace

CostLimit::CostLimit(std::size_t inputSize) : m_inputSize(inputSize), m_start(ProcessorTime()) {
#ifdef VEKA_COUNT_MEMORY
    static const int installed = __sanitizer_install_malloc_and_free_hooks(CountAllocated, CountFreed);
    if (installed == 0) std::abort();
#endif
    g_allocated = g_peak = 0;
}

CostLimit::~CostLimit() {
    const auto size = static_cast<double>(m_inputSize);
    Require(ProcessorTime() - m_start, kSeconds + kNanosecondsAByte * 1e-9 * size, "seconds");
    Require(g_peak, kBytes + kBytesAByte * size, "bytes");
}

}  // namespace fuzz
