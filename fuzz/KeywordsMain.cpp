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

void PrintTable() {
    std::printf("| keyword | in | read as | field |\n|---|---|---|---|\n");
    for (const veka::KeywordRow& row : veka::KeywordLister::AllKeywords()) {
        const std::string keyword = row.keyword.empty() ? "the level itself" : "`" + row.keyword + "`";
        std::printf("| %s | %s | %s | %s |\n", keyword.c_str(), row.parent.c_str(), row.form.c_str(),
                    row.target.c_str());
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
