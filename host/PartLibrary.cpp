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

/// Puts a part back that an interrupted store took away, from its entry `Old(name)`.
void PutBack(const Directory& library, const std::string& entry) {
    const std::string name = entry.substr(kOld.size());
    try {
        if (library.MoveToFree(entry, library, name)) return;
        MoveToTrash(library, PrepareTrash(library, name), name);
    } catch (const StoreError&) {
        // Perhaps the one copy of a part. The next store tries again.
    }
}

/// Ends what an interrupted store began: puts parts back that were taken away, and removes new parts that
/// were not finished.
void CleanUp(const Directory& library) {
    for (const std::string& entry : library.Names()) {
        if (entry.starts_with(kNew)) library.RemoveAll(entry);
        if (entry.starts_with(kOld)) PutBack(library, entry);
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

}  // namespace

LockedLibrary::LockedLibrary(const std::filesystem::path& directory, const Waiting& waiting)
    : m_directory(directory), m_lock(m_directory, kLock, waiting) {}

PartGroup::PartGroup(const LockedLibrary& library) : m_library(library.Entries()) {}

PartGroup::~PartGroup() {
    if (!m_new) return;
    const std::string name = m_new->Name();
    m_new.reset();  // on some systems a directory that is open cannot be removed
    m_library.RemoveAll(name);
}

bool PartGroup::Write(const NewPart& part) {
    m_outcomes.emplace_back();
    GroupOutcome& outcome = m_outcomes.back();
    try {
        RequireNames(part.name, part.fileName);
        if (m_library.Has(part.name)) {
            const std::optional<PartStamp> same = StampOfSame(m_library, part);
            outcome.outcome = same ? Outcome::Unchanged : Outcome::Kept;
            if (same) outcome.stamp = *same;
            if (same || part.existing == Existing::Keep) return true;
        }
        outcome.stamp = WriteNew(part);
        m_written.push_back({m_outcomes.size() - 1, part.name, part.existing});
    } catch (const DiskFull& error) {
        outcome.failure = error.what();
        return false;
    } catch (const StoreError& error) {
        outcome.failure = error.what();
    }
    return true;
}

PartStamp PartGroup::WriteNew(const NewPart& part) {
    if (!m_new) m_new.emplace(m_library.MakeUnique(kNew));
    const EntryStatus directory = m_new->Make(part.name, m_library);
    try {
        // Only this user can enter the new directory, so the part's own need not be opened.
        const EntryStatus file =
            m_new->Write(part.name + '/' + part.fileName, part.content, Durable::WithSyncAll);
        return {directory.inode, part.fileName, file};
    } catch (...) {
        m_new->RemoveAll(part.name);
        throw;
    }
}

void PartGroup::Publish() {
    if (!m_new) return;
    m_library.SyncAll();
    for (const Written& part : m_written) try {
            m_outcomes[part.place].outcome = PutInPlace(part);
        } catch (const StoreError& error) {
            m_outcomes[part.place].failure = error.what();
        }
    if (!m_last.empty()) m_trash->Write(kLast, {m_last, 0666});
    if (m_trash) m_trash->Sync();
    m_library.Sync();
}

Outcome PartGroup::PutInPlace(const Written& part) {
    if (m_new->MoveToFree(part.name, m_library, part.name)) return Outcome::New;
    if (part.existing == Existing::Keep) return Outcome::Kept;
    m_library.RequireMovable(part.name);
    if (m_library.Has(Old(part.name))) PutBack(m_library, Old(part.name));
    if (!m_trash) {
        m_trash.emplace(m_library.OpenOrMake(kTrash));
        // Until the group is stored it is not known which of its parts will be the last.
        m_trash->RemoveAll(kLast);
    }
    Replace(m_library, *m_trash, *m_new, part.name, part.name, Durable::WithSyncAll);
    m_last = part.name;
    return Outcome::Replaced;
}

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
    const std::unique_ptr<LockedLibrary> library = Lock();
    PartGroup group(*library);
    for (const NewPart& part : parts)
        if (!group.Write(part)) break;
    group.Publish();
    return group.Outcomes();
}

std::unique_ptr<LockedLibrary> PartLibrary::Lock() {
    auto library = std::make_unique<LockedLibrary>(m_directory, m_waiting);
    // The entries of a large library are looked at once, and not again for each lock.
    if (!m_cleaned) CleanUp(library->Entries());
    m_cleaned = true;
    return library;
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
