#include <iostream>

#include "host/Host.h"

#if defined(VEKA_WITH_QT)
#include "host/qt/QtDesktop.h"
#elif defined(_WIN32)
#include "host/win32/Win32Desktop.h"
#endif
#ifdef _WIN32
#include "host/win32/Process.h"
#endif

int main([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
    host::Desktop* desktop = nullptr;
#if defined(VEKA_WITH_QT)
    host::QtDesktop windows;
    desktop = &windows;
#elif defined(_WIN32)
    host::Win32Desktop windows;
    desktop = &windows;
#endif
#ifdef _WIN32
    const host::Utf8Terminal terminal;
    const std::vector<std::string> arguments = host::ProgramArguments();
#else
    const std::vector<std::string> arguments(argv + 1, argv + argc);
#endif
    return host::RunHost(arguments, std::cin, std::cout, std::cerr, desktop);
}
