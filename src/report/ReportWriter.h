#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "report/ImportReport.h"
#include "report/PositionReader.h"

namespace veka {

/// Collects the findings of one report.
class ReportWriter {
public:
    ReportWriter(const PositionedText& text, std::size_t most) : m_text(text), m_most(most) {}

    /// False where a finding of the code would only be counted, and its sentence is not needed.
    bool Wants(Code code) const { return Kept(code); }
    void Add(Code code, const Region& region, bool whole, std::size_t level, std::string_view text,
             std::string sentence);
    /// A finding on a whole level.
    void AddLevel(Code code, const PositionedLevel& level, bool whole, std::string sentence);
    /// A finding on a value of a level.
    void AddValue(Code code, const PositionedLevel& level, std::size_t value, std::string sentence);
    /// Ends the report.
    ImportReport Finish();

private:
    bool Kept(Code code) const { return m_report.m_counts[static_cast<std::size_t>(code)] < m_most; }
    std::string PathOf(std::size_t level) const;

    const PositionedText& m_text;
    std::size_t m_most;
    ImportReport m_report;
};

/// A text of the file for a sentence: in quotes, cut, and without bytes that a terminal could mind.
std::string InQuotes(std::string_view text);

/// What a level calls itself: its first value, or that of a child with the keyword of a name. Empty where
/// there is none.
std::string_view OwnName(const PositionedLevel& level);

}  // namespace veka
