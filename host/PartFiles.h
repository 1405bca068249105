#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

/// The part data files below a directory, sorted by their paths: regular files whose names end in ".veka".
/// No link is followed. A directory that cannot be read raises `SourceError`.
std::vector<std::string> PartFilesBelow(const std::filesystem::path& directory);

/// Replaces each directory of a list by the part data files below it. Raises `SourceError` where one cannot
/// be read or holds no such file.
std::vector<std::string> ExpandDirectories(const std::vector<std::string>& files);

/// True if a name that the user gave is a directory, and not standard input.
bool IsDirectoryOfFiles(const std::string& file);

}  // namespace host
