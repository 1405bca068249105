// Any bytes through the whole import; the model is then cloned and destroyed.

#include <memory>

#include "InputFile.h"
#include "parser/CVEK_AsciiParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::SilenceMessages();
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(fuzz::WriteInput(data, size));
    parser.Parser();
    const std::unique_ptr<CVEKA_Manager> clone(parser.GetCVEKA_Manager()->Clone());
    *parser.GetCVEKA_Manager() = *clone;
    return 0;
}
