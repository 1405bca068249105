#include "host/BatchCommand.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "files/Paths.h"
#include "host/BatchImport.h"
#include "host/FindingSums.h"
#include "host/IndexWriter.h"
#include "host/Interrupt.h"
#include "host/Messages.h"
#include "host/PartFiles.h"
#include "host/ProgressLine.h"
#include "inspect/Json.h"
#include "platform/Printable.h"

namespace host {

namespace {

using State = BatchResult::State;

/// How many reasons are told again at the end.
constexpr size_t kMostReasons = 50;
/// Up to so many results the reasons are still on the screen.
constexpr size_t kOnScreen = 20;

class Command {
public:
    Command(const CommandLine& line, const Streams& streams)
        : m_line(line), m_streams(streams), m_messages(streams.err), m_progress(streams.err) {}

    int Run(const Waiting& waiting) {
        Interrupt::Forget();
        const Interrupt interrupt;
        Batch batch;
        batch.files = ExpandDirectories(m_line.files);
        batch.library = m_line.library;
        batch.existing = m_line.overwrite == Overwrite::Yes ? Existing::Replace : Existing::Keep;
        batch.jobs = m_line.jobs;
        batch.limits = m_line.limits;
        batch.waiting = waiting;
        if (m_line.overwrite == Overwrite::Ask && m_streams.terminal)
            batch.mayReplace = [this](const CheckedFile& file) { return MayReplace(file); };
        batch.onResult = [this](const BatchResult& result, const BatchTotals& totals) {
            Report(result, totals);
        };
        if (m_line.findingsSummary)
            batch.onReport = [this](const veka::ImportReport& report) { m_findings.Add(report); };
        batch.goOn = [] { return !Interrupt::Happened(); };
        IndexWriter index(veka::ToPath(CString(m_line.library)));
        batch.index = [&index](std::vector<StoredPart> stored) { index.Put(std::move(stored)); };
        if (m_line.jsonSummary) m_streams.out << "{\"files\":[";
        const BatchTotals totals = ImportBatch(batch);
        const std::string indexFailure = index.End();
        m_progress.Clear();
        if (!indexFailure.empty()) m_messages.Say(indexFailure);
        if (m_line.jsonSummary)
            WriteJsonTotals(totals);
        else
            WriteTotals(totals);
        if (totals.Left() > 0)
            m_messages.Say(Count(totals.Left()) + (totals.Left() == 1 ? " file is" : " files are") +
                           " left; the same command goes on with them");
        return m_code;
    }

private:
    static std::string Count(size_t count) { return std::to_string(count); }

    void Report(const BatchResult& result, const BatchTotals& totals) {
        if (result.state == State::Refused) m_code = std::max<int>(m_code, kRefused);
        if (result.state == State::Failed) m_code = std::max<int>(m_code, kFailed);
        if (!result.faults.empty() || !result.reason.empty()) m_progress.Clear();
        for (const std::string& fault : result.faults) m_messages.Say('"' + result.file + "\": " + fault);
        if (result.state == State::Replaced && !result.faults.empty())
            m_messages.Say('"' + result.name + "\" was replaced although the file is faulty");
        if (!result.reason.empty()) ReportReason(result);
        if (m_line.jsonSummary)
            WriteJson(result);
        else if (!m_streams.live && m_line.print == Print::Summary && result.reason.empty())
            m_streams.out << veka::Printable(result.file) << ": "
                          << (result.state == State::Unchanged
                                  ? veka::Printable(result.name + " is unchanged")
                                  : veka::Printable("Stored as " + result.name + " in " + m_line.library))
                          << '\n';
        if (m_streams.live && m_line.print == Print::Summary)
            m_progress.Show(totals.Done(), totals.files, result.name.empty() ? result.file : result.name);
    }
    void ReportReason(const BatchResult& result) {
        const bool advice = result.state == State::Refused && m_line.overwrite == Overwrite::Ask &&
                            !m_streams.terminal && result.reason.ends_with(" was left alone");
        m_messages.Say(result.reason + (advice ? "; --overwrite yes replaces it" : ""));
        if (m_reasons.size() < kMostReasons) m_reasons.push_back(result.reason);
    }
    void WriteJson(const BatchResult& result) {
        m_streams.out << (m_written++ > 0 ? ",\n" : "\n") << "{\"file\":" << veka::JsonString(result.file);
        if (!result.name.empty()) m_streams.out << ",\"part\":" << veka::JsonString(result.name);
        m_streams.out << ",\"state\":\"" << StateWord(result.state) << '"';
        if (!result.reason.empty()) m_streams.out << ",\"reason\":" << veka::JsonString(result.reason);
        if (!result.faults.empty()) {
            m_streams.out << ",\"faults\":[";
            for (size_t i = 0; i < result.faults.size(); ++i)
                m_streams.out << (i > 0 ? "," : "") << veka::JsonString(result.faults[i]);
            m_streams.out << ']';
        }
        m_streams.out << '}';
    }
    void WriteJsonTotals(const BatchTotals& totals) {
        m_streams.out << "\n]";
        for (size_t i = 0; i < totals.counts.size(); ++i)
            m_streams.out << ",\"" << StateWord(static_cast<State>(i)) << "\":" << totals.counts[i];
        m_streams.out << ",\"left\":" << totals.Left();
        if (m_line.findingsSummary) WriteJsonMembers(m_streams.out, m_findings);
        m_streams.out << "}\n";
    }
    void WriteTotals(const BatchTotals& totals) {
        const bool summary = m_line.print == Print::Summary;
        if (summary) WriteReasons(totals);
        if (m_line.findingsSummary) WriteTable(m_streams.out, m_findings);
        if (summary) m_streams.out << TotalsSentence(totals) << '\n';
    }
    void WriteReasons(const BatchTotals& totals) {
        if (totals.files > kOnScreen)
            for (const std::string& reason : m_reasons) m_streams.out << veka::Printable(reason) << '\n';
        const size_t reasons = totals.counts[static_cast<size_t>(State::Refused)] +
                               totals.counts[static_cast<size_t>(State::Failed)];
        if (totals.files > kOnScreen && reasons > m_reasons.size())
            m_streams.out << "and " << reasons - m_reasons.size()
                          << " more reasons; --summary json prints all\n";
    }

    /// Asks at the terminal whether a part may be replaced; "all" and "none" answer for those that follow.
    bool MayReplace(const CheckedFile& file) {
        if (m_forAll != ' ') return m_forAll == 'a';
        m_progress.Clear();
        for (;;) {
            m_streams.err << veka::Printable('"' + file.facts.name + "\" is in the library \"" +
                                             m_line.library + "\" already. Replace it by \"" + file.file +
                                             "\"?")
                          << " [y/n/all/none]: " << std::flush;
            std::string answer;
            if (!std::getline(m_streams.in, answer) || answer == "n" || answer == "no") return false;
            if (answer == "y" || answer == "yes") return true;
            if (answer == "all" || answer == "none") {
                m_forAll = answer[0];
                return m_forAll == 'a';
            }
        }
    }

    const CommandLine& m_line;
    const Streams& m_streams;
    Messages m_messages;
    ProgressLine m_progress;
    std::vector<std::string> m_reasons;  // the first ones
    FindingSums m_findings;
    size_t m_written = 0;
    char m_forAll = ' ';
    int m_code = kImported;
};

}  // namespace

bool IsBatch(const CommandLine& line) {
    if (line.library.empty() || line.Shown() || line.files.empty()) return false;
    if (line.files.size() > 1 || line.Summarised()) return true;
    return IsDirectoryOfFiles(line.files[0]);
}

int ImportFilesAsBatch(const CommandLine& line, const Streams& streams, const Waiting& waiting) {
    return Command(line, streams).Run(waiting);
}

}  // namespace host
