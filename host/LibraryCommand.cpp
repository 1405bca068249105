#include "host/LibraryCommand.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <ostream>

#include "files/Paths.h"
#include "host/ExitCode.h"
#include "host/Interrupt.h"
#include "host/LibraryIndex.h"
#include "host/Messages.h"
#include "host/ProgressLine.h"
#include "inspect/Json.h"
#include "platform/Printable.h"
#include "platform/Utf8.h"

namespace host {

namespace {

/// A column of the table, and how many characters of a value it shows.
struct Column {
    const char* title;
    size_t width;
    std::string (*value)(const ListedPart& part);
};

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

constexpr Column kColumns[] = {
    {"Number", 32, [](const ListedPart& part) { return part.facts.number; }},
    {"Manufacturer", 16, [](const ListedPart& part) { return part.facts.manufacturer; }},
    {"Package", 20, [](const ListedPart& part) { return part.facts.packageType; }},
    {"Pins", 5, [](const ListedPart& part) { return std::to_string(part.facts.pins); }},
    {"Footprints", 32, [](const ListedPart& part) { return Joined(part.facts.footprints); }},
    {"Description", 60, [](const ListedPart& part) { return part.facts.description; }}};

/// A value as a cell of a table: padded, or cut where it is longer.
std::string Cell(const std::string& value, size_t width) {
    const std::string text = veka::Printable(value.substr(0, 4 * width));
    size_t size = 0, characters = 0;
    for (; size < text.size() && characters < width; ++characters)
        size += std::max<size_t>(1, veka::Utf8Length(std::string_view(text).substr(size)));
    return text.substr(0, size) + std::string(width - characters, ' ');
}

/// A time as ISO 8601 writes it, in UTC.
std::string Time(std::int64_t seconds) {
    const std::time_t time = seconds;
    const std::tm* const parts = std::gmtime(&time);
    char text[32];
    return parts && std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", parts) > 0 ? text : "";
}

void WriteTexts(std::ostream& out, const char* name, const std::vector<std::string>& texts) {
    out << ",\"" << name << "\":[";
    for (size_t i = 0; i < texts.size(); ++i) out << (i > 0 ? "," : "") << veka::JsonString(texts[i]);
    out << ']';
}

void WriteJson(std::ostream& out, const ListedPart& part) {
    const PartFacts& facts = part.facts;
    out << "{\"part\":" << veka::JsonString(facts.name) << ",\"number\":" << veka::JsonString(facts.number)
        << ",\"manufacturer\":" << veka::JsonString(facts.manufacturer)
        << ",\"description\":" << veka::JsonString(facts.description)
        << ",\"type\":" << veka::JsonString(facts.functionalType)
        << ",\"packageType\":" << veka::JsonString(facts.packageType) << ",\"pins\":" << facts.pins;
    WriteTexts(out, "companyNumbers", facts.companyNumbers);
    WriteTexts(out, "families", facts.families);
    WriteTexts(out, "packages", facts.packages);
    WriteTexts(out, "footprints", facts.footprints);
    WriteTexts(out, "symbols", facts.symbols);
    if (part.findings)
        out << ",\"errors\":" << part.findings->errors << ",\"warnings\":" << part.findings->warnings
            << ",\"notes\":" << part.findings->notes;
    out << ",\"file\":" << veka::JsonString(facts.fileName) << ",\"size\":" << facts.size << ",\"hash\":\""
        << std::hex << facts.hash << std::dec << "\",\"stored\":\"" << Time(part.stored) << "\"}";
}

class Searcher {
public:
    Searcher(const CommandLine& line, const Streams& streams)
        : m_line(line), m_streams(streams), m_messages(streams.err), m_progress(streams.err) {}

    int Run() try {
        Interrupt::Forget();
        const Interrupt interrupt;
        PartQuery query{m_line.find, {}};
        for (const std::string& condition : m_line.where) query.where.push_back(ParseCondition(condition));
        m_index = OpenIndex(veka::ToPath(CString(m_line.library)), m_line.jobs);
        const int code = m_line.search == LibrarySearch::Verify ? Verify() : List(query);
        ShowRemarks();
        return Interrupt::Happened() ? static_cast<int>(kFailed) : code;
    } catch (const StoreError& error) {
        m_messages.Say(error.what());
        return kFailed;
    }

private:
    int List(const PartQuery& query) {
        m_index->Refresh(Progress());
        m_progress.Clear();
        ShowRemarks();
        const std::vector<std::int64_t> found = m_index->Find(query);
        if (m_line.listJson) m_streams.out << '[';
        size_t written = 0;
        for (const std::int64_t id : found) {
            const std::optional<ListedPart> part = m_index->Part(id);
            if (!part || Interrupt::Happened()) continue;
            if (m_line.listJson) {
                m_streams.out << (written > 0 ? ",\n" : "\n");
                WriteJson(m_streams.out, *part);
            } else {
                if (written == 0) WriteTitles();
                WriteRow(*part);
            }
            ++written;
        }
        if (m_line.listJson) m_streams.out << "\n]\n";
        if (!m_line.listJson && m_line.print == Print::Summary)
            m_streams.out << written << (written == 1 ? " part\n" : " parts\n");
        return written > 0 ? kImported : kRefused;
    }
    int Verify() {
        const std::vector<std::string> sentences = m_index->Verify(Progress());
        m_progress.Clear();
        ShowRemarks();
        for (const std::string& sentence : sentences) m_messages.Say(sentence);
        if (m_line.print == Print::Summary && !Interrupt::Happened())
            m_streams.out << m_index->Size() << " parts can be read, " << sentences.size()
                          << (sentences.size() == 1 ? " thing does" : " things do") << " not hold\n";
        return sentences.empty() ? kImported : kFailed;
    }
    IndexProgress Progress() {
        return [this](size_t done, size_t all) {
            if (m_streams.live && m_line.print == Print::Summary) m_progress.Show(done, all, "");
            return !Interrupt::Happened();
        };
    }
    void ShowRemarks() {
        for (const std::string& remark : m_index->Remarks()) m_messages.Say(remark);
    }
    void WriteTitles() {
        std::string line;
        for (const Column& column : kColumns) line += Cell(column.title, column.width) + "  ";
        WriteLine(std::move(line));
    }
    void WriteRow(const ListedPart& part) {
        std::string line;
        for (const Column& column : kColumns) line += Cell(column.value(part), column.width) + "  ";
        WriteLine(std::move(line));
    }
    void WriteLine(std::string line) {
        line.resize(line.find_last_not_of(' ') + 1);
        m_streams.out << line << '\n';
    }

    const CommandLine& m_line;
    const Streams& m_streams;
    Messages m_messages;
    ProgressLine m_progress;
    std::unique_ptr<LibraryIndex> m_index;
};

}  // namespace

int SearchLibrary(const CommandLine& line, const Streams& streams) {
    return Searcher(line, streams).Run();
}

}  // namespace host
