#include "report/Suggestions.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace veka {

namespace {

constexpr std::size_t kLongest = 32;

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// How many letters are to be changed, taken out, put in or exchanged with their neighbour to make one word
/// of the other. Both have at most `kLongest` bytes.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::array<std::array<std::size_t, kLongest + 1>, kLongest + 1> cost{};
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const bool same = Upper(a[i - 1]) == Upper(b[j - 1]);
            cost[i][j] =
                std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && Upper(a[i - 1]) == Upper(b[j - 2]) && Upper(a[i - 2]) == Upper(b[j - 1]))
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    }
    return cost[a.size()][b.size()];
}

}  // namespace

std::string_view Nearest(std::string_view word, std::span<const std::string_view> words) {
    if (word.size() > kLongest) return {};
    const std::size_t most = word.size() >= 6 ? 2 : word.size() >= 3 ? 1 : 0;
    std::string_view nearest;
    std::size_t least = most + 1;
    for (const std::string_view other : words) {
        if (other.size() > kLongest || other.size() > word.size() + most || word.size() > other.size() + most)
            continue;
        const std::size_t distance = Distance(word, other);
        if (distance >= least) continue;
        least = distance;
        nearest = other;
    }
    return nearest;
}

}  // namespace veka
