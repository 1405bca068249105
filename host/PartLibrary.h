#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/SafeFiles.h"

namespace host {

/// What a store does where the library has the part already.
enum class Existing { Keep, Replace };

/// What became of a part that was to be stored.
enum class Outcome {
    New,
    Replaced,
    Kept,      ///< the library has a part of this name, which may not be replaced
    Unchanged  ///< the library has this part with this very content; only a group looks at that
};

/// A file that is to be stored as a part.
struct NewPart {
    std::string name;      ///< as for `PartLibrary::Store`
    std::string fileName;  ///< as for `PartLibrary::Store`
    FileContent content;
    Existing existing = Existing::Keep;
};

/// By what a change of a stored part is noticed without reading its file.
struct PartStamp {
    std::uint64_t directory = 0;  ///< the inode of the part's directory
    std::string fileName;         ///< of the part's file; empty where there is none
    EntryStatus file;
};

/// What became of one part of a group.
struct GroupOutcome {
    Outcome outcome = Outcome::Kept;
    PartStamp stamp;      ///< of the part that was stored, or that is unchanged
    std::string failure;  ///< why the part was not stored; empty where nothing failed
};

/// There is no replaced part that could be put back.
struct NothingToUndo : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A library that nobody else writes as long as this is there.
class LockedLibrary {
public:
    /// Waits for others who write the library, as `FileLock` does. Raises `StoreError`.
    explicit LockedLibrary(const std::filesystem::path& directory, const Waiting& waiting);

    const Directory& Entries() const { return m_directory; }

private:
    const Directory m_directory;
    const FileLock m_lock;
};

/// Parts of different names that share their syncs: all are written, one sync follows, and only then each
/// takes its place at one instant. One group can be written while another one of the same library is
/// published in another thread.
class PartGroup {
public:
    /// The library outlives the group.
    explicit PartGroup(const LockedLibrary& library);
    /// Removes what was written and not published.
    ~PartGroup();
    PartGroup(const PartGroup&) = delete;
    PartGroup& operator=(const PartGroup&) = delete;

    /// Writes a part, which nobody sees yet, unless the library has this very content or may not replace the
    /// part. A part that fails does not stop the others. False where the disk is full.
    bool Write(const NewPart& part);
    /// Puts all parts that were written into their places, and waits until they are on the disk. Raises
    /// `StoreError` where the library as a whole cannot be written.
    void Publish();
    /// An outcome for each call of `Write`. Before `Publish` only those of parts that were not written are
    /// known.
    const std::vector<GroupOutcome>& Outcomes() const { return m_outcomes; }

private:
    struct Written {
        std::size_t place;  // of the outcome
        std::string name;
        Existing existing;
    };

    PartStamp WriteNew(const NewPart& part);
    Outcome PutInPlace(const Written& part);

    const Directory& m_library;
    std::optional<Directory> m_new, m_trash;
    std::vector<GroupOutcome> m_outcomes;
    std::vector<Written> m_written;
    std::string m_last;  // part that was replaced
};

/// A directory with one directory for each part, which holds the part's source file.
///
/// A crash at any instant leaves either the old part or the new one, whole. Where a system cannot exchange
/// two names, a crash may leave the old part under another name; the next store puts it back. Several
/// programs may store into one library at the same time. A part that is replaced is moved, with all files in
/// its directory, to the directory `.veka-trash`, which keeps one replaced part of each name.
class PartLibrary {
public:
    /// `waiting` is asked while another program writes the library; without it there is no end to that.
    explicit PartLibrary(std::filesystem::path directory, Waiting waiting = nullptr);

    /// Stores a file as the part `name`. `name` and `fileName` are names of entries, and `name` does not
    /// begin with a point. Whether the library has the part is looked at under the lock. Raises `StoreError`.
    Outcome Store(const std::string& name, const std::string& fileName, const FileContent& content,
                  Existing existing);
    /// Stores parts as one `PartGroup`. There are fewer outcomes than parts where the disk is full: the last
    /// outcome says so, and no part after it was tried. Raises `StoreError` where the library as a whole
    /// cannot be written.
    std::vector<GroupOutcome> StoreGroup(const std::vector<NewPart>& parts);
    /// Locks the library for groups of parts. The first time it ends what an interrupted store began. Raises
    /// `StoreError`.
    std::unique_ptr<LockedLibrary> Lock();
    /// Moves a part to the trash of replaced parts, from where `Undo` puts the part back. Raises
    /// `StoreError`.
    void Remove(const std::string& name);
    /// The names of the parts in the trash, sorted: of those that were removed, and of those that were
    /// replaced. Raises `StoreError`.
    std::vector<std::string> Trash() const;
    /// Exchanges a part with the one of that name that was replaced last; without a name, the part that was
    /// replaced last of all. Returns the name. Raises `NothingToUndo` and `StoreError`.
    std::string Undo(std::string name = "");

private:
    std::filesystem::path m_directory;
    Waiting m_waiting;
    bool m_cleaned = false;  // by a lock before
};

/// The name of the file of a part in the part's directory: the one that ends in ".veka", or else the only
/// one. Empty where no file, or none of several, is the part's.
std::string SourceName(const Directory& part);

/// True if a name ends as the names of part data files do, in letters of any case.
bool IsPartDataName(std::string_view name);

}  // namespace host
