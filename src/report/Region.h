#pragma once

#include <compare>

namespace veka {

/// A place in a text: the line, and the byte in the line. Both count from 1.
struct Place {
    int line = 0;
    int column = 0;

    // clang-tidy 14 takes the defaulted comparison for a null pointer.
    auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// A piece of a text, from its first byte to the place behind its last byte.
struct Region {
    Place begin, end;

    bool operator==(const Region&) const = default;
    bool Holds(const Region& other) const { return begin <= other.begin && other.end <= end; }
};

}  // namespace veka
