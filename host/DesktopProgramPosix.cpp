#ifndef _WIN32

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/DesktopProgram.h"

namespace host {

std::string FindProgram(const std::string& name) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error);
    if (error) return "";
    for (const char* const folder : {".", "../libexec/vekasciidll"}) {
        const fs::path program = own.parent_path() / folder / name;
        if (fs::is_regular_file(program, error)) return program.string();
    }
    return "";
}

std::string RunDesktopProgram(const std::string& name, const std::vector<std::string>& arguments,
                              char* const* argv) {
    try {
        if (!NeedsDesktop(ParseCommandLine(arguments))) return "";
    } catch (const UsageError&) {
        return "";  // for this program to report
    }
    const std::string without = "there are no windows and no solids, because the program \"" + name + "\" ";
    const std::string program = FindProgram(name);
    if (program.empty()) return without + "is missing";
    execv(program.c_str(), argv);
    return without + "cannot be started: " + std::strerror(errno);
}

}  // namespace host

#endif
