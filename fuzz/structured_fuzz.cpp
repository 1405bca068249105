// Files of the right shape through the whole import: the bytes choose what each level of the shape becomes.

#include "CheckImport.h"
#include "Grammar.h"
#include "InputFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Grammar grammar({VEKA_PROJECT_DIR "/tests/data/complete.veka"});
    fuzz::CheckImport(fuzz::WriteInput(grammar.Make(fuzz::View(data, size))));
    return 0;
}
