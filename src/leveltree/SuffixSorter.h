#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "leveltree/Prefetch.h"
#include "platform/Assert.h"
#include "platform/Watch.h"

namespace veka {

/// Sorts the suffixes of a text of numbers, in a time and a memory linear in the text.
///
/// The method is induced sorting (SA-IS): the suffixes that begin at a local minimum are sorted first, by a
/// recursion on a text of at most half the length; the order of all other suffixes follows from theirs.
/// `Number` is an unsigned type whose largest value is no position of the text.
template <class Number>
class SuffixSorter {
public:
    /// Writes the start of each suffix to `sorted`, in the order of the suffixes. The last number of the text
    /// is 0 and the only 0. All numbers are below `letters`.
    static void Sort(const Number* text, Number* sorted, std::size_t size, std::size_t letters) {
        VEKA_ASSERT(size > 0 && text[size - 1] == 0 && letters > 0);
        if (size == 1) {
            sorted[0] = 0;
            return;
        }
        SuffixSorter sorter(text, sorted, size, letters);
        const std::size_t minima = sorter.SortPiecesBetweenMinima();
        const std::size_t names = sorter.NamePieces(minima);
        std::vector<Number>().swap(sorter.m_buckets);  // the recursion makes its own
        // The names of the pieces, in the order of the text, are the shorter text. It is at the end of
        // `sorted`.
        Number* const shorter = sorted + size - minima;
        if (names < minima) {
            Sort(shorter, sorted, minima, names);
        } else {
            for (std::size_t i = 0; i < minima; ++i) sorted[shorter[i]] = static_cast<Number>(i);
        }
        sorter.SortAllFromMinima(minima);
    }

private:
    static constexpr Number kNone = std::numeric_limits<Number>::max();
    static constexpr std::size_t kAhead = 16;  // memory is fetched this many steps before its use

    SuffixSorter(const Number* text, Number* sorted, std::size_t size, std::size_t letters)
        : m_text(text), m_sorted(sorted), m_size(size), m_letters(letters), m_ascends(size) {
        m_ascends[size - 1] = true;
        for (std::size_t i = size - 1; i-- > 0;) {
            TickAtStep(i);
            m_ascends[i] = text[i] < text[i + 1] || (text[i] == text[i + 1] && m_ascends[i + 1]);
        }
    }

    /// True where a suffix is less than both of its neighbours in the text.
    bool IsMinimum(std::size_t i) const { return i > 0 && m_ascends[i] && !m_ascends[i - 1]; }

    /// Sets the buckets to the first place of each letter in `sorted`.
    void SeekFirst() {
        SeekEnd();
        for (std::size_t letter = m_letters; letter-- > 1;) m_buckets[letter] = m_buckets[letter - 1];
        m_buckets[0] = 0;
    }
    /// Sets the buckets to the place after the last one of each letter.
    void SeekEnd() {
        m_buckets.assign(m_letters, 0);
        for (std::size_t i = 0; i < m_size; ++i) ++m_buckets[m_text[i]];
        for (std::size_t letter = 1; letter < m_letters; ++letter) m_buckets[letter] += m_buckets[letter - 1];
    }

    /// Lets the processor fetch what a place of `sorted` will need, as far as the place is filled.
    void PrefetchFor(std::size_t place) const {
        const Number next = m_sorted[place];
        if (next != kNone && next != 0) Prefetch(m_text + next - 1);
    }

    /// Derives the order of all suffixes from that of the minima, which are at the ends of their buckets.
    void Induce() {
        SeekFirst();
        for (std::size_t i = 0; i < m_size; ++i) {
            TickAtStep(i + 1);
            if (i + kAhead < m_size) PrefetchFor(i + kAhead);
            const Number next = m_sorted[i];
            if (next == kNone || next == 0 || m_ascends[next - 1]) continue;
            m_sorted[m_buckets[m_text[next - 1]]++] = next - 1;
        }
        SeekEnd();
        for (std::size_t i = m_size; i-- > 0;) {
            TickAtStep(i + 1);
            if (i >= kAhead) PrefetchFor(i - kAhead);
            const Number next = m_sorted[i];
            if (next == kNone || next == 0 || !m_ascends[next - 1]) continue;
            m_sorted[--m_buckets[m_text[next - 1]]] = next - 1;
        }
    }

    /// Sorts the pieces from each minimum to the next one; their starts are the first ones of `sorted` then.
    std::size_t SortPiecesBetweenMinima() {
        std::fill_n(m_sorted, m_size, kNone);
        SeekEnd();
        for (std::size_t i = 1; i < m_size; ++i)
            if (IsMinimum(i)) m_sorted[--m_buckets[m_text[i]]] = static_cast<Number>(i);
        Induce();
        std::size_t minima = 0;
        for (std::size_t i = 0; i < m_size; ++i)
            if (IsMinimum(m_sorted[i])) m_sorted[minima++] = m_sorted[i];
        return minima;
    }

    /// True if the pieces from two minima to the next ones are equal.
    bool EqualPieces(std::size_t a, std::size_t b) const {
        for (std::size_t d = 0;; ++d) {
            if (m_text[a + d] != m_text[b + d] || m_ascends[a + d] != m_ascends[b + d]) return false;
            if (d > 0 && (IsMinimum(a + d) || IsMinimum(b + d))) return IsMinimum(a + d) && IsMinimum(b + d);
        }
    }

    /// Numbers the sorted pieces, equal ones alike, and writes the numbers in the order of the text to the
    /// end of `sorted`. Returns how many numbers there are.
    std::size_t NamePieces(std::size_t minima) {
        std::fill(m_sorted + minima, m_sorted + m_size, kNone);
        Number name = 0;
        for (std::size_t i = 0; i < minima; ++i) {
            if (i + kAhead < minima) Prefetch(m_text + m_sorted[i + kAhead]);
            if (i > 0 && !EqualPieces(m_sorted[i - 1], m_sorted[i])) ++name;
            // Two minima are never neighbours, so that half a position is enough.
            m_sorted[minima + m_sorted[i] / 2] = name;
        }
        std::size_t end = m_size;
        for (std::size_t i = m_size; i-- > minima;)
            if (m_sorted[i] != kNone) m_sorted[--end] = m_sorted[i];
        return std::size_t{name} + 1;
    }

    /// Sorts all suffixes. The order of the minima, by their number in the text, is at the front of `sorted`.
    void SortAllFromMinima(std::size_t minima) {
        Number* const positions = m_sorted + m_size - minima;
        std::size_t count = 0;
        for (std::size_t i = 1; i < m_size; ++i)
            if (IsMinimum(i)) positions[count++] = static_cast<Number>(i);
        for (std::size_t i = 0; i < minima; ++i) m_sorted[i] = positions[m_sorted[i]];
        std::fill(m_sorted + minima, m_sorted + m_size, kNone);
        SeekEnd();
        for (std::size_t i = minima; i-- > 0;) {
            const Number start = m_sorted[i];
            m_sorted[i] = kNone;
            m_sorted[--m_buckets[m_text[start]]] = start;
        }
        Induce();
    }

    const Number* m_text;
    Number* m_sorted;
    std::size_t m_size;
    std::size_t m_letters;
    std::vector<bool> m_ascends;  // whether each suffix is less than the next one
    std::vector<Number> m_buckets;
};

}  // namespace veka
