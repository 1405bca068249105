#include "host/PartLibrary.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "host/StoredPart.h"

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
void MoveToTrash(const Directory& library, const Directory& trash, const std::string& name,
                 Durable durable = Durable::AtOnce) {
    trash.RemoveAll(name);
    Move(library, Old(name), trash, name);
    if (durable == Durable::AtOnce) trash.Sync();
}

/// Ends what an interrupted store began: puts a part back that was taken away, and removes a new part that
/// was not finished, except `except`.
void CleanUp(const Directory& library, const std::string& except = "") {
    for (const std::string& entry : library.Names()) {
        if (entry.starts_with(kNew) && entry != except) library.RemoveAll(entry);
        if (!entry.starts_with(kOld)) continue;
        const std::string name = entry.substr(kOld.size());
        try {
            if (library.MoveToFree(entry, library, name)) continue;
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

/// Puts the new part `fresh` of a directory in the place of a movable part, which goes to the trash. Where
/// that fails, all is as it was.
void Replace(const Directory& library, const Directory& trash, const Directory& from,
             const std::string& fresh, const std::string& name, Durable durable = Durable::AtOnce) {
    // Under this name the old part is found after a crash.
    Move(from, fresh, library, Old(name));
    bool exchanged = false;
    try {
        exchanged = library.Exchange(Old(name), library, name);
    } catch (...) {
        library.MoveToFree(Old(name), from, fresh);
        throw;
    }
    if (!exchanged) {
        Move(library, Old(name), from, fresh);
        MoveIntoPlace(from, fresh, library, name);
    }
    try {
        MoveToTrash(library, trash, name, durable);
    } catch (...) {
        if (exchanged && library.Exchange(Old(name), library, name))
            library.MoveToFree(Old(name), from, fresh);
        if (!exchanged && library.MoveToFree(name, from, fresh)) library.MoveToFree(Old(name), library, name);
        throw;
    }
}

/// Raises `StoreError` for names that a part and its file cannot have.
void RequireNames(const std::string& name, const std::string& fileName) {
    if (!IsFileName(name) || name[0] == '.') throw StoreError("\"" + name + "\" is no name for a part");
    if (!IsFileName(fileName)) throw StoreError("\"" + fileName + "\" is no name for a file");
}

/// The stamp of a part of the library that has this very content; nothing where it has another one.
std::optional<PartStamp> StampOfSame(const Directory& library, const NewPart& part) {
    try {
        const PartStamp directory{library.Status(part.name).inode, "", {}};
        const Directory opened = library.Open(part.name);
        const std::string source = SourceName(opened);
        const std::uintmax_t size = part.content.bytes.size();
        const EntryStatus status = opened.Status(source);
        if (source.empty() || status.size != size ||
            opened.ReadFile(source, size).bytes != part.content.bytes)
            return std::nullopt;
        return PartStamp{directory.directory, source, status};
    } catch (const StoreError&) {
        return std::nullopt;
    } catch (const SourceError&) {
        return std::nullopt;
    }
}

/// The parts of a group on their way: written into one new directory of the library, and then published.
class Group {
public:
    explicit Group(const Directory& library) : m_library(library) {}
    ~Group() {
        if (!m_new) return;
        const std::string name = m_new->Name();
        m_new.reset();  // on some systems a directory that is open cannot be removed
        m_library.RemoveAll(name);
    }
    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;

    /// Writes a part, which nobody sees yet; returns its stamp.
    PartStamp Write(const NewPart& part) {
        if (!m_new) m_new.emplace(m_library.MakeUnique(kNew));
        const Directory directory = m_new->Make(part.name, m_library);
        try {
            const EntryStatus file = directory.Write(part.fileName, part.content, Durable::WithSyncAll);
            return {directory.Status(".").inode, part.fileName, file};
        } catch (...) {
            m_new->RemoveAll(part.name);
            throw;
        }
    }
    /// Waits until what was written is on the disk.
    void Sync() const {
        if (m_new) m_library.SyncAll();
    }
    /// Puts a part that was written into its place.
    Outcome Publish(const NewPart& part) {
        if (m_new->MoveToFree(part.name, m_library, part.name)) return Outcome::New;
        if (part.existing == Existing::Keep) return Outcome::Kept;
        m_library.RequireMovable(part.name);
        if (m_library.Has(Old(part.name))) CleanUp(m_library, m_new->Name());
        if (!m_trash) {
            m_trash.emplace(m_library.OpenOrMake(kTrash));
            // Until the group is stored it is not known which of its parts will be the last.
            m_trash->RemoveAll(kLast);
        }
        Replace(m_library, *m_trash, *m_new, part.name, part.name, Durable::WithSyncAll);
        m_last = part.name;
        return Outcome::Replaced;
    }
    /// Waits until all places are on the disk.
    void End() {
        if (!m_new) return;
        if (!m_last.empty()) m_trash->Write(kLast, {m_last, 0666});
        if (m_trash) m_trash->Sync();
        m_library.Sync();
    }

private:
    const Directory& m_library;
    std::optional<Directory> m_new, m_trash;
    std::string m_last;
};

}  // namespace

PartLibrary::PartLibrary(std::filesystem::path directory, Waiting waiting)
    : m_directory(std::move(directory)), m_waiting(std::move(waiting)) {}

Outcome PartLibrary::Store(const std::string& name, const std::string& fileName, const FileContent& content,
                           Existing existing) {
    RequireNames(name, fileName);
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
            library.RequireMovable(name);
            Replace(library, PrepareTrash(library, name), library, fresh, name);
            outcome = Outcome::Replaced;
        }
        library.Sync();
        return outcome;
    } catch (...) {
        if (!fresh.empty()) library.RemoveAll(fresh);
        throw;
    }
}

std::vector<GroupOutcome> PartLibrary::StoreGroup(const std::vector<NewPart>& parts) {
    const Directory library(m_directory);
    const FileLock lock(library, kLock, m_waiting);
    // The entries of a large library are looked at once, and not again for each group.
    if (!m_cleaned) CleanUp(library);
    m_cleaned = true;

    Group group(library);
    std::vector<GroupOutcome> outcomes;
    std::vector<size_t> written;
    for (const NewPart& part : parts) {
        outcomes.emplace_back();
        GroupOutcome& outcome = outcomes.back();
        try {
            RequireNames(part.name, part.fileName);
            if (library.Has(part.name)) {
                const std::optional<PartStamp> same = StampOfSame(library, part);
                outcome.outcome = same ? Outcome::Unchanged : Outcome::Kept;
                if (same) outcome.stamp = *same;
                if (same || part.existing == Existing::Keep) continue;
            }
            outcome.stamp = group.Write(part);
            written.push_back(outcomes.size() - 1);
        } catch (const DiskFull& error) {
            outcome.failure = error.what();
            break;
        } catch (const StoreError& error) {
            outcome.failure = error.what();
        }
    }
    group.Sync();
    for (const size_t place : written) try {
            outcomes[place].outcome = group.Publish(parts[place]);
        } catch (const StoreError& error) {
            outcomes[place].failure = error.what();
        }
    group.End();
    return outcomes;
}

void PartLibrary::Remove(const std::string& name) {
    RequireNames(name, name);
    const Directory library(m_directory);
    const FileLock lock(library, kLock, m_waiting);
    CleanUp(library);
    if (!library.Has(name)) throw StoreError("the library has no part \"" + name + "\"");
    library.RequireMovable(name);
    const Directory trash = PrepareTrash(library, name);
    // After a crash between the two steps the next store puts the part back.
    Move(library, name, library, Old(name));
    try {
        MoveToTrash(library, trash, name);
    } catch (...) {
        library.MoveToFree(Old(name), library, name);
        throw;
    }
    library.Sync();
}

std::vector<std::string> PartLibrary::Trash() const {
    const Directory library(m_directory);
    return library.Has(kTrash) ? StoredNames(library.Open(kTrash)) : std::vector<std::string>();
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

bool IsPartDataName(std::string_view name) {
    constexpr std::string_view kEnd = ".veka";
    if (name.size() < kEnd.size()) return false;
    name.remove_prefix(name.size() - kEnd.size());
    return std::equal(name.begin(), name.end(), kEnd.begin(),
                      [](char c, char end) { return c == end || (c >= 'A' && c <= 'Z' && c + 32 == end); });
}

std::string SourceName(const Directory& part) {
    std::string source, other;
    int sources = 0, others = 0;
    for (const std::string& name : part.Names()) {
        if (part.Status(name).kind != EntryStatus::Kind::File) continue;
        const bool is = IsPartDataName(name);
        ++(is ? sources : others);
        (is ? source : other) = name;
    }
    if (sources > 0) return sources == 1 ? source : "";
    return others == 1 ? other : "";
}

}  // namespace host
