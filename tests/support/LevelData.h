#pragma once

#include <string>
#include <vector>

namespace test {

/// A level as plain data.
struct LevelData {
    std::string name;
    std::vector<std::string> values;
    std::vector<LevelData> children;
    int depth = 0;

    bool operator==(const LevelData&) const = default;
};

/// A level that was not closed.
struct OpenLevelData {
    std::string name;
    int line = 0;

    bool operator==(const OpenLevelData&) const = default;
};

/// The outcome of one read.
struct ReadResult {
    int result = 0;
    int lineCount = 0;
    std::string message;  ///< of the brace error
    std::vector<LevelData> roots;
    std::vector<int> rootLines;       ///< line of the open parenthesis of each root
    std::vector<OpenLevelData> open;  ///< the levels that were not closed, the outermost first
    int strayLine = 0;                ///< of the first close parenthesis without a level; 0 without one
    int openString = 0;               ///< line in which a string begins that was not closed; 0 without one

    bool operator==(const ReadResult&) const = default;
};

/// The levels at the end of a path of names, in a tree that a reader gave: the content of a file without the
/// help of the parser.
inline void FindLevels(const std::vector<LevelData>& levels, const std::vector<std::string>& path,
                       size_t depth, std::vector<const LevelData*>& found) {
    for (const LevelData& level : levels) {
        if (level.name != path[depth]) continue;
        if (depth + 1 == path.size())
            found.push_back(&level);
        else
            FindLevels(level.children, path, depth + 1, found);
    }
}
inline std::vector<const LevelData*> FindLevels(const std::vector<LevelData>& roots,
                                                const std::vector<std::string>& path) {
    std::vector<const LevelData*> found;
    FindLevels(roots, path, 0, found);
    return found;
}

/// Value `index` of each of these levels, -1 being the last; empty where there is none.
inline std::vector<std::string> Values(const std::vector<LevelData>& roots,
                                       const std::vector<std::string>& path, int index) {
    std::vector<std::string> values;
    for (const LevelData* level : FindLevels(roots, path)) {
        const int at = index < 0 ? static_cast<int>(level->values.size()) - 1 : index;
        values.push_back(at >= 0 && at < static_cast<int>(level->values.size())
                             ? level->values[static_cast<size_t>(at)]
                             : "");
    }
    return values;
}

/// How many of these levels there are.
inline size_t Count(const std::vector<LevelData>& roots, const std::vector<std::string>& path) {
    return FindLevels(roots, path).size();
}

}  // namespace test
