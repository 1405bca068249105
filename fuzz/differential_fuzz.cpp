// Any bytes through the level reader and through the plain procedure; what they give must be the same. The
// first byte chooses the reader's options.

#include <cstdio>
#include <cstdlib>

#include "InputFile.h"
#include "support/PlainLevels.h"
#include "support/PlainReader.h"
#include "support/ScriptedUserInterface.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::View(data, size);
    const int options = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
    const std::string_view text = bytes.empty() ? bytes : bytes.substr(1);
    const bool stopAtDepthZero = options & 1;
    const int reserved = options & 2 ? '\\' : 0;

    test::ScriptedUserInterface user;
    test::PlainResult read = test::ReadAsPlain(fuzz::WriteInput(text), stopAtDepthZero, reserved);
    for (const std::string& message : user.messages) read.message += message;
    if (read == test::ReadPlainly(std::string(text), stopAtDepthZero, reserved)) return 0;
    std::fputs("the reader and the plain procedure differ\n", stderr);
    std::abort();
}
