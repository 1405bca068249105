#pragma once

#include <string>
#include <vector>

#include "support/PlainReader.h"

namespace test {

/// The levels at the end of a path of names, in a plainly read tree: what stands in a file, told without the
/// parser.
inline void FindLevels(const std::vector<PlainLevel>& levels, const std::vector<std::string>& path,
                       size_t depth, std::vector<const PlainLevel*>& found) {
    for (const PlainLevel& level : levels) {
        if (level.name != path[depth]) continue;
        if (depth + 1 == path.size())
            found.push_back(&level);
        else
            FindLevels(level.children, path, depth + 1, found);
    }
}
inline std::vector<const PlainLevel*> FindLevels(const std::vector<PlainLevel>& roots,
                                                 const std::vector<std::string>& path) {
    std::vector<const PlainLevel*> found;
    FindLevels(roots, path, 0, found);
    return found;
}

/// Value `index` of each of these levels, -1 being the last; empty where there is none.
inline std::vector<std::string> Values(const std::vector<PlainLevel>& roots,
                                       const std::vector<std::string>& path, int index) {
    std::vector<std::string> values;
    for (const PlainLevel* level : FindLevels(roots, path)) {
        const int at = index < 0 ? static_cast<int>(level->values.size()) - 1 : index;
        values.push_back(at >= 0 && at < static_cast<int>(level->values.size())
                             ? level->values[static_cast<size_t>(at)]
                             : "");
    }
    return values;
}

/// How many of these levels there are.
inline size_t Count(const std::vector<PlainLevel>& roots, const std::vector<std::string>& path) {
    return FindLevels(roots, path).size();
}

}  // namespace test
