// docs/findings.md lists every code, and each of its examples gives what the page says.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "report/ImportReport.h"
#include "support/Files.h"

namespace {

using namespace veka;

/// The text between two others, from a place on that moves behind it.
std::string Between(const std::string& page, std::size_t& at, const std::string& begin,
                    const std::string& end) {
    const std::size_t from = page.find(begin, at);
    if (from == std::string::npos) return "";
    const std::size_t to = page.find(end, from + begin.size());
    at = to;
    return page.substr(from + begin.size(), to - from - begin.size());
}

TEST(FindingsPage, ListsEveryCodeWithAnExampleThatGivesIt) {
    const std::string page = test::ReadFile(test::ProjectFolder("docs") / "findings.md");
    for (const CodeDescription& code : AllCodes()) {
        std::size_t at = page.find(std::string("### ") + code.id + ": " + code.name + "\n");
        ASSERT_NE(at, std::string::npos) << code.id;
        std::string severity = NameOf(code.severity);
        severity[0] = static_cast<char>(severity[0] - 'a' + 'A');
        const std::string told = Between(page, at, "\n\n", "\n\n");
        EXPECT_EQ(told, severity + ", " + NameOf(code.kind) + ". " + code.meaning);
        const std::string file = Between(page, at, "```veka\n", "```");
        const std::string line = Between(page, at, "```text\n", "\n```");
        const auto findings = ReportImport(file, {100, "."}).Findings();
        EXPECT_TRUE(std::any_of(findings.begin(), findings.end(),
                                [&](const Finding& finding) {
                                    return finding.code == code.code &&
                                           ReportLine("part.veka", finding) == line;
                                }))
            << line << "\n"
            << file;
    }
}

}  // namespace
