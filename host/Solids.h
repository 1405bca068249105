#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "model/CVEKA_Manager.h"

namespace host {

/// Solids that cannot be made or written.
struct SolidsError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A file of solids, and what became of it.
struct SolidFile {
    enum class Format { Step, Gltf };
    Format format;
    std::string path;      ///< where to write
    bool written = false;  ///< the file is there, perhaps without some bodies
    std::vector<std::string>
        failures;  ///< a sentence for each body that could not be written, or for the file
};

/// False in a program that was built without solids.
bool CanWriteSolids();

/// Writes the solids of all packages of a part, or of one of them, bodies and leads, to files; each is tried
/// even if another fails. Returns a sentence for each kind of thing that was left out. A STEP file that the
/// part names is looked for beside the part's file and in the folders. Raises `SolidsError` in a program that
/// was built without solids.
std::vector<std::string> WriteSolids(const CVEKA_Manager& part, const std::string& partFile,
                                     const std::vector<std::string>& stepFolders,
                                     std::vector<SolidFile>& files, const CVEKA_Package* only = nullptr);

}  // namespace host
