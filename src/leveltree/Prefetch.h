#pragma once

namespace veka {

/// Lets the processor fetch memory that is needed soon, while it computes something else.
inline void Prefetch(const void* address) {
    __builtin_prefetch(address);
}

}  // namespace veka
