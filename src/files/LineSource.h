#pragma once

#include <cstddef>
#include <string_view>

namespace veka {

/// A text that is read in blocks of whole lines.
class LineSource {
public:
    /// Number of bytes after each block that can be read. Their values do not matter.
    static constexpr std::size_t kReadable = 64;

    virtual ~LineSource();
    /// Gives the next block of lines; false at the end of the text.
    ///
    /// Each line of a block ends with its line feed. A carriage return before the line feed is still there.
    /// If the last line of the text has no line feed, a carriage return and a line feed are added to the
    /// line, so that a carriage return at the end of the text stays a byte of its line. A block is valid
    /// until the next call.
    virtual bool ReadLines(std::string_view& lines) = 0;

    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;

protected:
    LineSource() = default;
};

}  // namespace veka
