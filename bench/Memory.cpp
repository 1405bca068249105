#include "Memory.h"

#ifdef __linux__
#include <malloc.h>
#include <sys/mman.h>
#endif

#include <time.h>

#include <cstdint>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>

namespace bench {

namespace {

double Status(const char* name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == name && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

/// Loads all code of the program and its libraries into memory. So the code that a reader is the first to run
/// does not count as memory of that reader.
void FetchProgram() {
#ifdef MADV_POPULATE_READ
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0, end = 0;
        char dash = 0;
        std::string rights;
        std::istringstream(line) >> std::hex >> begin >> dash >> end >> rights;
        const bool ofFile = line.find(" /") != std::string::npos;
        if (ofFile && rights[0] == 'r')
            (void)madvise(reinterpret_cast<void*>(begin), end - begin, MADV_POPULATE_READ);
    }
#endif
}

}  // namespace

double ResetPeak() {
    FetchProgram();
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << "5";
    return Status("VmRSS:");
}

double Peak() {
    return Status("VmHWM:");
}

double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void KeepMemory() {
#ifdef __GLIBC__
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
#endif
}

}  // namespace bench
