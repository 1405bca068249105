// Prints every keyword that the parser knows.
//   veka-keywords                a table in Markdown: keyword, level around it, form of reading, class and
//   field veka-keywords --dictionary   a dictionary for libFuzzer

#include <cstdio>
#include <cstring>
#include <set>

#include "parser/KeywordLister.h"

namespace {

void PrintDictionary() {
    std::set<std::string> keywords;
    for (const veka::KeywordRow& row : veka::KeywordLister::AllKeywords())
        if (!row.keyword.empty() && row.keyword != "*") keywords.insert(row.keyword);
    for (const std::string& keyword : keywords) std::printf("\"%s\"\n", keyword.c_str());
    // Marks of the format, and words that values are compared with.
    for (const char* mark : {"//", "\\\\\\\"", "(\\\"\\\")", "TRUE", "FALSE"}) std::printf("\"%s\"\n", mark);
}

std::string Code(const std::string& text) {
    return text.empty() ? "" : "`" + text + "`";
}

void PrintTable() {
    std::printf(
        "# All keywords\n\n"
        "`veka-keywords` prints this page from the rows of the parser, and a test compares the two. Change "
        "the rows, then run\n"
        "`build/dev/bin/veka-keywords >docs/keywords.md`.\n\n"
        "*In* is the level around the keyword; the keywords of the top level have none. `*` is a level of "
        "any name that no other\n"
        "row of its parent finds. *The level itself* is what the values or the name of the parent give. "
        "`docs/format.md` explains\n"
        "the forms of reading.\n\n"
        "| keyword | in | read as | field |\n|---|---|---|---|\n");
    std::set<std::string> printed;
    for (const veka::KeywordRow& row : veka::KeywordLister::AllKeywords()) {
        const std::string line = "| " + (row.keyword.empty() ? "the level itself" : Code(row.keyword)) +
                                 " | " + Code(row.parent) + " | " + row.form + " | " + Code(row.target) +
                                 " |\n";
        // A method that several levels use has the same rows in each.
        if (printed.insert(line).second) std::fputs(line.c_str(), stdout);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 1)
        PrintTable();
    else if (argc == 2 && std::strcmp(argv[1], "--dictionary") == 0)
        PrintDictionary();
    else
        return 2;
    return std::fflush(stdout) == 0 ? 0 : 1;
}
