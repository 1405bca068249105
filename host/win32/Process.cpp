#include "host/win32/Process.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

#include "win32/WideText.h"

namespace host {

namespace {

struct LocalMemory {
    void operator()(wchar_t** words) const { LocalFree(words); }
};

}  // namespace

std::vector<std::string> ProgramArguments() {
    int count = 0;
    const std::unique_ptr<wchar_t*, LocalMemory> words(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i) arguments.emplace_back(veka::FromWide(words.get()[i]).View());
    return arguments;
}

Utf8Terminal::Utf8Terminal() : m_input(GetConsoleCP()), m_output(GetConsoleOutputCP()) {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Terminal::~Utf8Terminal() {
    SetConsoleCP(m_input);
    SetConsoleOutputCP(m_output);
}

}  // namespace host
