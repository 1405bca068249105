#include "host/Solids.h"

#include <filesystem>

#include "host/CommandLine.h"
#include "package/PackageSolids.h"

namespace host {

std::vector<std::string> WriteSolids(const CVEKA_Manager& part, const std::string& partFile,
                                     const std::vector<std::string>& stepFolders,
                                     std::vector<SolidFile>& files) {
    std::vector<std::string> folders;
    if (partFile != kStandardInput) {
        const std::string folder = std::filesystem::path(partFile).parent_path().string();
        folders.push_back(folder.empty() ? "." : folder);
    }
    folders.insert(folders.end(), stepFolders.begin(), stepFolders.end());
    const veka::PackageSolids made =
        veka::MakePackageSolids(part, std::make_shared<geometry::step_files>(folders));
    for (SolidFile& file : files) try {
            const auto write =
                file.format == SolidFile::Format::Step ? geometry::WriteStep : geometry::WriteGltf;
            file.failures = write(file.path, made.solids);
            file.written = true;
        } catch (const std::runtime_error& error) {
            file.failures.emplace_back(error.what());
        }
    return made.remarks;
}

}  // namespace host
