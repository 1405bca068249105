#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Finds the bytes that have a meaning. It looks at 16 bytes at once where the processor can do that, because
/// a branch for each byte would cost too much.
namespace veka {

/// Finds the bytes with codes up to that of the right parenthesis, one after another. These are all bytes
/// with a meaning outside a string (line feed, blank, double quote, parentheses) and a few others. One look
/// takes a whole block of bytes.
class SpecialBytes {
public:
    /// Number of bytes that must be readable from the beginning of any text on.
    static constexpr std::size_t kBlock = 64;

    explicit SpecialBytes(const char* text) noexcept : m_block(text), m_rest(Look(text)) {}

    /// Goes on to a text. It is after the last byte that was found, or in another block of memory.
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
    /// Finds the next such byte and goes on after it. There must be one.
    const char* Next() noexcept {
        while (m_rest == 0) {
            m_block += kBlock;
            m_rest = Look(m_block);
        }
        const char* found = m_block + static_cast<unsigned>(std::countr_zero(m_rest));
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
    std::uint64_t m_rest;  // the special bytes of the block that have not been found yet
};

/// The first byte from `text` on that is not white space. A line feed does not count as white space. There
/// must be such a byte, and 16 bytes after it must be readable.
inline const char* SkipWhiteSpace(const char* text) noexcept {
    if (static_cast<unsigned char>(*text) > ' ') return text;
#ifdef __SSE2__
    for (int count = 16; count == 16; text += count) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const __m128i blanks = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '));
        const __m128i tabs = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t'));
        const auto white = static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(blanks, tabs)));
        count = std::countr_zero(~white | 0x10000);
    }
    if (static_cast<unsigned char>(*text) > ' ') [[likely]]
        return text;
#endif
    while (*text == ' ' || (*text >= '\t' && *text <= '\r' && *text != '\n')) ++text;
    return text;
}

}  // namespace veka
