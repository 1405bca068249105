#include "host/CheckFiles.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <utility>

#include "files/Paths.h"
#include "host/ExitCode.h"
#include "host/Failure.h"
#include "host/ImportedPart.h"
#include "host/Messages.h"
#include "host/PartFiles.h"
#include "platform/Printable.h"
#include "report/Sarif.h"

namespace host {

namespace {

std::string Number(std::size_t count, const char* what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

class Checker {
public:
    Checker(const CommandLine& line, const Streams& streams)
        : m_line(line), m_out(streams.out), m_in(streams.in), m_messages(streams.err) {}

    int Run() {
        for (const std::string& file : m_line.files) {
            if (IsDirectoryOfFiles(file))
                CheckDirectory(file);
            else
                CheckFile(file);
        }
        if (m_line.check == Check::Sarif)
            veka::WriteSarif(m_out, m_reports);
        else if (m_files > 1 && m_line.print == Print::Summary)
            WriteSummary(Number(m_files, "file"), m_total);
        return m_code;
    }

private:
    struct Counts {
        std::size_t errors = 0, warnings = 0, notes = 0;
    };

    void CheckDirectory(const std::string& name) try {
        const std::vector<std::string> files = PartFilesBelow(veka::ToPath(CString(name)));
        if (files.empty()) m_messages.Say("the directory \"" + name + "\" holds no part data file");
        for (const std::string& file : files) CheckFile(file);
    } catch (const SourceError& error) {
        Fail(error.what());
    }

    void CheckFile(const std::string& file) {
        try {
            Add(file, ReportOn(file, ReadContent(file, m_in, m_line.limits).bytes));
        } catch (...) {
            Fail(CurrentFailure(file).sentence);
        }
    }

    void Fail(const std::string& sentence) {
        m_messages.Say(sentence);
        m_code = kFailed;
    }

    void Add(const std::string& file, veka::ImportReport report) {
        const Counts counts{report.Count(veka::Severity::Error), report.Count(veka::Severity::Warning),
                            report.Count(veka::Severity::Note)};
        m_code = std::max<int>(m_code, counts.errors > 0     ? kFailed
                                       : counts.warnings > 0 ? kRefused
                                                             : kImported);
        ++m_files;
        m_total.errors += counts.errors;
        m_total.warnings += counts.warnings;
        m_total.notes += counts.notes;
        if (m_line.check == Check::Sarif) {
            m_reports.push_back({file, std::move(report)});
            return;
        }
        for (const veka::Finding& finding : report.Findings())
            m_out << veka::ReportLine(file, finding) << '\n';
        if (report.Dropped() > 0)
            m_out << veka::Printable(file) << ": " << Number(report.Dropped(), "more finding")
                  << " not shown\n";
        if (m_line.print == Print::Summary) WriteSummary(veka::Printable(file), counts);
    }

    void WriteSummary(const std::string& what, const Counts& counts) {
        m_out << what << ": " << Number(counts.errors, "error") << ", " << Number(counts.warnings, "warning")
              << ", " << Number(counts.notes, "note") << '\n';
    }

    const CommandLine& m_line;
    std::ostream& m_out;
    std::istream& m_in;
    Messages m_messages;
    std::vector<veka::ReportedFile> m_reports;
    Counts m_total;
    std::size_t m_files = 0;
    int m_code = kImported;
};

}  // namespace

int CheckFiles(const CommandLine& line, const Streams& streams) {
    return Checker(line, streams).Run();
}

veka::ImportReport ReportOn(const std::string& file, std::string_view bytes, std::size_t most) {
    veka::ReportOptions options;
    options.most = most;
    if (file != kStandardInput) {
        const std::filesystem::path path = veka::ToPath(CString(file));
        options.folder =
            path.has_parent_path() ? std::string(veka::FromPath(path.parent_path()).View()) : ".";
    }
    return veka::ReportImport(bytes, options);
}

std::string CountOfFindings(const veka::ImportReport& report) {
    std::string sentence;
    for (const auto& [severity, name] :
         {std::pair{veka::Severity::Error, "error"}, {veka::Severity::Warning, "warning"}})
        if (const std::size_t count = report.Count(severity); count > 0)
            sentence += (sentence.empty() ? "" : " and ") + Number(count, name);
    return sentence;
}

}  // namespace host
