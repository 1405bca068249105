#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Runs over plain bytes, sixteen at a time where the processor can: a byte may cost no branch of its own.
namespace veka {

/// Finds the bytes that mean something outside a string: double quotes, line feeds, blanks and parentheses.
/// It looks at a block of bytes at once, and remembers what it saw.
class SpecialBytes {
public:
    /// Bytes that must be readable from any text on.
    static constexpr std::size_t kBlock = 64;

    /// The first such byte from `text` on; there must be one. The texts asked for lie in one run of bytes
    /// that do not change.
    const char* Find(const char* text) noexcept {
        const std::uintptr_t offset =
            reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(m_block);
        if (offset < kBlock) {
            const std::uint64_t rest = m_specials >> offset;
            if (rest != 0) return text + std::countr_zero(rest);
            text = m_block + kBlock;
        }
        for (;; text += kBlock) {
            m_block = text;
            m_specials = Look(text);
            if (m_specials != 0) return text + std::countr_zero(m_specials);
        }
    }

private:
    /// A bit for each byte of a block.
    static std::uint64_t Look(const char* text) noexcept {
        std::uint64_t specials = 0;
#ifdef __SSE2__
        for (std::size_t i = 0; i < kBlock; i += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
            // A blank and a double quote differ in one bit, and so do the parentheses.
            const __m128i blanks =
                _mm_cmpeq_epi8(_mm_and_si128(bytes, _mm_set1_epi8(~0x02)), _mm_set1_epi8(' '));
            const __m128i parentheses =
                _mm_cmpeq_epi8(_mm_and_si128(bytes, _mm_set1_epi8(~0x01)), _mm_set1_epi8('('));
            const __m128i feeds = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'));
            const int found = _mm_movemask_epi8(_mm_or_si128(_mm_or_si128(blanks, parentheses), feeds));
            specials |= static_cast<std::uint64_t>(static_cast<unsigned>(found)) << i;
        }
#else
        for (std::size_t i = 0; i < kBlock; ++i) {
            const char c = text[i];
            const bool special = c == '"' || c == '\n' || c == ' ' || c == '(' || c == ')';
            specials |= static_cast<std::uint64_t>(special) << i;
        }
#endif
        return specials;
    }

    const char* m_block = nullptr;
    std::uint64_t m_specials = 0;
};

/// The first byte from `text` on that is no white space, a line feed being none. There must be one, with 16
/// readable bytes behind it.
inline const char* SkipWhiteSpace(const char* text) noexcept {
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
