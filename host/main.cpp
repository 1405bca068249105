#include <iostream>

#include "host/Host.h"

#ifdef VEKA_WITH_QT
#include "window/QtDesktop.h"
#endif

int main(int argc, char** argv) {
    host::Desktop* desktop = nullptr;
#ifdef VEKA_WITH_QT
    host::QtDesktop windows;
    desktop = &windows;
#endif
    return host::RunHost({argv + 1, argv + argc}, std::cin, std::cout, std::cerr, desktop);
}
