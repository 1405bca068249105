#pragma once

#include <cassert>

/// Ends the program if a precondition does not hold, in builds without `NDEBUG`. In a release the condition
/// must compile, but is not evaluated.
#ifdef NDEBUG
#define VEKA_ASSERT(...) static_cast<void>(sizeof((__VA_ARGS__) ? 1 : 0))
#else
#define VEKA_ASSERT(...) assert((__VA_ARGS__))
#endif
