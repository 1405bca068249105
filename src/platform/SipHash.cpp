#include "platform/SipHash.h"

#include <bit>
#include <chrono>
#include <cstddef>
#include <exception>
#include <random>

namespace veka {

namespace {

/// The number of up to 8 bytes, the first byte the lowest.
std::uint64_t Word(const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < count; ++i)
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << 8 * i;
    return word;
}

/// The four words that the hash is made of.
class SipState {
public:
    explicit SipState(const SipKey& key)
        : m_0(key.first ^ 0x736f6d6570736575),
          m_1(key.second ^ 0x646f72616e646f6d),
          m_2(key.first ^ 0x6c7967656e657261),
          m_3(key.second ^ 0x7465646279746573) {}

    void Add(std::uint64_t word) {
        m_3 ^= word;
        Round();
        Round();
        m_0 ^= word;
    }
    std::uint64_t Finish() {
        m_2 ^= 0xff;
        for (int i = 0; i < 4; ++i) Round();
        return m_0 ^ m_1 ^ m_2 ^ m_3;
    }

private:
    void Round() {
        m_0 += m_1;
        m_2 += m_3;
        m_1 = std::rotl(m_1, 13) ^ m_0;
        m_3 = std::rotl(m_3, 16) ^ m_2;
        m_0 = std::rotl(m_0, 32);
        m_2 += m_1;
        m_0 += m_3;
        m_1 = std::rotl(m_1, 17) ^ m_2;
        m_3 = std::rotl(m_3, 21) ^ m_0;
        m_2 = std::rotl(m_2, 32);
    }

    std::uint64_t m_0, m_1, m_2, m_3;
};

SipKey MakeKey() noexcept {
    // On a system without random numbers the key is only the time and an address of the stack.
    const auto time = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    SipKey key;
    key.first = static_cast<std::uint64_t>(time);
    key.second = reinterpret_cast<std::uintptr_t>(&key);
    try {
        std::random_device random;
        key.first ^= std::uint64_t{random()} << 32 | random();
        key.second ^= std::uint64_t{random()} << 32 | random();
    } catch (const std::exception&) {
    }
    return key;
}

}  // namespace

std::uint64_t SipHash(const SipKey& key, std::string_view text) noexcept {
    SipState state(key);
    const char* bytes = text.data();
    std::size_t left = text.size();
    for (; left >= 8; left -= 8, bytes += 8) state.Add(Word(bytes, 8));
    state.Add(std::uint64_t{text.size()} << 56 | Word(bytes, left));
    return state.Finish();
}

const SipKey& ProcessKey() noexcept {
    static const SipKey key = MakeKey();
    return key;
}

}  // namespace veka
