#include "leveltree/ChunkIndex.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <vector>

#include "leveltree/Prefetch.h"
#include "leveltree/SuffixSorter.h"
#include "platform/Assert.h"
#include "platform/Watch.h"

namespace veka {

namespace {

/// The `count` bytes before a position, or the last 8 of them, as a number. The last byte is the highest.
std::uint64_t BytesBefore(const char* position, std::size_t count) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        word <<= 8;
        if (i < count) word |= static_cast<unsigned char>(*(position - 1 - i));
    }
    return word;
}

/// An index whose positions are of the type `Number`.
///
/// The prefixes of the line that end with an escaped quote are numbered from left to right. A chunk is a
/// suffix of such a prefix. For each prefix but the first, `common` is the length of its longest suffix that
/// is a suffix of an earlier prefix too, and `source` is the first prefix with that suffix. So the first
/// prefix with a suffix of some length is found by going from source to source, until `common` is less than
/// the length. `common` falls with each of these steps.
template <class Number>
class Index final : public ChunkIndex {
public:
    explicit Index(std::string_view line) : m_line(line) {
        FindQuotes();
        if (m_quotes.empty()) return;
        LinkNeighbours(Sort());
        LinkSources();
    }

    std::size_t AfterFirstRun(std::size_t quote, std::size_t length) override {
        VEKA_ASSERT(length >= 2 && length <= quote + 1);
        if (m_quotes[m_last] > quote) m_last = 0;
        m_last = Find(quote, m_last);
        const std::size_t first = FirstWithSuffix(m_last, length);
        return m_quotes[first] + 1 + Repeats(first, length) * length;
    }

private:
    static constexpr Number kNone = std::numeric_limits<Number>::max();
    // Most of the time goes to waiting for memory that is visited in no order. So memory is fetched this many
    // steps before its use.
    static constexpr std::size_t kAhead = 16;

    /// What is known of a prefix.
    struct Node {
        Number source;  // while the index is made: the prefix sorted directly before this one
        Number jump;    // a prefix some steps away; while the index is made: the one sorted directly after
        Number common;
    };
    /// The bytes from one escaped quote to the next one.
    struct Piece {
        // 7 bytes, and below them how many bytes are left from there on, or 8 for more than 7. One 64-bit
        // member would make the piece 4 bytes larger.
        std::uint32_t high;
        std::uint32_t low;
        Number number;

        std::uint64_t Key() const { return std::uint64_t{high} << 32 | low; }
        /// A byte of the key, 0 for the lowest.
        std::size_t Byte(std::size_t byte) const { return (byte < 4 ? low : high) >> byte % 4 * 8 & 0xFF; }
        bool EndsInKey() const { return low % 256 < 8; }
    };

    void FindQuotes() {
        const auto isEscaped = [this](std::size_t quote) { return quote > 0 && m_line[quote - 1] == '\\'; };
        std::size_t count = 0;
        for (std::size_t i = 0; (i = m_line.find('"', i)) != std::string_view::npos; ++i)
            count += isEscaped(i);
        m_memory.Replace(8 * sizeof(Number) * count);
        m_quotes.reserve(count);
        for (std::size_t i = 0; (i = m_line.find('"', i)) != std::string_view::npos; ++i) {
            if (!isEscaped(i)) continue;
            m_quotes.push_back(static_cast<Number>(i));
            TickAtStep(m_quotes.size());
        }
    }

    // A piece begins with an escaped quote and ends before the next one. The first piece begins with the
    // line. So no piece but the first one is a suffix of another piece, and the order of the pieces gives the
    // order of the prefixes, where both are compared from the last byte to the first.
    const char* PieceEnd(std::size_t number) const { return m_line.data() + m_quotes[number] - 1; }
    std::size_t PieceSize(std::size_t number) const {
        return number == 0 ? m_quotes[0] - 1 : m_quotes[number] - m_quotes[number - 1];
    }

    /// Sorts pieces whose last `same` bytes are equal by the 7 bytes before those.
    void SortPieces(std::span<Piece> pieces, std::size_t same) const {
        for (Piece& piece : pieces) {
            const std::size_t left = PieceSize(piece.number) - same;
            const std::uint64_t key =
                BytesBefore(PieceEnd(piece.number) - same, std::min<std::size_t>(left, 7)) |
                std::min<std::size_t>(left, 8);
            piece.high = static_cast<std::uint32_t>(key >> 32);
            piece.low = static_cast<std::uint32_t>(key);
        }
        SortByKey(pieces);
    }

    /// Sorts pieces by their keys. Equal ones stay in the order of the line, so that the bytes before them
    /// are fetched in that order. Many pieces are sorted byte by byte, in a time linear in their number.
    static void SortByKey(std::span<Piece> pieces) {
        constexpr std::size_t kMany = 4096;
        std::size_t steps = 0;
        if (pieces.size() < kMany) {
            std::ranges::sort(pieces, [&](const Piece& a, const Piece& b) {
                TickAtStep(++steps);
                return a.Key() != b.Key() ? a.Key() < b.Key() : a.number < b.number;
            });
            return;
        }
        std::array<std::array<std::size_t, 256>, 8> places{};
        for (const Piece& piece : pieces) {
            TickAtStep(++steps);
            for (std::size_t byte = 0; byte < 8; ++byte) ++places[byte][piece.Byte(byte)];
        }
        std::vector<Piece> others(pieces.size());
        std::span<Piece> from = pieces, to = others;
        for (std::size_t byte = 0; byte < 8; ++byte) {
            std::array<std::size_t, 256>& place = places[byte];
            if (place[from[0].Byte(byte)] == pieces.size()) continue;  // all pieces have the same byte
            std::exclusive_scan(place.begin(), place.end(), place.begin(), std::size_t{0});
            for (const Piece& piece : from) {
                TickAtStep(++steps);
                to[place[piece.Byte(byte)]++] = piece;
            }
            std::swap(from, to);
        }
        if (from.data() != pieces.data()) std::ranges::copy(from, pieces.begin());
    }

    /// Numbers the pieces from 1 in their order, compared from the last byte to the first. Equal pieces have
    /// one number. Writes the numbers to `text`, from the last piece to the first, and returns the highest.
    Number NumberPieces(std::vector<Number>& text) const {
        const std::size_t count = m_quotes.size();
        std::vector<Piece> pieces(count);
        for (std::size_t i = 0; i < count; ++i) pieces[i].number = static_cast<Number>(i);
        // Pieces whose last `same` bytes are equal, sorted by the bytes before. Each group is a part of the
        // one before, and all begin at the first piece without a number.
        struct Group {
            std::size_t end;
            std::size_t same;
        };
        std::vector<Group> groups{{count, 0}};
        SortPieces(pieces, 0);
        Number last = 0;
        std::size_t steps = 0;
        for (std::size_t begin = 0; begin < count;) {
            TickAtStep(++steps);
            while (groups.back().end == begin) groups.pop_back();
            const auto [groupEnd, same] = groups.back();
            std::size_t end = begin + 1;
            while (end < groupEnd && pieces[end].Key() == pieces[begin].Key()) ++end;
            if (end - begin == 1 || pieces[begin].EndsInKey()) {
                ++last;
                for (; begin < end; ++begin) text[count - 1 - pieces[begin].number] = last;
            } else {
                if (end == groupEnd) groups.pop_back();
                groups.push_back({end, same + 7});
                SortPieces(std::span(pieces).subspan(begin, end - begin), same + 7);
            }
        }
        return last;
    }

    /// Sorts the prefixes, compared from the last byte to the first. The result holds their numbers, counted
    /// from the last prefix. Before them is the number of prefixes, which stands for the empty prefix.
    std::vector<Number> Sort() const {
        std::vector<Number> text(m_quotes.size() + 1);
        const std::size_t last = NumberPieces(text);
        std::vector<Number> sorted(text.size());
        SuffixSorter<Number>::Sort(text.data(), sorted.data(), text.size(), last + 1);
        return sorted;
    }

    /// Lets the processor fetch the bytes of a prefix before its last `common` ones.
    void PrefetchCommon(std::size_t number, std::size_t common) const {
        Prefetch(m_line.data() + m_quotes[number] - std::min<std::size_t>(common, m_quotes[number]));
    }

    /// Sets `source` and `jump` of each prefix to its neighbours in the sorted order, and `common` to the
    /// length of the longest common suffix with the neighbour before it.
    void LinkNeighbours(const std::vector<Number>& sorted) {
        const std::size_t count = m_quotes.size();
        m_nodes.resize(count);
        Number before = kNone;
        for (std::size_t i = 1; i <= count; ++i) {
            if (i + kAhead <= count) Prefetch(&m_nodes[count - 1 - sorted[i + kAhead]]);
            const auto number = static_cast<Number>(count - 1 - sorted[i]);
            m_nodes[number].source = before;
            m_nodes[number].jump = kNone;
            if (before != kNone) m_nodes[before].jump = number;
            before = number;
        }
        // Without its last piece, a prefix has as much in common with its neighbour as before, less that
        // piece. So the comparison goes on from there, and all comparisons together take a time linear in the
        // line.
        std::size_t common = 0;
        for (std::size_t i = count; i-- > 0;) {
            TickAtStep(i);
            if (i >= 2 * kAhead) {
                const Number sooner = m_nodes[i - kAhead].source;
                const Number later = m_nodes[i - 2 * kAhead].source;
                if (sooner != kNone) PrefetchCommon(sooner, common);
                if (later != kNone) Prefetch(&m_quotes[later]);
            }
            const Number neighbour = m_nodes[i].source;
            if (neighbour == kNone) {
                common = 0;
            } else {
                const std::size_t most = std::min(m_quotes[i], m_quotes[neighbour]) + std::size_t{1};
                const char* const end = m_line.data() + m_quotes[i];
                const char* const neighbourEnd = m_line.data() + m_quotes[neighbour];
                while (common < most && *(end - common) == *(neighbourEnd - common)) ++common;
            }
            m_nodes[i].common = static_cast<Number>(common);
            const std::size_t piece = i > 0 ? m_quotes[i] - m_quotes[i - 1] : 0;
            common = common >= piece + 2 ? common - piece : 0;
        }
    }

    void LinkSources() {
        const std::size_t count = m_quotes.size();
        // Among the prefixes 0 to i, the sorted neighbours of prefix i have the longest common suffixes with
        // it. Prefix i is taken out of the sorted order after that.
        for (std::size_t i = count; i-- > 0;) {
            TickAtStep(i);
            if (i >= kAhead) {
                const Node& soon = m_nodes[i - kAhead];
                if (soon.source != kNone) Prefetch(&m_nodes[soon.source]);
                if (soon.jump != kNone) Prefetch(&m_nodes[soon.jump]);
            }
            Node& node = m_nodes[i];
            const Number before = node.source, after = node.jump;
            const Number commonAfter = after == kNone ? 0 : m_nodes[after].common;
            if (before != kNone) m_nodes[before].jump = after;
            if (after != kNone) {
                m_nodes[after].source = before;
                m_nodes[after].common = std::min(node.common, commonAfter);
            }
            node.source = node.common >= commonAfter ? before : after;
            node.common = std::max(node.common, commonAfter);
        }
        // The jumps are those of a skew-binary list: a search takes a number of steps logarithmic in the
        // depth.
        std::vector<Number> depths(count);
        m_nodes[0] = {0, 0, 0};
        for (std::size_t i = 1; i < count; ++i) {
            TickAtStep(i);
            if (i + 2 * kAhead < count) {
                const Number sooner = m_nodes[i + kAhead].source, later = m_nodes[i + 2 * kAhead].source;
                if (sooner < i) Prefetch(&m_nodes[m_nodes[sooner].jump]);  // it has its jump already
                Prefetch(&m_nodes[later]);
                Prefetch(&depths[later]);
            }
            const std::size_t source = FirstWithSuffix(m_nodes[i].source, m_nodes[i].common);
            const Number jump = m_nodes[source].jump;
            const Number next = m_nodes[jump].jump;
            const bool far = depths[source] - depths[jump] == depths[jump] - depths[next];
            m_nodes[i].source = static_cast<Number>(source);
            m_nodes[i].jump = far ? next : static_cast<Number>(source);
            depths[i] = depths[source] + 1;
        }
    }

    /// The first prefix with the last `length` bytes of a prefix. `length` is not 0.
    std::size_t FirstWithSuffix(std::size_t number, std::size_t length) const {
        while (m_nodes[number].common >= length) {
            const Node& node = m_nodes[number];
            number = m_nodes[node.jump].common >= length ? node.jump : node.source;
        }
        return number;
    }

    /// The number of the escaped quote at a position, which is not to the left of quote number `from`.
    std::size_t Find(std::size_t position, std::size_t from) const {
        std::size_t step = 1;
        while (from + step < m_quotes.size() && m_quotes[from + step] < position) step *= 2;
        const auto begin = m_quotes.begin();
        const auto end = begin + static_cast<std::ptrdiff_t>(std::min(from + step + 1, m_quotes.size()));
        return static_cast<std::size_t>(
            std::lower_bound(begin + static_cast<std::ptrdiff_t>(from + step / 2), end, position) - begin);
    }

    /// How often a chunk is repeated directly after its first occurrence, a suffix of prefix `first`.
    std::size_t Repeats(std::size_t first, std::size_t length) {
        const std::size_t after = m_quotes[first] + std::size_t{1};
        const std::size_t begin = after - length;
        const bool sameRun = begin == m_run.begin;
        if (sameRun && length % m_run.period == 0 && length <= m_run.count * m_run.period)
            return m_run.count / (length / m_run.period) - 1;
        if (length > m_line.size() - after) return 0;
        // A few bytes at both ends tell for most chunks that they are not repeated.
        const std::size_t some = std::min<std::size_t>(length, 32);
        if (m_line.compare(after, some, m_line, begin, some) != 0) return 0;
        if (m_line.compare(after + length - some, some, m_line, after - some, some) != 0) return 0;
        if (FirstWithSuffix(Find(after + length - 1, first), length) != first) return 0;

        // A run that has two periods and is as long as both together has their greatest common divisor as a
        // period too. With the smallest period, all longer chunks of the run need no search.
        const bool divisible =
            sameRun && length > m_run.period && length + m_run.period <= m_run.count * m_run.period;
        const std::size_t period = divisible ? std::gcd(length, m_run.period) : length;
        m_run = {begin, period, CountPeriods(begin, period)};
        return m_run.count / (length / period) - 1;
    }

    /// The number of equal chunks that begin at a position, of which there are two at least.
    std::size_t CountPeriods(std::size_t begin, std::size_t length) const {
        const std::size_t first = Find(begin + length - 1, 0);
        const std::size_t quotes =
            Find(begin + 2 * length - 1, first) - first;  // in each chunk but the first
        // There are n + 1 equal chunks if the prefixes that end with the chunks n and n + 1 have a common
        // suffix of n chunks.
        const auto areMore = [&](std::size_t n) {
            const std::size_t last = first + n * quotes;
            return last < m_quotes.size() && m_quotes[last] - m_quotes[first] == n * length &&
                   m_quotes[last] - m_quotes[last - quotes] == length &&
                   FirstWithSuffix(last, n * length) == FirstWithSuffix(last - quotes, n * length);
        };
        std::size_t n = 1, step = 1;
        for (; areMore(n + step); step *= 2) n += step;
        for (step /= 2; step > 0; step /= 2)
            if (areMore(n + step)) n += step;
        return n + 1;
    }

    std::string_view m_line;
    WatchedMemory m_memory;
    std::vector<Number> m_quotes;
    std::vector<Node> m_nodes;
    std::size_t m_last = 0;  // the quote of the last search
    struct {
        std::size_t begin = 0;
        std::size_t period = 1;
        std::size_t count = 0;
    } m_run;  // the last run that was found: where it begins, and how often its first `period` bytes follow
              // there
};

}  // namespace

std::unique_ptr<ChunkIndex> ChunkIndex::Make(std::string_view line, bool wide) {
    if (wide || line.size() >= UINT32_MAX) return std::make_unique<Index<std::uint64_t>>(line);
    return std::make_unique<Index<std::uint32_t>>(line);
}

}  // namespace veka
