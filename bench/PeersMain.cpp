// Measures this library and other readers on the same trees, in turns.
//   veka_peers [--rounds N] [--json OUT] FILE...

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>

#include "Levels.h"
#include "Memory.h"
#include "OurRecords.h"
#include "Peers.h"
#include "VEKAsciiDLL.h"

namespace {

using bench::Format;

/// Several smaller files are summed up.
constexpr double kLargeFile = 10e6;

/// The level tree of a file.
class LevelTree : public bench::Reader {
public:
    explicit LevelTree(const std::string& path) : m_path(path) {}
    void Read() override {
        m_tree = std::make_unique<CECadCls>();
        m_tree->m_strFilePath = CString(m_path);
        m_tree->ReadLevelTree(0);
    }
    void Free() override { m_tree.reset(); }
    std::int64_t Count() override { return bench::CountLevels(*m_tree->m_pRootLevels); }

private:
    std::string m_path;
    std::unique_ptr<CECadCls> m_tree;
};

/// The finished model of a file; the level tree is gone by then.
class WholeImport : public bench::Reader {
public:
    explicit WholeImport(const std::string& path) : m_path(path) {}
    void Read() override {
        m_parser = std::make_unique<CVEK_AsciiParser>();
        m_parser->SetVEKAsciiFilePath(CString(m_path));
        m_parser->Parser();
    }
    void Free() override { m_parser.reset(); }
    std::optional<std::uint64_t> Sum() override { return bench::ChecksumOf(*m_parser->GetCVEKA_Manager()); }

private:
    std::string m_path;
    std::unique_ptr<CVEK_AsciiParser> m_parser;
};

std::vector<bench::Peer> Readers() {
    std::vector<bench::Peer> readers = {
        {"level tree", Format::Veka, true,
         [](const std::string& path) { return std::make_unique<LevelTree>(path); }},
        {"whole import", Format::Veka, true,
         [](const std::string& path) { return std::make_unique<WholeImport>(path); }}};
    for (bench::Peer& peer : bench::Peers()) readers.push_back(std::move(peer));
    return readers;
}

struct Figures {
    const char* reader;
    double bytes;        // of its own input
    double first = 0;    // seconds of the first read in a process, median
    double seconds = 0;  // of a read in a process that has read before, median
    double best = 0;
    double memory = 0;  // peak of the first read, beyond the program and its input
};

/// The cost of one read in a process of its own. No memory of an earlier read is at hand there.
struct FirstRead {
    double seconds = 0;
    double memory = 0;
};

FirstRead MeasureFirst(const bench::Peer& peer, const std::string& input) {
    int ends[2];
    if (pipe(ends) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
        const std::unique_ptr<bench::Reader> reader = peer.make(input);
        reader->Prepare();
        const double before = bench::ResetPeak();
        const auto start = std::chrono::steady_clock::now();
        reader->Read();
        FirstRead first{std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 0};
        first.memory = bench::Peak() - before;
        _exit(write(ends[1], &first, sizeof first) == sizeof first ? 0 : 1);
    }
    close(ends[1]);
    FirstRead first;
    if (read(ends[0], &first, sizeof first) != sizeof first) first = {};
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return first;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

struct Report {
    std::string file;
    std::int64_t levels;
    double bytes;
    double covered;  // percent of the names and values that the records are made of
    std::vector<Figures> readers;

    const Figures& Of(const char* name) const {
        return *std::ranges::find_if(readers,
                                     [&](const Figures& one) { return std::strcmp(one.reader, name) == 0; });
    }
};

/// The trees of a file as the readers want them, in memory and in files that are gone in the end.
class Inputs {
public:
    explicit Inputs(const std::string& path) : m_texts{path} {
        CECadCls tree;
        tree.m_strFilePath = CString(path);
        tree.ReadLevelTree(0);
        const CECadClsLvlArray& all = *tree.m_pRootLevels;
        levels = bench::CountLevels(all);
        covered = bench::CoveredPercent(all);
        m_texts[Index(Format::Xml)] = bench::WriteXml(all);
        m_texts[Index(Format::Json)] = bench::WriteJson(all);
        m_texts[Index(Format::SExpressions)] = bench::WriteSExpressions(all);
        m_paths[0] = path;
        for (size_t i = 1; i < kFormats; ++i) {
            m_paths[i] = (std::filesystem::temp_directory_path() /
                          ("veka-peers-" + std::to_string(getpid()) + "-" + std::to_string(i)))
                             .native();
            std::ofstream(m_paths[i], std::ios::binary) << m_texts[i];
        }
    }
    ~Inputs() {
        for (size_t i = 1; i < kFormats; ++i) std::filesystem::remove(m_paths[i]);
    }
    Inputs(const Inputs&) = delete;
    Inputs& operator=(const Inputs&) = delete;

    const std::string& For(const bench::Peer& peer) const {
        return (peer.fromFile ? m_paths : m_texts)[Index(peer.format)];
    }
    double BytesFor(const bench::Peer& peer) const {
        return double(std::filesystem::file_size(m_paths[Index(peer.format)]));
    }

    std::int64_t levels = 0;
    double covered = 0;

private:
    static constexpr size_t kFormats = 4;
    static size_t Index(Format format) { return static_cast<size_t>(format); }
    std::array<std::string, kFormats> m_texts, m_paths;
};

/// Checks that a reader has read what the library reads.
void Check(bench::Reader& reader, const char* name, std::int64_t levels, std::optional<std::uint64_t>& sum) {
    if (reader.Count() >= 0 && reader.Count() != levels)
        throw std::runtime_error(std::string(name) + " counts other levels");
    const std::optional<std::uint64_t> own = reader.Sum();
    if (own && sum && own != sum) throw std::runtime_error(std::string(name) + " makes other records");
    if (own) sum = own;
}

/// Measures all readers on one file: in turns, so that a busy moment of the machine slows all of them
/// equally.
Report MeasureFile(const std::string& path, int rounds) {
    const Inputs inputs(path);
    Report report{path, inputs.levels, double(std::filesystem::file_size(path)), inputs.covered, {}};
    const std::vector<bench::Peer> peers = Readers();
    for (const bench::Peer& peer : peers) report.readers.push_back({peer.name, inputs.BytesFor(peer)});

    std::vector<std::vector<double>> times(peers.size());
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < peers.size(); ++i) {
            const FirstRead first = MeasureFirst(peers[i], inputs.For(peers[i]));
            times[i].push_back(first.seconds);
            report.readers[i].memory = std::max(report.readers[i].memory, first.memory);
        }
    for (size_t i = 0; i < peers.size(); ++i) report.readers[i].first = Median(times[i]);

    std::vector<std::unique_ptr<bench::Reader>> readers;
    for (size_t i = 0; i < peers.size(); ++i) {
        readers.push_back(peers[i].make(inputs.For(peers[i])));
        times[i].clear();
    }
    // Reads that are too short for the clock are taken several at a time.
    const int repeats = std::clamp(static_cast<int>(2e6 / report.bytes), 1, 100);
    std::optional<std::uint64_t> sum;  // of the records, which is the same for all
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < peers.size(); ++i) {
            double seconds = 0;
            for (int repeat = 0; repeat < repeats; ++repeat) {
                readers[i]->Prepare();
                const auto start = std::chrono::steady_clock::now();
                readers[i]->Read();
                seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
                if (round == 0 && repeat == 0) Check(*readers[i], peers[i].name, report.levels, sum);
                readers[i]->Free();
            }
            times[i].push_back(seconds / repeats);
        }
    for (size_t i = 0; i < peers.size(); ++i) {
        report.readers[i].seconds = Median(times[i]);
        report.readers[i].best = *std::ranges::min_element(times[i]);
    }
    return report;
}

void Print(const Report& report) {
    std::printf("\n%s: %lld levels, %.3f MB; records are made of %.0f %% of the names and values\n",
                std::filesystem::path(report.file).filename().c_str(), static_cast<long long>(report.levels),
                report.bytes / 1e6, report.covered);
    std::printf("%-28s | %-23s | %-33s |\n", "", "first read in a process", "again, with memory at hand");
    std::printf("%-28s | %12s %10s | %12s %9s %10s | %s\n", "reader", "M levels/s", "ms", "M levels/s",
                "(best)", "ms", "peak memory, bytes a byte of the file");
    const auto levels = static_cast<double>(report.levels);
    for (const Figures& one : report.readers)
        std::printf("%-28s | %12.2f %10.3f | %12.2f %9.2f %10.3f | %.2f\n", one.reader,
                    levels / one.first / 1e6, one.first * 1e3, levels / one.seconds / 1e6,
                    levels / one.best / 1e6, one.seconds * 1e3, one.memory / report.bytes);
}

void WriteJson(const std::vector<Report>& reports, const std::string& path) {
    std::ofstream out(path);
    out << "[";
    for (const Report& report : reports) {
        out << (&report == &reports[0] ? "\n" : ",\n") << "{\"file\":\""
            << std::filesystem::path(report.file).filename().string() << "\",\"levels\":" << report.levels
            << ",\"bytes\":" << report.bytes << ",\"readers\":[";
        for (const Figures& one : report.readers)
            out << (&one == &report.readers[0] ? "" : ",") << "\n {\"reader\":\"" << one.reader
                << "\",\"bytes\":" << one.bytes << ",\"firstSeconds\":" << one.first
                << ",\"seconds\":" << one.seconds << ",\"bestSeconds\":" << one.best
                << ",\"peakBytes\":" << one.memory << "}";
        out << "]}";
    }
    out << "\n]\n";
}

/// A comparison with another reader, and what the library must reach where.
struct Bar {
    enum class Where { Everywhere, Parts, PartsAgain };
    const char* own;
    const char* other;
    double target = 0;  // 0: none
    Where where = Where::Everywhere;

    bool HoldsFor(bool parts, bool again) const {
        return target > 0 && (where == Where::Everywhere || (parts && (again || where == Where::Parts)));
    }
    std::string Text() const {
        if (target == 0) return "none";
        std::ostringstream text;
        text << target;
        if (where == Where::Parts) text << " for the parts";
        if (where == Where::PartsAgain) text << " for the parts, again";
        return text.str();
    }
};
constexpr Bar kBars[] = {
    {"whole import", "On-Demand + records", 1},
    {"whole import", "On-Demand + records, file", 1},
    {"whole import", "s-expressions + records"},
    {"whole import", "s-expressions + records, file"},
    {"whole import", "simdjson DOM + records", 1.2},
    {"whole import", "simdjson DOM + records, file", 1.2},
    {"whole import", "pugixml + records", 1.5},
    {"whole import", "pugixml + records, file", 1.5},
    {"whole import", "pugixml load_file"},
    {"whole import", "pugixml load_buffer", 0.8, Bar::Where::PartsAgain},
    {"level tree", "pugixml load_file", 1.2, Bar::Where::Parts},
    {"level tree", "pugixml load_buffer"},
    {"level tree", "pugixml load_buffer_inplace"},
    {"level tree", "expat, no tree"},
    {"level tree", "RapidJSON Parse"},
    {"level tree", "RapidJSON ParseInsitu"},
    {"level tree", "simdjson DOM, new parser"},
    {"level tree", "simdjson DOM, kept parser"},
};

/// How many times as fast as another reader the library is on one file. In the reads again what disturbs a
/// read makes it longer, so the shortest time counts; a first read cannot be repeated, so the median counts.
double FirstRatio(const Report& report, const Bar& bar) {
    return report.Of(bar.other).first / report.Of(bar.own).first;
}
double AgainRatio(const Report& report, const Bar& bar) {
    return report.Of(bar.other).best / report.Of(bar.own).best;
}

/// The median of a number over several files.
template <class NumberOf>
double MedianOf(const std::vector<const Report*>& reports, NumberOf numberOf) {
    std::vector<double> numbers;
    for (const Report* report : reports) numbers.push_back(numberOf(*report));
    return Median(numbers);
}

/// A cell of the table; bold where a target is missed.
std::string Cell(double ratio, const Bar& bar, bool parts, bool again) {
    char text[32];
    const bool missed = bar.HoldsFor(parts, again) && ratio < bar.target;
    std::snprintf(text, sizeof text, missed ? "**%.2f**" : "%.2f", ratio);
    return text;
}

/// The table of all comparisons and the table of all times, as they are in the documents: for one large file
/// and for several small ones.
void PrintTables(const Report& large, const std::vector<const Report*>& parts) {
    std::printf(
        "\n| the library | compared with | large file: first | again | %zu parts: first | again | target |\n"
        "|---|---|---|---|---|---|---|\n",
        parts.size());
    for (const Bar& bar : kBars) {
        const double first = MedianOf(parts, [&](const Report& one) { return FirstRatio(one, bar); });
        const double again = MedianOf(parts, [&](const Report& one) { return AgainRatio(one, bar); });
        std::printf("| %s | %s | %s | %s | %s | %s | %s |\n", bar.own, bar.other,
                    Cell(FirstRatio(large, bar), bar, false, false).c_str(),
                    Cell(AgainRatio(large, bar), bar, false, true).c_str(),
                    Cell(first, bar, true, false).c_str(), Cell(again, bar, true, true).c_str(),
                    bar.Text().c_str());
    }
    std::printf(
        "\n| reader | large file, ms: first | again | median part, ms: first | again "
        "|\n|---|---|---|---|---|\n");
    for (const Figures& reader : large.readers)
        std::printf("| %s | %.0f | %.0f | %.3f | %.3f |\n", reader.reader, reader.first * 1e3,
                    reader.best * 1e3,
                    MedianOf(parts, [&](const Report& one) { return one.Of(reader.reader).first * 1e3; }),
                    MedianOf(parts, [&](const Report& one) { return one.Of(reader.reader).best * 1e3; }));
}

void PrintRatio(const Bar& bar, double first, double again) {
    std::printf("%-14s %-30s %8.2f %8.2f   %s\n", bar.own, bar.other, first, again, bar.Text().c_str());
}

constexpr const char* kRatioHeader = "\n%-14s %-30s %8s %8s   %s\n";

/// How many times as fast as other readers the library is on one file.
void PrintRatios(const Report& report) {
    std::printf(kRatioHeader, "how fast is", "compared with", "first", "again", "target");
    for (const Bar& bar : kBars) PrintRatio(bar, FirstRatio(report, bar), AgainRatio(report, bar));
    std::printf("peak memory of the whole import to that of pugixml's tree: %.2f\n",
                report.Of("whole import").memory / report.Of("pugixml load_buffer").memory);
}

/// The same over several files: the median of their ratios.
void PrintMedians(const std::vector<const Report*>& reports) {
    double covered = 0;
    for (const Report* report : reports) covered += report->covered / double(reports.size());
    std::printf(
        "\n%zu files one by one, the median of their ratios; records are made of %.0f %% of the names and "
        "values on average\n",
        reports.size(), covered);
    std::printf(kRatioHeader, "how fast is", "compared with", "first", "again", "target");
    for (const Bar& bar : kBars)
        PrintRatio(bar, MedianOf(reports, [&](const Report& one) { return FirstRatio(one, bar); }),
                   MedianOf(reports, [&](const Report& one) { return AgainRatio(one, bar); }));
    std::printf("peak memory of the whole import to that of pugixml's tree: %.2f\n",
                MedianOf(reports, [](const Report& one) {
                    return one.Of("whole import").memory / one.Of("pugixml load_buffer").memory;
                }));
}

}  // namespace

int main(int argc, char** argv) {
    int rounds = 9;
    std::string json;
    std::vector<std::string> files;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--rounds" && i + 1 < argc)
            rounds = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--json" && i + 1 < argc)
            json = argv[++i];
        else
            files.push_back(argument);
    }
    if (files.empty()) {
        std::cerr << "usage: veka_peers [--rounds N] [--json OUT] FILE...\n";
        return 2;
    }
    bench::KeepMemory();
    std::vector<Report> reports;
    for (const std::string& file : files) {
        reports.push_back(MeasureFile(file, rounds));
        if (files.size() > 5 && reports.back().bytes < kLargeFile) continue;
        Print(reports.back());
        PrintRatios(reports.back());
        std::fflush(stdout);
    }
    std::vector<const Report*> small;
    for (const Report& report : reports)
        if (report.bytes < kLargeFile) small.push_back(&report);
    if (small.size() > 1) PrintMedians(small);
    const auto large =
        std::ranges::find_if(reports, [](const Report& one) { return one.bytes >= kLargeFile; });
    if (small.size() > 1 && large != reports.end()) PrintTables(*large, small);
    if (!json.empty()) WriteJson(reports, json);
    return 0;
}
