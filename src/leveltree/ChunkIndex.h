#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace veka {

/// Finds the first occurrences of chunks of a line. A chunk is any text of the line that ends with an escaped
/// quote, which is a backslash and a double quote.
///
/// For a line of n bytes the index is made in a time of n log n, and a search takes a time of log n. The
/// index takes up to 16 bytes for each escaped quote, and 20 while it is made. A line has at most n / 2
/// escaped quotes.
class ChunkIndex {
public:
    ChunkIndex() = default;
    ChunkIndex(const ChunkIndex&) = delete;
    ChunkIndex& operator=(const ChunkIndex&) = delete;
    virtual ~ChunkIndex() = default;

    /// The index of a line, whose bytes must stay where they are. Positions take 4 bytes each, or 8 bytes
    /// where the line is that long or `wide` is set.
    static std::unique_ptr<ChunkIndex> Make(std::string_view line, bool wide = false);

    /// The position after the first occurrence of a chunk and after the repeats of the chunk that directly
    /// follow there. The chunk has `length` bytes, at least 2, and ends with the quote at `quote`.
    virtual std::size_t AfterFirstRun(std::size_t quote, std::size_t length) = 0;
};

}  // namespace veka
