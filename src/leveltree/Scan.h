#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Runs over plain bytes, sixteen at a time where the processor can: a byte may cost no branch of its own.
namespace veka {

/// Finds the bytes up to the right parenthesis, one after another: all that mean something outside a string,
/// line feeds, blanks, double quotes and parentheses, and few others. It looks at a block of bytes at once,
/// and remembers what it saw.
class SpecialBytes {
public:
    /// Bytes that must be readable from any text on.
    static constexpr std::size_t kBlock = 64;

    explicit SpecialBytes(const char* text) noexcept : m_block(text), m_rest(Look(text)) {}

    /// Goes on to a text, which lies behind what was found before or in another run of bytes.
    void Seek(const char* text) noexcept {
        const std::uintptr_t offset =
            reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(m_block);
        if (offset < kBlock) {
            m_rest = m_rest >> offset << offset;
        } else {
            m_block = text;
            m_rest = Look(text);
        }
    }
    /// The first such byte from there on, and goes on behind it; there must be one.
    const char* Next() noexcept {
        while (m_rest == 0) {
            m_block += kBlock;
            m_rest = Look(m_block);
        }
        const char* found = m_block + std::countr_zero(m_rest);
        m_rest &= m_rest - 1;
        return found;
    }

private:
    /// A bit for each byte of a block.
    static std::uint64_t Look(const char* text) noexcept {
        std::uint64_t specials = 0;
#ifdef __SSE2__
        for (std::size_t i = 0; i < kBlock; i += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
            const int found =
                _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(')')), bytes));
            specials |= static_cast<std::uint64_t>(static_cast<unsigned>(found)) << i;
        }
#else
        for (std::size_t i = 0; i < kBlock; ++i) {
            const bool special = static_cast<unsigned char>(text[i]) <= ')';
            specials |= static_cast<std::uint64_t>(special) << i;
        }
#endif
        return specials;
    }

    const char* m_block;
    std::uint64_t m_rest;  // of the block's special bytes: those that have not been found yet
};

/// The first byte from `text` on that is no white space, a line feed being none. There must be one, with 16
/// readable bytes behind it.
inline const char* SkipWhiteSpace(const char* text) noexcept {
    if (static_cast<unsigned char>(*text) > ' ') return text;
#ifdef __SSE2__
    for (;; text += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const int blanks = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')));
        if (blanks == 0xFFFF) continue;
        text += std::countr_one(static_cast<unsigned>(blanks));
        break;
    }
#endif
    while (*text == ' ' || (*text >= '\t' && *text <= '\r' && *text != '\n')) ++text;
    return text;
}

}  // namespace veka
