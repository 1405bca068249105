#include "host/ImportedPart.h"

#include <algorithm>
#include <istream>
#include <optional>

#include "files/Paths.h"
#include "host/CommandLine.h"
#include "host/Interrupt.h"
#include "parser/CVEK_AsciiParser.h"
#include "window/SBUtility.h"

namespace host {

namespace {

std::string Quoted(const CString& text) {
    return '"' + std::string(text.View()) + '"';
}

constexpr int kMegabyte = 20;  // as a power of two

std::uint64_t Bytes(std::uint64_t megabytes) {
    return megabytes == 0 ? veka::ImportOptions::kNoLimit : megabytes << kMegabyte;
}

std::string InLine(std::string_view name, int line) {
    return '"' + std::string(name) + "\" of line " + std::to_string(line);
}

/// What is wrong with the levels of a file as a whole.
void AddFaultsOfLevels(std::vector<std::string>& faults, const veka::ImportResult& result) {
    const veka::LevelsRead& levels = result.structure;
    if (levels.strayParentheses > 0)
        faults.push_back("a parenthesis in line " + std::to_string(levels.breakLine) + " closes no level");
    if (levels.stopped)
        faults.push_back("nothing was read from line " + std::to_string(result.lines) +
                         " on: " + std::string(result.message.View()));
    else if (levels.openString > 0)
        faults.push_back("it ends inside a text that begins in line " + std::to_string(levels.openString));
    else if (!levels.open.empty())
        faults.push_back(
            "it ends inside the level " + InLine(levels.open.back().name.View(), levels.open.back().line) +
            (levels.open.size() > 1 ? ", within " + InLine(levels.open[0].name.View(), levels.open[0].line)
                                    : ""));
}

std::vector<std::string> Faults(const veka::ImportResult& result) {
    std::vector<std::string> faults;
    AddFaultsOfLevels(faults, result);
    constexpr size_t kMostNamed = 3;
    for (size_t i = 0; i < std::min(result.unread.size(), kMostNamed); ++i)
        faults.push_back("nothing reads the section " +
                         InLine(result.unread[i].name.View(), result.unread[i].line));
    if (result.unreadSections > kMostNamed)
        faults.push_back("nothing reads " + std::to_string(result.unreadSections - kMostNamed) +
                         " more sections");
    if (result.parts > 1)
        faults.push_back("of " + std::to_string(result.parts) + " parts in the file the last one was kept");
    return faults;
}

/// Raises `ImportEnded` unless an import came to its end.
void RequireCompleted(const std::string& file, const veka::ImportResult& result, const Limits& limits) {
    using End = veka::ImportResult::End;
    if (result.end == End::Completed) return;
    const std::string subject = file == kStandardInput ? "standard input" : '"' + file + '"';
    if (result.end == End::MemoryLimit)
        throw ImportEnded("the import of " + subject + " takes more than " + std::to_string(limits.memory) +
                          " MB of memory; --max-memory raises the limit");
    if (result.end == End::TimeLimit)
        throw ImportEnded(
            "the import of " + subject + " takes longer than " +
            std::to_string(std::chrono::duration_cast<std::chrono::seconds>(limits.time).count()) +
            " s; --max-time raises the limit");
    throw ImportEnded("the import of " + subject + " was cancelled");
}

/// Why a file that breaks off has no part.
std::string WhereItEnds(const ImportedPart& part) {
    std::vector<std::string> faults;
    if (!part.result.structure.open.empty()) AddFaultsOfLevels(faults, part.result);
    return faults.empty() ? "" : ": " + faults.back();
}

}  // namespace

std::string ImportedPart::Name() const {
    return std::string(SBUtility::GetInstance().EncodeEntityCode(Mpn()).View());
}

ImportedPart ReadPart(const CString& file, FileContent content, const Reading& reading) {
    ImportedPart part{file, std::move(content), nullptr, {}, {}};
    std::optional<Interrupt> interrupt;
    if (reading.interruptible) interrupt.emplace();
    std::stop_source stop;
    veka::ImportOptions options;
    options.memoryLimit = Bytes(reading.limits.memory);
    if (reading.limits.time.count() > 0) options.timeLimit = reading.limits.time;
    options.stop = stop.get_token();
    options.progress = [&](const veka::ImportProgress& progress) {
        const bool goOn = !reading.goOn || reading.goOn(progress);
        if (!goOn || (interrupt && Interrupt::Happened())) stop.request_stop();
    };
    CVEK_AsciiParser parser;
    part.result = veka::ImportBytes(parser, part.content.bytes, options);
    RequireCompleted(std::string(file.View()), part.result, reading.limits);
    part.faults = Faults(part.result);
    part.model.reset(parser.GetCVEKA_Manager());
    parser.SetCVEKA_Manager(nullptr);
    return part;
}

FileContent ReadContent(const std::string& file, std::istream& in, const Limits& limits) {
    const std::uint64_t limit = Bytes(limits.size);
    if (file != kStandardInput) return ReadRegularFile(veka::ToPath(CString(file)), limit);
    FileContent content;
    constexpr size_t kBlock = 1 << 18;
    while (in) {
        const size_t size = content.bytes.size();
        content.bytes.resize(size + kBlock);
        in.read(content.bytes.data() + size, kBlock);
        content.bytes.resize(size + static_cast<size_t>(in.gcount()));
        if (content.bytes.size() > limit)
            throw SourceError("standard input is larger than " + std::to_string(limits.size) +
                              " MB; --max-size raises the limit");
    }
    if (in.bad()) throw SourceError("cannot read standard input");
    return content;
}

ImportedPart ReadPart(const CString& file, const Reading& reading) {
    return ReadPart(file, ReadRegularFile(veka::ToPath(file), Bytes(reading.limits.size)), reading);
}

ImportedPart ReadPart(std::istream& in, const Reading& reading) {
    return ReadPart(kStandardInput, ReadContent(kStandardInput, in, reading.limits), reading);
}

void RequireSections(const ImportedPart& part) {
    if (!part.HasSections()) throw NoPart(Quoted(part.file) + " holds no part" + WhereItEnds(part));
}

void RequirePartNumber(const ImportedPart& part) {
    if (!part.HasPart()) throw NoPart(Quoted(part.file) + " holds no part" + WhereItEnds(part));
    if (part.Mpn().IsEmpty()) throw NoPart(Quoted(part.file) + " holds no part with a part number");
}

std::string StoredFileName(const ImportedPart& part) {
    return part.file == kStandardInput
               ? part.Name() + ".veka"
               : std::string(veka::FromPath(veka::ToPath(part.file).filename()).View());
}

Outcome Store(const ImportedPart& part, const CString& library, Existing existing, const Waiting& waiting) {
    RequirePartNumber(part);
    return PartLibrary(veka::ToPath(library), waiting)
        .Store(part.Name(), StoredFileName(part), part.content, existing);
}

bool HasPart(const CString& library, const std::string& name) {
    const SBUtility& utility = SBUtility::GetInstance();
    return utility.DoesFileOrDirExist(utility.SBPathCombine(library, CString(name), __FILE__, __LINE__),
                                      __FILE__, __LINE__);
}

std::string FaultSentence(const std::vector<std::string>& faults) {
    std::string sentence;
    for (const std::string& fault : faults) sentence += (sentence.empty() ? "" : "; ") + fault;
    return sentence;
}

}  // namespace host
