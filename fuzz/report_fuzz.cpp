// A report of any bytes: it is bounded, its regions lie in the text, and the reader with positions gives the
// levels that the reference reader gives.

#include <cstdio>
#include <cstdlib>

#include "InputFile.h"
#include "report/ImportReport.h"
#include "report/PositionReader.h"
#include "support/ReferenceReader.h"

namespace {

void Require(bool condition, const char* sentence) {
    if (condition) return;
    std::fputs(sentence, stderr);
    std::abort();
}

void Compare(const veka::PositionedLevel& level, const test::LevelData& reference) {
    bool same = level.m_strName.View() == reference.name && level.m_nDepth == reference.depth &&
                static_cast<std::size_t>(level.m_aValues.GetSize()) == reference.values.size() &&
                static_cast<std::size_t>(level.m_pChildren->GetSize()) == reference.children.size();
    for (std::size_t i = 0; same && i < reference.values.size(); ++i)
        same = level.m_aValues[static_cast<INT_PTR>(i)].View() == reference.values[i];
    Require(same, "the reader with positions and the reference reader differ\n");
    for (std::size_t i = 0; i < reference.children.size(); ++i)
        Compare(*level.Child(static_cast<INT_PTR>(i)), reference.children[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::View(data, size);
    const veka::PositionedText read = veka::ReadWithPositions(text);
    const test::ReadResult reference = test::ReadByReference(std::string(text));
    Require(read.roots.size() == reference.roots.size(), "the readers give different levels\n");
    for (std::size_t i = 0; i < read.roots.size(); ++i) Compare(*read.roots[i], reference.roots[i]);

    constexpr std::size_t kMost = 5;
    const veka::ImportReport report = veka::ReportImport(text, {kMost, {}});
    Require(report.Findings().size() <= kMost * veka::kCodes, "the report is not bounded\n");
    for (const veka::Finding& finding : report.Findings()) {
        const veka::Region& region = finding.region;
        Require(region.begin.line >= 1 && region.begin.column >= 1 && region.begin <= region.end &&
                    region.end <= read.end,
                "a region lies outside of the text\n");
        Require(finding.sentence.size() < 2000 && finding.path.size() < 5000, "a finding is too long\n");
    }
    return 0;
}
