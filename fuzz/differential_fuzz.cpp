// Reads any bytes by the level reader and by the reference reader, which must give the same result. The first
// byte chooses the options of the reader.

#include <cstdio>
#include <cstdlib>

#include "InputFile.h"
#include "support/LibraryReader.h"
#include "support/ReferenceReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::View(data, size);
    const int options = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
    const std::string_view text = bytes.empty() ? bytes : bytes.substr(1);
    const bool stopAtDepthZero = options & 1;
    const int reserved = options & 2 ? '\\' : 0;

    const test::ReadResult read = test::ReadByLibrary(text, stopAtDepthZero, reserved);
    if (read == test::ReadByReference(std::string(text), stopAtDepthZero, reserved)) return 0;
    std::fputs("the reader and the reference reader differ\n", stderr);
    std::abort();
}
