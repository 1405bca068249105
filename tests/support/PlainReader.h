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

/// What one read gave.
struct PlainResult {
    int result = 0;
    int lineCount = 0;
    std::string message;  ///< of the brace error
    std::vector<PlainLevel> roots;

    bool operator==(const PlainResult&) const = default;
};

/// The reader's procedure, byte by byte as it is laid down, with no thought of speed. What the library's
/// reader does must be the same for every input.
PlainResult ReadPlainly(const std::string& file, bool stopAtDepthZero = false, int reserved = 0);

/// True if a string ends at a suspected quote, by finding, deleting and replacing.
bool EndsPlainly(const std::string& line, const std::string& chunk);

}  // namespace test
