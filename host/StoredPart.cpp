#include "host/StoredPart.h"

#include <algorithm>

#include "files/Paths.h"

namespace host {

std::vector<std::string> StoredNames(const Directory& library) {
    std::vector<std::string> names = library.Names();
    names.erase(
        std::remove_if(names.begin(), names.end(), [](const std::string& name) { return name[0] == '.'; }),
        names.end());
    std::sort(names.begin(), names.end());
    return names;
}

PartStamp CurrentStamp(const Directory& library, const std::string& name, const std::string& fileName) {
    const EntryStatus directory = library.Status(name);
    if (directory.kind != EntryStatus::Kind::Directory || fileName.empty())
        return {directory.inode, "", {directory.kind, 0, directory.modified, directory.inode}};
    return {directory.inode, fileName, library.Status(name + '/' + fileName)};
}

StoredFile ReadStored(const Directory& library, const std::string& name) {
    StoredFile stored;
    stored.stamp = CurrentStamp(library, name, "");
    stored.file.file = name;
    const std::string path(veka::FromPath(library.Path() / veka::ToPath(CString(name))).View());
    try {
        if (library.Status(name).kind != EntryStatus::Kind::Directory)
            throw SourceError('"' + path + "\" is no directory of a part");
        const Directory directory = library.Open(name);
        const std::string fileName = SourceName(directory);
        if (fileName.empty()) throw SourceError('"' + path + "\" has no file that is the part's, or several");
        stored.stamp = {library.Status(name).inode, fileName, directory.Status(fileName)};
        const Limits limits;
        FileContent content = directory.ReadFile(fileName, std::uintmax_t{limits.size} << 20);
        stored.file = CheckContent(path + '/' + fileName, std::move(content), {limits, nullptr, false});
        stored.file.facts.fileName = fileName;
        if (!stored.file.failure && stored.file.facts.name != name)
            throw SourceError('"' + path + "\" holds the part \"" + stored.file.facts.name + '"');
    } catch (const StoreError& error) {
        stored.file.failure = Failure{kFailed, error.what()};
    } catch (...) {
        stored.file.failure = CurrentFailure(path);
    }
    return stored;
}

}  // namespace host
