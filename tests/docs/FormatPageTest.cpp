// Runs the examples of docs/format.md: each file there gives just the records that stand below it.

#include <gtest/gtest.h>

#include <sstream>

#include "model/CVEKA_Manager.h"
#include "support/ModelText.h"
#include "support/Parsing.h"
#include "support/ScriptedUserInterface.h"

namespace {

/// One example: a file, and what is said to come of it.
struct Example {
    std::string file, said;
};

std::vector<Example> Examples(const std::string& page) {
    std::vector<Example> examples;
    std::string* open = nullptr;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            if (line == "```veka")
                open = &examples.emplace_back().file;
            else if (line == "```text")
                open = &examples.back().said;
            else
                open = nullptr;
        } else if (open) {
            *open += line + '\n';
        }
    }
    return examples;
}

/// The words of each line, with one blank between them.
std::string Words(const std::string& text) {
    std::string words;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream in(line);
        std::string joined;
        for (std::string word; in >> word;) joined += (joined.empty() ? "" : " ") + word;
        words += joined + '\n';
    }
    return words;
}

TEST(FormatPage, EveryExampleGivesWhatThePageSays) {
    const auto examples = Examples(test::ReadFile(test::ProjectFolder("docs") / "format.md"));
    EXPECT_GT(examples.size(), 30u);
    for (const Example& example : examples) {
        test::ScriptedUserInterface user;
        std::ostringstream out;
        try {
            const auto parser = test::Import(example.file);
            out << test::Outlined(*parser->GetCVEKA_Manager());
        } catch (const CException& error) {
            out << "exception: " << error.what() << '\n';
        }
        for (const std::string& message : user.messages) out << "message: " << message << '\n';
        EXPECT_EQ(Words(out.str()), Words(example.said)) << example.file;
    }
}

}  // namespace
