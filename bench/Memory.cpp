#include "Memory.h"

#ifdef __linux__
#include <malloc.h>
#endif

#include <fstream>
#include <limits>
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

}  // namespace

double ResetPeak() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << "5";
    return Status("VmRSS:");
}

double Peak() {
    return Status("VmHWM:");
}

void KeepMemory() {
#ifdef __GLIBC__
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
#endif
}

}  // namespace bench
