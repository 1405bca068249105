// Imports files one after another and prints the seconds that this took: veka_import_files FILE...

#include <chrono>
#include <iostream>

#include "VEKAsciiDLL.h"
#include "parser/Import.h"

int main(int argc, char** argv) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 1; i < argc; ++i) {
        CVEK_AsciiParser parser;
        if (!veka::ImportFile(parser, argv[i]).IsWhole()) {
            std::cerr << argv[i] << " is not whole\n";
            return 1;
        }
    }
    std::cout << std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() << '\n';
}
