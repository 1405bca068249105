#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// A way in which a file can grow.
struct Shape {
    std::string kind;  // shapes of one kind are listed together
    std::string name;
    std::function<std::string(std::size_t)> text;  // a file of about that many bytes
};

/// One line with escaped quotes in it, made to cost much in the tests whether a string ends.
std::vector<Shape> HostileLines();
/// Files of many like parts, of names made to collide, and the like.
std::vector<Shape> HostileFiles();
/// Each level of a file in turn: the level repeated, the level without its content repeated, and its values
/// repeated.
std::vector<Shape> GrownLevels(const char* file);

}  // namespace bench
