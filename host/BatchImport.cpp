#include "host/BatchImport.h"

#include <algorithm>
#include <future>
#include <map>
#include <memory>
#include <optional>
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
// To wait for each file by itself would change threads for each.
constexpr auto kGather = milliseconds(2);
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
            const ReadAhead::Answer answer = Next(file);
            if (m_batch.goOn && !m_batch.goOn()) m_reader.Stop();
            if (answer == ReadAhead::Answer::File) Add(std::move(file));
            if (answer == ReadAhead::Answer::End) break;
            if (IsPublished()) Finish();
            if (IsFull()) Publish();
            GiveWay(answer == ReadAhead::Answer::NotYet);
        }
        Publish();
        Finish();
        return m_totals;
    }

private:
    /// A file of a group.
    struct Pending {
        CheckedFile file;
        BatchResult result;
        PartStamp stamp = {};
    };
    /// Files whose parts are stored together.
    struct Group {
        std::vector<Pending> files;
        std::vector<size_t> places;  // of the files that `parts` was given, in that order
        std::unordered_set<std::string> names;
        size_t bytes = 0;
        Clock::time_point since = {};
        std::unique_ptr<PartGroup> parts = nullptr;  // from the first file that is to be stored on
    };

    ReadAhead::Answer Next(CheckedFile& file) {
        const ReadAhead::Answer answer = m_reader.Next(file, milliseconds(0));
        if (answer != ReadAhead::Answer::NotYet) return answer;
        std::this_thread::sleep_for(kGather);
        return m_reader.Next(file, kAsk);
    }
    void Add(CheckedFile file) {
        BatchResult result{file.file, file.facts.name, {}, "", file.faults};
        if (!file.failure) {
            const auto [first, fresh] = m_first.emplace(file.facts.name, m_place);
            if (!fresh && m_batch.existing == Existing::Keep)
                file.failure =
                    Failure{kRefused, Quoted(file.file) + " has the part number of " +
                                          Quoted(m_batch.files[first->second]) +
                                          ", which came before; --overwrite yes takes the last of them"};
        }
        ++m_place;
        if (!file.failure) {
            Write({std::move(file), std::move(result)});
            return;
        }
        result.state =
            file.failure->code == kRefused ? BatchResult::State::Refused : BatchResult::State::Failed;
        result.reason = file.failure->sentence;
        file.content = {};
        // In the group for the order of the results.
        Push({std::move(file), std::move(result)});
    }
    void Push(Pending pending) {
        if (m_group.files.empty()) m_group.since = Clock::now();
        m_group.files.push_back(std::move(pending));
    }
    /// Writes the part of a file into the group.
    void Write(Pending pending) {
        // Two parts of one name cannot be in one group, nor in two that are stored at one time.
        const std::string name = pending.file.facts.name;
        if (m_group.names.count(name) > 0) Publish();
        if (m_publishing && m_publishing->names.count(name) > 0) Finish();
        if (m_ended) return;
        NewPart part{name, pending.file.facts.fileName, std::move(pending.file.content), m_batch.existing};
        bool full = false;
        try {
            if (!m_group.parts) m_group.parts = std::make_unique<PartGroup>(Locked());
            full = !m_group.parts->Write(part);
        } catch (const StoreError& error) {
            // The library as a whole: every other part would fail, too.
            SetFailure(pending.result, error.what());
            Push(std::move(pending));
            End();
            return;
        }
        m_group.places.push_back(m_group.files.size());
        m_group.names.insert(name);
        m_group.bytes += part.content.bytes.size();
        const GroupOutcome& outcome = m_group.parts->Outcomes().back();
        // The part may be asked about.
        if (m_batch.mayReplace && outcome.outcome == Outcome::Kept && outcome.failure.empty())
            pending.file.content = std::move(part.content);
        Push(std::move(pending));
        if (full) End();
    }
    const LockedLibrary& Locked() {
        if (!m_locked) {
            m_locked = m_library.Lock();
            m_lockedSince = Clock::now();
        }
        return *m_locked;
    }
    bool IsFull() const {
        return m_group.files.size() >= kMostParts || m_group.bytes >= kMostBytes ||
               (!m_group.files.empty() && Clock::now() - m_group.since >= kLongest);
    }

    /// Begins to publish the group, while the next one is read and written.
    void Publish() {
        Finish();
        if (m_group.files.empty()) return;
        m_publishing = std::exchange(m_group, {});
        // Where no thread can be had the group is published by `Finish`.
        if (PartGroup* const parts = m_publishing->parts.get())
            m_published =
                std::async(std::launch::async | std::launch::deferred, [parts] { parts->Publish(); });
    }
    bool IsPublished() const {
        return m_publishing &&
               (!m_published.valid() || m_published.wait_for(milliseconds(0)) != std::future_status::timeout);
    }
    /// Waits until the group is published, and tells what became of it.
    void Finish() {
        if (!m_publishing) return;
        size_t decided = Conclude(*m_publishing);
        Group done = *std::exchange(m_publishing, std::nullopt);
        if (m_ended || !IsToAsk(done)) {
            Report(done, decided);
            return;
        }
        // Nobody waits for the library while a user thinks.
        Group next = std::exchange(m_group, {});
        if (next.parts) m_published = std::async(std::launch::deferred, [&next] { next.parts->Publish(); });
        const size_t nextDecided = Conclude(next);
        m_locked.reset();
        if (!m_ended) decided = AskAbout(done);
        Report(done, decided);
        Report(next, m_ended ? nextDecided : AskAbout(next));
    }
    /// Waits until a group is published, and sets what became of its files; returns how many are decided.
    size_t Conclude(Group& group) {
        try {
            if (m_published.valid()) m_published.get();
        } catch (const StoreError& error) {
            // The library as a whole, and the next group with it.
            SetFailure(group.files[group.places[0]].result, error.what());
            group.parts.reset();
            m_group = {};
            End();
            return group.places[0] + 1;
        }
        if (group.parts) SetOutcomes(group, group.places, group.parts->Outcomes());
        group.parts.reset();
        return group.files.size();
    }
    bool IsToAsk(const Group& group) const {
        return m_batch.mayReplace && std::any_of(group.places.begin(), group.places.end(), [&](size_t place) {
                   return group.files[place].result.state == BatchResult::State::Refused;
               });
    }
    /// Asks about the parts that the library has with another content, and stores those that may replace
    /// them; returns how many files of the group are decided.
    size_t AskAbout(Group& group) {
        std::vector<size_t> agreed;
        std::vector<NewPart> parts;
        for (const size_t place : group.places) {
            Pending& pending = group.files[place];
            if (pending.result.state != BatchResult::State::Refused || !m_batch.mayReplace(pending.file))
                continue;
            agreed.push_back(place);
            parts.push_back({pending.file.facts.name, pending.file.facts.fileName,
                             std::move(pending.file.content), Existing::Replace});
        }
        if (agreed.empty()) return group.files.size();
        try {
            const std::vector<GroupOutcome> outcomes = m_library.StoreGroup(parts);
            SetOutcomes(group, agreed, outcomes);
            if (outcomes.size() == parts.size()) return group.files.size();
            End();  // the disk is full
            return agreed[outcomes.size() - 1] + 1;
        } catch (const StoreError& error) {
            SetFailure(group.files[agreed[0]].result, error.what());
            End();
            return agreed[0] + 1;
        }
    }
    static void SetOutcomes(Group& group, const std::vector<size_t>& places,
                            const std::vector<GroupOutcome>& outcomes) {
        for (size_t i = 0; i < outcomes.size(); ++i) {
            SetOutcome(group.files[places[i]].result, outcomes[i]);
            group.files[places[i]].stamp = outcomes[i].stamp;
        }
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
    /// Tells what became of the first files of a group.
    void Report(Group& group, size_t count) {
        std::vector<StoredPart> there;
        for (size_t i = 0; i < count; ++i) {
            Pending& pending = group.files[i];
            const BatchResult& result = pending.result;
            ++m_totals[result.state];
            if (pending.file.report) m_batch.onReport(*pending.file.report);
            if (result.reason.empty()) {
                std::error_code error;  // the path is empty then, and nobody knows where the part came from
                const std::filesystem::path origin =
                    std::filesystem::absolute(veka::ToPath(CString(result.file)), error);
                there.push_back({std::move(pending.file.facts), pending.stamp,
                                 std::string(veka::FromPath(origin).View())});
                there.back().facts.fileName = pending.stamp.fileName;
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
    void GiveWay(bool idle) {
        if (!m_locked || m_ended) return;
        if (idle && !m_publishing && m_group.files.empty()) m_locked.reset();
        if (!m_locked || Clock::now() - m_lockedSince < kBetweenBreaks) return;
        Publish();
        Finish();
        m_locked.reset();
        std::this_thread::sleep_for(kBreak);
    }

    const Batch& m_batch;
    PartLibrary m_library;
    BatchTotals m_totals;
    std::unordered_map<std::string, size_t> m_first;  // the first file of each part
    size_t m_place = 0;                               // of the next file
    bool m_ended = false;
    std::unique_ptr<LockedLibrary> m_locked;  // while there are groups
    Clock::time_point m_lockedSince;
    Group m_group;                      // that is being written
    std::optional<Group> m_publishing;  // before it
    std::future<void> m_published;      // after what it publishes: its end waits for its thread
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
