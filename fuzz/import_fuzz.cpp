// Any bytes through the whole import; the model is then walked, cloned, compared and destroyed. Then the same
// from memory, with limits.

#include "CheckImport.h"
#include "InputFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::CheckImport(fuzz::WriteInput(fuzz::View(data, size)));
    fuzz::CheckLimits(fuzz::View(data, size));
    return 0;
}
