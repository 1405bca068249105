#include "host/PartFiles.h"

#include <algorithm>
#include <system_error>

#include "files/Paths.h"
#include "host/CommandLine.h"
#include "host/PartLibrary.h"

namespace host {

std::vector<std::string> PartFilesBelow(const std::filesystem::path& directory) {
    std::vector<std::string> files;
    std::error_code error;
    std::filesystem::recursive_directory_iterator entry(directory, error), end;
    for (; !error && entry != end; entry.increment(error)) {
        std::string path(veka::FromPath(entry->path()).View());
        if (!IsPartDataName(path)) continue;
        // Most systems tell with the name what the entry is. A file that went since is none.
        std::error_code vanished;
        if (!entry->is_symlink(vanished) && entry->is_regular_file(vanished))
            files.push_back(std::move(path));
    }
    if (error)
        throw SourceError("the directory \"" + std::string(veka::FromPath(directory).View()) +
                          "\" cannot be read: " + error.message());
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> ExpandDirectories(const std::vector<std::string>& files) {
    std::vector<std::string> expanded;
    for (const std::string& file : files) {
        if (!IsDirectoryOfFiles(file)) {
            expanded.push_back(file);
            continue;
        }
        std::vector<std::string> below = PartFilesBelow(veka::ToPath(CString(file)));
        if (below.empty()) throw SourceError("the directory \"" + file + "\" holds no part data file");
        std::move(below.begin(), below.end(), std::back_inserter(expanded));
    }
    return expanded;
}

bool IsDirectoryOfFiles(const std::string& file) {
    return file != kStandardInput && veka::IsDirectory(veka::ToPath(CString(file)));
}

}  // namespace host
