#pragma once

#include <string>
#include <vector>

namespace test {

/// A level as plain data.
struct PlainLevel {
    std::string name;
    std::vector<std::string> values;
    std::vector<PlainLevel> children;
    int depth = 0;

    bool operator==(const PlainLevel&) const = default;
};

/// A level that was not closed.
struct PlainOpenLevel {
    std::string name;
    int line = 0;

    bool operator==(const PlainOpenLevel&) const = default;
};

/// The outcome of one read.
struct PlainResult {
    int result = 0;
    int lineCount = 0;
    std::string message;  ///< of the brace error
    std::vector<PlainLevel> roots;
    std::vector<int> rootLines;        ///< line of the open parenthesis of each root
    std::vector<PlainOpenLevel> open;  ///< the levels that were not closed, the outermost first
    int strayLine = 0;                 ///< of the first close parenthesis without a level; 0 without one
    int openString = 0;                ///< line in which a string begins that was not closed; 0 without one

    bool operator==(const PlainResult&) const = default;
};

/// Reads a text by the rules of the format, byte by byte and without regard to speed. The library's reader
/// must give the same result for each text.
PlainResult ReadPlainly(const std::string& text, bool stopAtDepthZero = false, int reserved = 0);

/// True if a string ends at a quote that may be escaped: the rule as it is stated, with Find, Delete and
/// Replace.
bool EndsPlainly(const std::string& line, const std::string& chunk);

}  // namespace test
