#pragma once

#include <atomic>
#include <cstdint>

/// How often this process has allocated memory by `new`.
extern std::atomic<std::int64_t> g_allocations;
