#include "report/ReportWriter.h"

#include <algorithm>

#include "platform/Printable.h"

namespace veka {

namespace {

constexpr std::size_t kMostText = 60;

std::string Cut(std::string_view text) {
    if (text.size() <= kMostText) return std::string(text);
    std::size_t length = kMostText;
    while (length > 0 && (text[length] & 0xC0) == 0x80) --length;  // inside of a character
    return std::string(text.substr(0, length)) + "...";
}

}  // namespace

std::string InQuotes(std::string_view text) {
    return '"' + Printable(Cut(text)) + '"';
}

std::string_view OwnName(const PositionedLevel& level) {
    if (level.m_aValues.GetSize() > 0) return level.m_aValues[0].View();
    constexpr INT_PTR kLooked = 16;
    for (INT_PTR i = 0; i < std::min(level.m_pChildren->GetSize(), kLooked); ++i) {
        const PositionedLevel& child = *level.Child(i);
        if (child.m_strName.View().ends_with("NAME") && child.m_aValues.GetSize() > 0)
            return child.m_aValues[child.m_aValues.GetUpperBound()].View();
    }
    return {};
}

void ReportWriter::Add(Code code, const Region& region, bool whole, std::size_t level, std::string_view text,
                       std::string sentence) {
    if (Kept(code))
        m_report.m_findings.push_back({code, region, whole, PathOf(level), Cut(text), std::move(sentence)});
    ++m_report.m_counts[static_cast<std::size_t>(code)];
}

void ReportWriter::AddLevel(Code code, const PositionedLevel& level, bool whole, std::string sentence) {
    Add(code, level.region, whole, level.number, level.m_strName.View(), std::move(sentence));
}

void ReportWriter::AddValue(Code code, const PositionedLevel& level, std::size_t value,
                            std::string sentence) {
    Add(code, level.values[value], true, level.number, level.m_aValues[static_cast<INT_PTR>(value)].View(),
        std::move(sentence));
}

std::string ReportWriter::PathOf(std::size_t number) const {
    if (number == ReadTracer::kNone) return {};
    const PositionedLevel* last = m_text.levels[number];
    std::string path = Printable(Cut(last->m_strName.View()));
    for (const PositionedLevel* level = last->parent; level; level = level->parent) {
        const std::string_view name = OwnName(*level);
        path.insert(
            0, Printable(Cut(level->m_strName.View())) + (name.empty() ? "" : ' ' + InQuotes(name)) + " > ");
    }
    return path;
}

ImportReport ReportWriter::Finish() {
    std::stable_sort(m_report.m_findings.begin(), m_report.m_findings.end(),
                     [](const Finding& a, const Finding& b) { return a.region.begin < b.region.begin; });
    return std::move(m_report);
}

std::size_t ImportReport::Count(Severity severity) const {
    std::size_t count = 0;
    for (const CodeDescription& code : AllCodes())
        if (code.severity == severity) count += Count(code.code);
    return count;
}

std::size_t ImportReport::Dropped() const {
    std::size_t count = 0;
    for (const std::size_t all : m_counts) count += all;
    return count - m_findings.size();
}

std::string ReportLine(std::string_view file, const Finding& finding) {
    const CodeDescription& code = Describe(finding.code);
    return Printable(file) + ':' + std::to_string(finding.region.begin.line) + ": " + NameOf(code.severity) +
           ": " + finding.sentence + " [" + code.id + ']';
}

}  // namespace veka
