#include "InputFile.h"

#ifdef _WIN32
#include <filesystem>
#include <fstream>
#include <random>

#include "files/Paths.h"
#else
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#include <string>

namespace fuzz {

#ifdef _WIN32

CString WriteInput(std::string_view bytes) {
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("veka-input-" + std::to_string(std::random_device()()));
    std::ofstream(path, std::ios::binary) << bytes;
    return veka::FromPath(path);
}

#else

CString WriteInput(std::string_view bytes) {
    static const int fd = memfd_create("veka-input", MFD_CLOEXEC);
    if (fd < 0 || ftruncate(fd, 0) != 0) abort();
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t count =
            pwrite(fd, bytes.data() + written, bytes.size() - written, static_cast<off_t>(written));
        if (count <= 0) abort();
        written += static_cast<std::size_t>(count);
    }
    return CString("/proc/self/fd/" + std::to_string(fd));
}

#endif

std::string_view View(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace fuzz
