#include "host/PartLibrary.h"

#include <string_view>

namespace host {

namespace {

// Names of parts never begin with a point, so these cannot be parts.
constexpr const char* kLock = ".veka-lock";
constexpr const char* kTrash = ".veka-trash";
constexpr std::string_view kNew = ".veka-new-";  // a part that is being written
constexpr std::string_view kOld = ".veka-old-";  // a part that is being replaced, followed by its name
constexpr const char* kLast = ".last";           // in the trash: the name of the part that was replaced last

std::string Old(const std::string& name) {
    return std::string(kOld) + name;
}

void Move(const Directory& from, const std::string& name, const Directory& to, const std::string& newName) {
    if (!from.MoveToFree(name, to, newName)) throw StoreError("cannot replace \"" + newName + "\"");
}

/// Opens the trash for a part that is about to be replaced.
Directory PrepareTrash(const Directory& library, const std::string& name) {
    Directory trash = library.OpenOrMake(kTrash);
    trash.RemoveAll(kLast);
    trash.Write(kLast, {name, 0666});
    return trash;
}

/// Moves what waits under the name `Old(name)` to the trash. The part that the trash has of that name is
/// removed.
void MoveToTrash(const Directory& library, const Directory& trash, const std::string& name) {
    trash.RemoveAll(name);
    Move(library, Old(name), trash, name);
    trash.Sync();
}

/// Ends what an interrupted store began: puts a part back that was taken away, and removes a new part that
/// was not finished.
void CleanUp(const Directory& library) {
    for (const std::string& entry : library.Names()) {
        if (entry.starts_with(kNew)) library.RemoveAll(entry);
        if (!entry.starts_with(kOld)) continue;
        const std::string name = entry.substr(kOld.size());
        try {
            if (!library.MoveToFree(entry, library, name))
                MoveToTrash(library, PrepareTrash(library, name), name);
        } catch (const StoreError&) {
            // Perhaps the one copy of a part. The next store tries again.
        }
    }
}

/// Puts what is ready as `ready` in the place of a part, which becomes `Old(name)`, in two steps. A crash
/// between them is undone by `CleanUp`.
void MoveIntoPlace(const Directory& from, const std::string& ready, const Directory& library,
                   const std::string& name) {
    Move(library, name, library, Old(name));
    try {
        Move(from, ready, library, name);
    } catch (...) {
        library.MoveToFree(Old(name), library, name);
        throw;
    }
}

/// Puts a new part in the place of a part, which goes to the trash. Where that fails, all is as it was.
void Replace(const Directory& library, const std::string& fresh, const std::string& name) {
    library.RequireMovable(name);
    const Directory trash = PrepareTrash(library, name);
    // Under this name the old part is found after a crash.
    Move(library, fresh, library, Old(name));
    bool exchanged = false;
    try {
        exchanged = library.Exchange(Old(name), library, name);
    } catch (...) {
        library.MoveToFree(Old(name), library, fresh);
        throw;
    }
    if (!exchanged) {
        Move(library, Old(name), library, fresh);
        MoveIntoPlace(library, fresh, library, name);
    }
    try {
        MoveToTrash(library, trash, name);
    } catch (...) {
        if (exchanged && library.Exchange(Old(name), library, name))
            library.MoveToFree(Old(name), library, fresh);
        if (!exchanged && library.MoveToFree(name, library, fresh))
            library.MoveToFree(Old(name), library, name);
        throw;
    }
}

}  // namespace

PartLibrary::PartLibrary(std::filesystem::path directory, Waiting waiting)
    : m_directory(std::move(directory)), m_waiting(std::move(waiting)) {}

Outcome PartLibrary::Store(const std::string& name, const std::string& fileName, const FileContent& content,
                           Existing existing) {
    if (!IsFileName(name) || name[0] == '.') throw StoreError("\"" + name + "\" is no name for a part");
    if (!IsFileName(fileName)) throw StoreError("\"" + fileName + "\" is no name for a file");

    const Directory library(m_directory);
    const FileLock lock(library, kLock, m_waiting);
    CleanUp(library);
    if (existing == Existing::Keep && library.Has(name)) return Outcome::Kept;

    std::string fresh;
    try {
        {
            const Directory directory = library.MakeUnique(kNew);
            fresh = directory.Name();
            directory.Write(fileName, content);
            directory.ShareLike(library);
            directory.Sync();
        }
        Outcome outcome = Outcome::New;
        if (!library.MoveToFree(fresh, library, name)) {
            if (existing == Existing::Keep) {
                library.RemoveAll(fresh);
                return Outcome::Kept;
            }
            Replace(library, fresh, name);
            outcome = Outcome::Replaced;
        }
        library.Sync();
        return outcome;
    } catch (...) {
        if (!fresh.empty()) library.RemoveAll(fresh);
        throw;
    }
}

std::string PartLibrary::Undo(std::string name) {
    const Directory library(m_directory);
    const FileLock lock(library, kLock, m_waiting);
    CleanUp(library);
    if (!library.Has(kTrash)) throw NothingToUndo("no part of this library was replaced");
    const Directory trash = library.Open(kTrash);
    if (name.empty()) name = trash.Read(kLast);
    if (name.empty()) throw NothingToUndo("it is not known which part was replaced last");
    if (!IsFileName(name) || name[0] == '.' || !trash.Has(name))
        throw NothingToUndo("the library keeps no replaced part \"" + name + "\"");
    library.RequireMovable(name);
    trash.RequireMovable(name);
    if (!trash.MoveToFree(name, library, name) && !trash.Exchange(name, library, name)) {
        MoveIntoPlace(trash, name, library, name);
        MoveToTrash(library, trash, name);
    }
    library.Sync();
    return name;
}

}  // namespace host
