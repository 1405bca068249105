#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/PartFacts.h"
#include "host/StoredPart.h"

namespace host {

/// A library that cannot be searched.
struct IndexError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A condition that cannot be understood.
struct QueryError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// What a field of a part has to be.
struct Condition {
    enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };
    std::string field;
    Comparison comparison = Comparison::Equal;
    std::string value;
};

/// Reads a condition such as `pins>=8` or `manufacturer=Maker*`, where `*` stands for any characters. Raises
/// `QueryError` for an unknown field, and for a number that is none.
Condition ParseCondition(const std::string& text);

/// The fields that a condition can have, for messages.
std::string ConditionFields();

/// What a list of parts is sorted by.
enum class SortBy { Number, Manufacturer, Description, PackageType, Pins, Size, Stored };

/// Which parts of a library are wanted, and in which order.
struct PartQuery {
    /// Words, beginnings of words, and parts of a part number; a part must have all of them. Any text is
    /// valid, and an empty one means all parts.
    std::string text;
    std::vector<Condition> where;
    /// Without it the parts come by their numbers, those whose number is or begins with the text first.
    std::optional<SortBy> sortBy = std::nullopt;
    bool descending = false;
};

/// How many findings the report of a part's file has.
struct FindingCounts {
    std::int64_t errors = 0, warnings = 0, notes = 0;
};

/// A part as the index lists it.
struct ListedPart {
    PartFacts facts;
    std::int64_t stored = 0;                ///< when the file was stored, in seconds since 1970
    std::string origin;                     ///< as in `StoredPart`; forgotten when the index is made again
    std::optional<FindingCounts> findings;  ///< empty until the report of the file was asked for
};

/// Told how far the index has come, when many parts must be read: how many of how many. False ends that.
using IndexProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// An index of the parts of a library. It is a cache of what the files of the parts say, and never the truth:
/// it can be deleted at any time and is made again from the parts. Where the file of the index cannot be
/// used, the index is in memory, and `Remarks` says why. An object is used in one thread.
class LibraryIndex {
public:
    virtual ~LibraryIndex() = default;

    /// Brings the index up to date with the library: reads the parts that are new or changed and drops those
    /// that are gone. Costs little where the library was not written since. Raises `StoreError` where the
    /// library cannot be read.
    virtual void Refresh(const IndexProgress& progress = nullptr) = 0;
    /// Takes parts over that were just stored. Raises `IndexError` where the index is in memory.
    void Put(const std::vector<StoredPart>& parts) {
        Add(parts);
        Commit();
    }
    /// As `Put`, but the parts are there after `Commit`. Until then no other program can write the index, and
    /// only `Add` and `Commit` may be called.
    virtual void Add(const std::vector<StoredPart>& parts) = 0;
    /// Ends what `Add` began. Without an `Add` before it does nothing. Raises `IndexError` where the parts
    /// are not in the index.
    virtual void Commit() = 0;
    /// The parts that a query wants.
    virtual std::vector<std::int64_t> Find(const PartQuery& query) = 0;
    /// A part that `Find` found; empty where the part is gone since.
    virtual std::optional<ListedPart> Part(std::int64_t id) = 0;
    /// Number of parts.
    virtual std::size_t Size() = 0;
    /// Reads every part and compares it with the index; makes the reports that are missing. Returns a
    /// sentence for each thing that does not hold.
    virtual std::vector<std::string> Verify(const IndexProgress& progress = nullptr) = 0;

    /// A sentence for each thing that happened to the file of the index since the last call.
    std::vector<std::string> Remarks() { return std::exchange(m_remarks, {}); }

protected:
    std::vector<std::string> m_remarks;
};

/// Opens the index of a library, which is made where there is none. It is not refreshed yet. `jobs` is the
/// number of threads that read parts, 0 one for each processor. Raises `StoreError` where there is no such
/// library, and `IndexError` in a program that was built without SQLite.
std::unique_ptr<LibraryIndex> OpenIndex(const std::filesystem::path& library, unsigned jobs = 0);

/// True if this program can have an index.
bool HasIndex();

}  // namespace host
