// Prints what the rows of the records and of the parser say, for pages and other tools:
//   veka-describe keywords      the page docs/keywords.md
//   veka-describe schema        the JSON schema of a part, docs/part.schema.json
//   veka-describe map           the map of the model, in the language of dot
//   veka-describe reference     the documentation of the records' members, for Doxygen
//   veka-describe dictionary    the keywords for libFuzzer
//   veka-describe outline FILE  every field of an imported part, also those that hold nothing

#include <iostream>
#include <string_view>

#include "inspect/Outline.h"
#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"
#include "tools/Keywords.h"
#include "tools/ModelMap.h"
#include "tools/PartSchema.h"
#include "tools/Reference.h"

namespace {

struct Output {
    std::string_view name;
    void (*write)(std::ostream& out);
};
constexpr Output kOutputs[] = {{"keywords", WriteKeywordsPage},
                               {"schema", WritePartSchema},
                               {"map", WriteModelMap},
                               {"reference", WriteReference},
                               {"dictionary", WriteDictionary}};

int WriteOutline(const char* file) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(file);
    parser.Parser();
    veka::Outline(std::cout, true).Write(*parser.GetCVEKA_Manager());
    return std::cout.flush() ? 0 : 3;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "outline") return WriteOutline(argv[2]);
    for (const Output& output : kOutputs) {
        if (argc != 2 || argv[1] != output.name) continue;
        output.write(std::cout);
        return std::cout.flush() ? 0 : 3;
    }
    std::cerr << "usage: veka-describe";
    const char* separator = " ";
    for (const Output& output : kOutputs) {
        std::cerr << separator << output.name;
        separator = "|";
    }
    std::cerr << "|outline FILE\n";
    return 2;
}
