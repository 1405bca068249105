#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <vector>

#include "report/ImportReport.h"

namespace host {

/// How often the reports of many files have each code.
class FindingSums {
public:
    struct Sum {
        veka::Code code{};
        std::size_t files = 0;  ///< with at least one finding of the code
        std::size_t count = 0;  ///< findings in all files
    };

    void Add(const veka::ImportReport& report);
    /// How many reports were added.
    std::size_t Files() const { return m_files; }
    /// The codes that were found, the most frequent first.
    std::vector<Sum> Sums() const;

private:
    std::array<Sum, veka::kCodes> m_sums{};
    std::size_t m_files = 0;
};

/// Writes the sums as a table with a line for each code that was found.
void WriteTable(std::ostream& out, const FindingSums& sums);

/// Writes the sums as members of a JSON object, each with a comma before it: how many reports there are, and
/// the list of the codes that were found.
void WriteJsonMembers(std::ostream& out, const FindingSums& sums);

}  // namespace host
