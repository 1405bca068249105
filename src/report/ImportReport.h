#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/Findings.h"

namespace veka {

/// What the import of one file left out, replaced and changed, and which of its names and numbers do not go
/// together.
///
/// A report is made of the bytes of a file; no parser and no model is needed. A file cannot make a report
/// longer than a bound: of each code the first findings are kept, and the others are counted.
class VEKA_API ImportReport {
public:
    /// The findings, in the order of their places in the file.
    const std::vector<Finding>& Findings() const& { return m_findings; }
    std::vector<Finding> Findings() && { return std::move(m_findings); }
    /// How many findings of a code there are, with those that are not kept.
    std::size_t Count(Code code) const { return m_counts[static_cast<std::size_t>(code)]; }
    /// How many findings of a severity there are, with those that are not kept.
    std::size_t Count(Severity severity) const;
    /// How many findings there are that are not kept.
    std::size_t Dropped() const;

private:
    friend class ReportWriter;

    std::vector<Finding> m_findings;
    std::array<std::size_t, kCodes> m_counts{};
};

struct ReportOptions {
    std::size_t most = 100;  ///< how many findings of each code are kept
    /// The folder beside which files must be that the part names; empty: nothing is looked for.
    std::string folder;
};

/// Imports the bytes of a file and reports on it. The time and the memory are proportional to the size of the
/// file. Bad input raises nothing.
VEKA_API ImportReport ReportImport(std::string_view bytes, const ReportOptions& options = {});

/// One line of a report, as compilers write it: `FILE:LINE: warning: SENTENCE [VEKA-W001]`. No byte of the
/// file is raw in it.
VEKA_API std::string ReportLine(std::string_view file, const Finding& finding);

}  // namespace veka
