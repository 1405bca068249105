#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "host/PartLibrary.h"
#include "host/ReadAhead.h"
#include "host/Reading.h"
#include "host/StoredPart.h"

namespace host {

/// What became of one file of a batch.
struct BatchResult {
    enum class State { Stored, Replaced, Unchanged, Refused, Failed };
    std::string file;
    std::string name;  ///< of the part in the library; empty where the file holds none
    State state = State::Failed;
    std::string reason;               ///< a sentence; empty unless the file was refused or failed
    std::vector<std::string> faults;  ///< a sentence for each thing that is wrong with the file as a whole
};

/// The words for the states, as results and summaries have them.
const char* StateWord(BatchResult::State state);

/// How many files of a batch came to what end.
struct BatchTotals {
    static constexpr std::size_t kStates = 5;
    std::size_t files = 0;
    std::array<std::size_t, kStates> counts{};

    std::size_t& operator[](BatchResult::State state);
    std::size_t Done() const { return std::accumulate(counts.begin(), counts.end(), std::size_t{0}); }
    std::size_t Left() const { return files - Done(); }
};

/// How many files came to which end, as a sentence without a point.
std::string TotalsSentence(const BatchTotals& totals);

/// How a batch is imported.
struct Batch {
    std::vector<std::string> files;
    std::string library;
    Existing existing = Existing::Keep;
    unsigned jobs = 0;  ///< threads that read files; 0: one for each processor
    Limits limits;
    Waiting waiting = nullptr;
    /// Asked about a part that the library has with another content, and may not replace; null is a No.
    std::function<bool(const CheckedFile& file)> mayReplace = nullptr;
    /// Told what became of each file, in the order of the files.
    std::function<void(const BatchResult& result, const BatchTotals& totals)> onResult = nullptr;
    /// Given the report of each file that could be read, before `onResult`; null makes no reports. A report
    /// counts its findings and keeps none.
    std::function<void(const veka::ImportReport& report)> onReport = nullptr;
    /// Asked now and then; false ends the batch after the files that are in hand.
    std::function<bool()> goOn = nullptr;
    /// Given the parts that a group has stored, or of which the library has the very content.
    std::function<void(std::vector<StoredPart> stored)> index = nullptr;
};

/// Imports files side by side and stores their parts in groups that share their syncs. A file that fails does
/// not stop the others. Of several files with one part number the first is stored and the others are refused,
/// unless parts may be replaced: then the last one stays. The functions of the batch are called in this
/// thread.
BatchTotals ImportBatch(const Batch& batch);

}  // namespace host
