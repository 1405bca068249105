#include "parser/Import.h"

#include <algorithm>
#include <optional>

#include "files/CStdioFile.h"
#include "files/MemoryLines.h"
#include "leveltree/LevelReader.h"
#include "leveltree/Messages.h"
#include "model/RecordMemory.h"
#include "parser/Sections.h"
#include "platform/Watch.h"

namespace veka {

namespace {

using Clock = std::chrono::steady_clock;
using End = ImportResult::End;

/// Raised by the watch of an import to end it.
struct Ended {
    End end;
};

/// The text of an import: where its lines come from, and what is known about its size.
class Text {
public:
    virtual ~Text() = default;
    virtual LineSource& Lines() = 0;
    /// Number of bytes; 0 if it is unknown.
    virtual std::uint64_t Size() const = 0;
    /// Number of bytes that the source has taken so far.
    virtual std::uint64_t Taken() const = 0;
};

class FileText final : public Text {
public:
    bool Open(const CString& path) { return m_file.Open(path); }
    LineSource& Lines() override { return m_file; }
    std::uint64_t Size() const override { return m_file.Size(); }
    std::uint64_t Taken() const override { return m_file.BytesRead(); }

private:
    CStdioFile m_file;
};

class BytesText final : public Text {
public:
    explicit BytesText(std::string_view bytes) : m_lines(bytes), m_size(bytes.size()) {}
    LineSource& Lines() override { return m_lines; }
    std::uint64_t Size() const override { return m_size; }
    std::uint64_t Taken() const override { return m_size; }

private:
    MemoryLines m_lines;
    std::uint64_t m_size;
};

/// Ends an import that exceeds a limit or is cancelled, and tells how far it has come.
class ImportWatch final : public Watch {
public:
    ImportWatch(const ImportOptions& options, const Text& text) : m_options(options), m_text(text) {}

    void Observe(const LevelReader& reader) { m_reader = &reader; }
    /// Tells the end of the text, which is the last moment to cancel.
    void Finish() {
        const Scope none(nullptr);
        Check();
        if (!m_options.progress) return;
        ReportProgress();
        CheckStop();
    }
    std::uint64_t BytesRead() const {
        // The source may have added the end of the last line.
        return m_reader ? std::min(m_reader->BytesRead(), m_text.Taken()) : 0;
    }

protected:
    void Check() override {
        CheckStop();
        if (m_text.Taken() > m_options.byteLimit) throw Ended{End::ByteLimit};
        if (Taken() > 0 && static_cast<std::uint64_t>(Taken()) > m_options.memoryLimit)
            throw Ended{End::MemoryLimit};
        if (!m_options.progress && m_options.timeLimit == ImportOptions::kNoTimeLimit) return;
        const Clock::time_point now = Clock::now();
        if (now - m_start > m_options.timeLimit) throw Ended{End::TimeLimit};
        if (!m_options.progress || now - m_reported < m_options.progressInterval) return;
        m_reported = now;
        ReportProgress();
    }

private:
    void CheckStop() const {
        if (m_options.stop.stop_requested()) throw Ended{End::Cancelled};
    }
    void ReportProgress() const {
        const std::uint64_t bytes = BytesRead();
        const std::uint64_t total = m_text.Size();
        m_options.progress({bytes, total == 0 ? 0 : std::max(bytes, total)});
    }

    const ImportOptions& m_options;
    const Text& m_text;
    const LevelReader* m_reader = nullptr;
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_reported = m_start;
};

/// Reads the sections of a text, under the watch that the options ask for.
ImportResult ReadSections(Sections& sections, Text& text, const ImportOptions& options) {
    ImportResult result;
    ImportWatch watch(options, text);
    const Watch::Scope scope(&watch);
    Pages pages;
    const auto take = [&](CECadClsLvl* level, int line) {
        ++result.sections;
        if (level->m_strName == "VEK") ++result.parts;
        if (!sections.Read(level) && ++result.unreadSections <= ImportResult::kMostUnread)
            result.unread.push_back({level->m_strName, line});
        pages.Reset();
    };
    std::optional<LevelReader> reader;
    try {
        reader.emplace(pages, take, LevelReader::Options{.watched = true});
        watch.Observe(*reader);
        result.structure = reader->Read(text.Lines());
        watch.Finish();
    } catch (const Ended& ended) {
        result.end = ended.end;
        result.structure = {};
    }
    if (reader) {
        result.bytes = watch.BytesRead();
        result.lines = reader->LineCount();
        result.levels = reader->LevelCount();
    }
    result.memory = static_cast<std::uint64_t>(watch.MostTaken());
    if (result.structure.stopped)
        result.message.Format(messages::kUnexpectedBrace, result.structure.depth, result.lines);
    return result;
}

ImportResult Import(CVEK_AsciiParser& parser, Text& text, const ImportOptions& options) {
    const RecordMemory::ImportScope records;
    Sections sections(parser);
    ImportResult result = ReadSections(sections, text, options);
    if (result.end == End::Completed) sections.MoveIntoModel();
    return result;
}

}  // namespace

ImportResult ImportFile(CVEK_AsciiParser& parser, const CString& path, const ImportOptions& options) {
    parser.SetVEKAsciiFilePath(path);
    FileText text;
    if (text.Open(path)) return Import(parser, text, options);
    ImportResult result;
    result.end = End::NotOpened;
    return result;
}

ImportResult ImportBytes(CVEK_AsciiParser& parser, std::string_view bytes, const ImportOptions& options) {
    BytesText text(bytes);
    return Import(parser, text, options);
}

}  // namespace veka
