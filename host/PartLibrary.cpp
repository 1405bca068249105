#include "host/PartLibrary.h"

#include <string_view>

#include "files/Paths.h"
#include "host/SafeFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

// Names of parts never begin with a point, so these cannot be parts.
constexpr std::string_view kLock = ".veka-lock";
constexpr std::string_view kNew = ".veka-new-";  // a part that is being written
constexpr std::string_view kOld = ".veka-old-";  // a part that is being replaced, followed by its name

std::string Name(const fs::path& path) {
    return std::string(veka::FromPath(path.filename()).View());
}

/// The path of an entry, which may be too long for some systems where the directory's is not.
fs::path Entry(const fs::path& directory, const std::string& name) {
    return veka::ToPath(veka::FromPath(directory / veka::ToPath(CString(name))));
}

/// Removes what an interrupted store left, and puts a part back that it had taken away.
void CleanUp(const fs::path& library) {
    for (const fs::path& entry : Entries(library)) {
        const std::string name = Name(entry);
        try {
            const bool old = name.starts_with(kOld);
            if (old && MoveToFree(entry, Entry(library, name.substr(kOld.size())))) continue;
            if (old || name.starts_with(kNew)) RemoveAll(entry);
        } catch (const StoreError&) {
            // The only copy of a part, which cannot be moved now: the next store tries again.
        }
    }
}

/// Puts a written directory in the place of a part. What was there is deleted.
void Replace(const fs::path& library, const fs::path& fresh, const std::string& name) {
    const fs::path part = Entry(library, name);
    if (MoveToFree(fresh, part)) return;
    if (Exchange(fresh, part)) return RemoveAll(fresh);  // holds the old part now
    // Without an exchange, a crash between two steps is undone by `CleanUp`.
    const fs::path old = Entry(library, std::string(kOld) + name);
    const auto move = [](const fs::path& from, const fs::path& to) {
        if (!MoveToFree(from, to)) throw StoreError("cannot replace \"" + Name(to) + "\"");
    };
    move(part, old);
    try {
        move(fresh, part);
    } catch (...) {
        MoveToFree(old, part);
        throw;
    }
    RemoveAll(old);
}

}  // namespace

void PartLibrary::Store(const std::string& name, const fs::path& source) {
    if (!IsFileName(name) || name[0] == '.') throw StoreError("\"" + name + "\" is no name for a part");

    const FileLock lock(Entry(m_directory, std::string(kLock)));
    CleanUp(m_directory);

    const fs::path fresh = MakeUniqueDirectory(m_directory, kNew);
    try {
        CopyFileDurably(source, Entry(fresh, Name(source)));
        SyncDirectory(fresh);
        Replace(m_directory, fresh, name);
        SyncDirectory(m_directory);
    } catch (...) {
        RemoveAll(fresh);
        throw;
    }
}

}  // namespace host
