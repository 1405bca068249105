#include <iostream>

#include "host/Host.h"

int main(int argc, char** argv) {
    return host::RunHost({argv + 1, argv + argc}, std::cin, std::cout, std::cerr);
}
