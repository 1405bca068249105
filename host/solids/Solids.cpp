#include "host/Solids.h"

#include <filesystem>

#include "host/CommandLine.h"
#include "package/PackageSolids.h"

namespace host {

bool CanWriteSolids() {
    return true;
}

std::vector<std::string> WriteSolids(const CVEKA_Manager& part, const std::string& partFile,
                                     const std::vector<std::string>& stepFolders,
                                     std::vector<SolidFile>& files, const CVEKA_Package* only) {
    std::vector<std::string> folders;
    if (partFile != kStandardInput) {
        const std::string folder = std::filesystem::path(partFile).parent_path().string();
        folders.push_back(folder.empty() ? "." : folder);
    }
    folders.insert(folders.end(), stepFolders.begin(), stepFolders.end());
    const auto stepFiles = std::make_shared<geometry::step_files>(folders);
    const CString unit = part.GetVEK()->GetPartGeneral()->GetUnit();
    const veka::PackageSolids made = only ? veka::MakePackageSolids(*only, {unit, stepFiles, nullptr})
                                          : veka::MakePackageSolids(part, stepFiles);
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
