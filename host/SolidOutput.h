#pragma once

#include "host/Solids.h"

namespace host {

/// Writes the solids of all packages of a part to one file, which takes its place once it is whole. A STEP
/// file that the part names is looked for beside the part's file and in the folders. Returns a sentence for
/// each thing that is not in the file. Raises `OutputError` where there is no file then, and `SolidsError` in
/// a program that was built without solids.
std::vector<std::string> WriteSolidOutput(const CVEKA_Manager& part, const std::string& partFile,
                                          const std::vector<std::string>& stepFolders,
                                          SolidFile::Format format, const std::string& path);

}  // namespace host
