#include "host/BatchImport.h"

#include <algorithm>
#include <map>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "files/Paths.h"

namespace host {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

// What one sync is for. A larger group would save little, and would be lost by a crash.
constexpr size_t kMostParts = 768;
constexpr size_t kMostBytes = 32 << 20;
constexpr auto kLongest = milliseconds(1000);  // that a part waits for its group

constexpr auto kAsk = milliseconds(50);  // between two questions whether to go on
// Another program that waits for the library looks this often at least.
constexpr auto kBreak = milliseconds(60);
constexpr auto kBetweenBreaks = milliseconds(2000);

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

/// One run of a batch.
class Run {
public:
    explicit Run(const Batch& batch)
        : m_batch(batch),
          m_library(veka::ToPath(CString(batch.library)), batch.waiting),
          m_reader(m_batch.files, {batch.limits, nullptr, false, batch.onReport != nullptr}, batch.jobs) {
        m_totals.files = batch.files.size();
    }

    BatchTotals All() {
        for (CheckedFile file; !m_ended;) {
            const ReadAhead::Answer answer = m_reader.Next(file, kAsk);
            if (m_batch.goOn && !m_batch.goOn()) m_reader.Stop();
            if (answer == ReadAhead::Answer::File) Add(std::move(file));
            if (answer == ReadAhead::Answer::End) break;
            if (IsFull()) Store();
        }
        Store();
        return m_totals;
    }

private:
    /// A file of the group that is to be stored next.
    struct Pending {
        CheckedFile file;
        BatchResult result;
        bool decided = false;  // before the store
        PartStamp stamp = {};
    };

    void Add(CheckedFile file) {
        BatchResult result{file.file, file.facts.name, {}, "", file.faults};
        if (file.failure) {
            Decide(std::move(file), std::move(result));
            return;
        }
        const auto [first, fresh] = m_first.emplace(file.facts.name, m_place);
        if (!fresh && m_batch.existing == Existing::Keep) {
            file.failure =
                Failure{kRefused, Quoted(file.file) + " has the part number of " +
                                      Quoted(m_batch.files[first->second]) +
                                      ", which came before; --overwrite yes takes the last of them"};
            Decide(std::move(file), std::move(result));
            return;
        }
        // Two parts of one name cannot be in one group.
        if (!m_names.insert(file.facts.name).second) {
            Store();
            m_names.insert(file.facts.name);
        }
        Push({std::move(file), std::move(result)});
    }
    /// Takes a file that is refused or failed into the group, for the order of the results.
    void Decide(CheckedFile file, BatchResult result) {
        result.state =
            file.failure->code == kRefused ? BatchResult::State::Refused : BatchResult::State::Failed;
        result.reason = file.failure->sentence;
        file.content = {};
        Push({std::move(file), std::move(result), true});
    }
    void Push(Pending pending) {
        if (m_group.empty()) m_since = Clock::now();
        m_bytes += pending.file.content.bytes.size();
        m_group.push_back(std::move(pending));
        ++m_place;
    }
    bool IsFull() const {
        return m_group.size() >= kMostParts || m_bytes >= kMostBytes ||
               (!m_group.empty() && Clock::now() - m_since >= kLongest);
    }

    /// Stores the group and tells what became of it.
    void Store() {
        if (m_ended) return;
        std::vector<size_t> places;
        for (size_t i = 0; i < m_group.size(); ++i)
            if (!m_group[i].decided) places.push_back(i);
        size_t decided = m_group.size();
        try {
            decided = StoreAt(places, m_batch.existing);
            const std::vector<size_t> agreed = AskAbout(places);
            if (!agreed.empty()) decided = StoreAt(agreed, Existing::Replace);
        } catch (const StoreError& error) {
            // The library as a whole: every other part would fail, too.
            SetFailure(m_group[places[0]].result, error.what());
            decided = places[0] + 1;
            End();
        }
        Report(decided);
        m_group.clear();
        m_names.clear();
        m_bytes = 0;
        GiveWay();
    }
    /// Stores files of the group; returns how many files of the group are decided.
    size_t StoreAt(const std::vector<size_t>& places, Existing existing) {
        if (places.empty()) return m_group.size();
        std::vector<NewPart> parts;
        for (const size_t place : places) {
            CheckedFile& file = m_group[place].file;
            parts.push_back({file.facts.name, file.facts.fileName, std::move(file.content), existing});
        }
        const std::vector<GroupOutcome> outcomes = m_library.StoreGroup(parts);
        for (size_t i = 0; i < outcomes.size(); ++i) {
            SetOutcome(m_group[places[i]].result, outcomes[i]);
            m_group[places[i]].stamp = outcomes[i].stamp;
        }
        for (size_t i = 0; i < parts.size(); ++i)
            m_group[places[i]].file.content = std::move(parts[i].content);
        if (outcomes.size() == parts.size()) return m_group.size();
        End();  // the disk is full
        return places[outcomes.size() - 1] + 1;
    }
    /// The files of the group that may replace the part that the library has.
    std::vector<size_t> AskAbout(const std::vector<size_t>& places) const {
        std::vector<size_t> agreed;
        if (!m_batch.mayReplace || m_ended) return agreed;
        for (const size_t place : places) {
            const Pending& pending = m_group[place];
            if (pending.result.state == BatchResult::State::Refused && m_batch.mayReplace(pending.file))
                agreed.push_back(place);
        }
        return agreed;
    }
    static void SetOutcome(BatchResult& result, const GroupOutcome& outcome) {
        using State = BatchResult::State;
        result.reason.clear();
        if (!outcome.failure.empty()) return SetFailure(result, outcome.failure);
        switch (outcome.outcome) {
            case Outcome::New:
                result.state = State::Stored;
                break;
            case Outcome::Replaced:
                result.state = State::Replaced;
                break;
            case Outcome::Unchanged:
                result.state = State::Unchanged;
                break;
            case Outcome::Kept:
                result.state = State::Refused;
                result.reason = Quoted(result.name) + " is in the library already and was left alone";
                break;
        }
    }
    static void SetFailure(BatchResult& result, const std::string& failure) {
        result.state = BatchResult::State::Failed;
        result.reason = Quoted(result.file) + " could not be stored: " + failure;
    }
    /// Tells what became of the first files of the group.
    void Report(size_t count) {
        std::vector<StoredPart> there;
        for (size_t i = 0; i < count; ++i) {
            const BatchResult& result = m_group[i].result;
            ++m_totals[result.state];
            if (m_group[i].file.report) m_batch.onReport(*m_group[i].file.report);
            if (result.reason.empty()) {
                std::error_code error;  // the path is empty then, and nobody knows where the part came from
                const std::filesystem::path origin =
                    std::filesystem::absolute(veka::ToPath(CString(result.file)), error);
                there.push_back({std::move(m_group[i].file.facts), m_group[i].stamp,
                                 std::string(veka::FromPath(origin).View())});
                there.back().facts.fileName = m_group[i].stamp.fileName;
            }
            if (m_batch.onResult) m_batch.onResult(result, m_totals);
        }
        if (m_batch.index && !there.empty()) m_batch.index(std::move(there));
    }
    void End() {
        m_ended = true;
        m_reader.Stop();
    }
    /// Lets another program that waits have the library.
    void GiveWay() {
        if (m_ended || Clock::now() - m_lastBreak < kBetweenBreaks) return;
        std::this_thread::sleep_for(kBreak);
        m_lastBreak = Clock::now();
    }

    const Batch& m_batch;
    PartLibrary m_library;
    BatchTotals m_totals;
    std::vector<Pending> m_group;
    std::unordered_set<std::string> m_names;          // of the parts of the group
    std::unordered_map<std::string, size_t> m_first;  // the first file of each part
    size_t m_place = 0;                               // of the next file
    size_t m_bytes = 0;                               // of the contents of the group
    Clock::time_point m_since, m_lastBreak = Clock::now();
    bool m_ended = false;
    ReadAhead m_reader;
};

}  // namespace

const char* StateWord(BatchResult::State state) {
    switch (state) {
        case BatchResult::State::Stored:
            return "stored";
        case BatchResult::State::Replaced:
            return "replaced";
        case BatchResult::State::Unchanged:
            return "unchanged";
        case BatchResult::State::Refused:
            return "refused";
        case BatchResult::State::Failed:
            break;
    }
    return "failed";
}

std::size_t& BatchTotals::operator[](BatchResult::State state) {
    return counts[static_cast<std::size_t>(state)];
}

std::string TotalsSentence(const BatchTotals& totals) {
    std::map<std::string, size_t> counts;
    for (size_t i = 0; i < totals.counts.size(); ++i)
        counts[StateWord(static_cast<BatchResult::State>(i))] = totals.counts[i];
    counts["not imported"] = totals.Left();
    std::string sentence;
    for (const auto& [what, count] : counts)
        if (count > 0) sentence += (sentence.empty() ? "" : ", ") + std::to_string(count) + ' ' + what;
    return std::to_string(totals.files) + (totals.files == 1 ? " file: " : " files: ") + sentence;
}

BatchTotals ImportBatch(const Batch& batch) {
    return Run(batch).All();
}

}  // namespace host
