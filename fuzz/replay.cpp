// Runs a fuzz target over all files of some folders, as an ordinary test.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            if (LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) !=
                0) {
                std::cerr << entry.path() << " failed\n";
                return 1;
            }
            ++count;
        }
    }
    std::cout << count << " inputs replayed\n";
    return count > 0 ? 0 : 1;
}
