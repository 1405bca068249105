#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <signal.h>
#include <unistd.h>
#endif

#include "host/DesktopProgram.h"
#include "host/Host.h"
#include "host/Interrupt.h"
#include "host/Messages.h"

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
    const host::Utf8Terminal utf8;
    const std::vector<std::string> arguments = host::ProgramArguments();
    const bool terminal = _isatty(0) != 0, live = _isatty(2) != 0;
    if (!terminal) _setmode(0, _O_BINARY);  // a part data file may come from there
#else
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool terminal = isatty(0) != 0, live = isatty(2) != 0;
    signal(SIGPIPE, SIG_IGN);  // a closed output is reported, and a store goes on
#endif
#ifdef VEKA_DESKTOP_PROGRAM
    // To load the libraries for windows and solids takes longer than most commands.
    const std::string failure = host::RunDesktopProgram(VEKA_DESKTOP_PROGRAM, arguments, argv);
    if (!failure.empty()) host::Messages(std::cerr).Say(failure);
#endif
    const int code = host::RunHost(arguments, {std::cin, std::cout, std::cerr, terminal, live}, desktop);
#ifndef _WIN32
    if (host::Interrupt::Happened()) raise(SIGINT);  // so that a script that runs this program ends, too
#endif
    return code;
}
