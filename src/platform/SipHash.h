#pragma once

#include <cstdint>
#include <string_view>

namespace veka {

/// The secret of a keyed hash.
struct SipKey {
    std::uint64_t first = 0;
    std::uint64_t second = 0;
};

/// SipHash-2-4 of a text. Nobody can choose texts whose hashes collide without knowing the key.
std::uint64_t SipHash(const SipKey& key, std::string_view text) noexcept;

/// The key of this process. It is random, and the same for each call.
const SipKey& ProcessKey() noexcept;

}  // namespace veka
