// Measures this library and other readers on the same trees, in turns.
//   veka_peers [--rounds N] [--json OUT] FILE...

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "Levels.h"
#include "Memory.h"
#include "Peers.h"
#include "VEKAsciiDLL.h"

namespace {

using bench::Format;

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
    std::int64_t Count() override { return -1; }

private:
    std::string m_path;
    std::unique_ptr<CVEK_AsciiParser> m_parser;
};

std::vector<bench::Peer> Readers() {
    std::vector<bench::Peer> readers = {
        {"level tree", Format::Veka,
         [](const std::string& path) { return std::make_unique<LevelTree>(path); }},
        {"whole import", Format::Veka,
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
    std::vector<Figures> readers;

    const Figures& Of(const char* name) const {
        return *std::ranges::find_if(readers,
                                     [&](const Figures& one) { return std::strcmp(one.reader, name) == 0; });
    }
};

/// Measures all readers on one file: in turns, so that a busy moment of the machine slows all of them
/// equally.
Report MeasureFile(const std::string& path, int rounds) {
    Report report{path, 0, double(std::filesystem::file_size(path)), {}};
    std::string xml, json;
    {
        CECadCls levels;
        levels.m_strFilePath = CString(path);
        levels.ReadLevelTree(0);
        report.levels = bench::CountLevels(*levels.m_pRootLevels);
        xml = bench::WriteXml(*levels.m_pRootLevels);
        json = bench::WriteJson(*levels.m_pRootLevels);
    }
    const std::vector<bench::Peer> peers = Readers();
    std::vector<const std::string*> inputs;
    for (const bench::Peer& peer : peers) {
        inputs.push_back(peer.format == Format::Veka ? &path : peer.format == Format::Xml ? &xml : &json);
        report.readers.push_back(
            {peer.name, peer.format == Format::Veka ? report.bytes : double(inputs.back()->size())});
    }

    std::vector<std::vector<double>> times(peers.size());
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < peers.size(); ++i) {
            const FirstRead first = MeasureFirst(peers[i], *inputs[i]);
            times[i].push_back(first.seconds);
            report.readers[i].memory = std::max(report.readers[i].memory, first.memory);
        }
    for (size_t i = 0; i < peers.size(); ++i) report.readers[i].first = Median(times[i]);

    std::vector<std::unique_ptr<bench::Reader>> readers;
    for (size_t i = 0; i < peers.size(); ++i) {
        readers.push_back(peers[i].make(*inputs[i]));
        times[i].clear();
    }
    // Reads that are too short for the clock are taken several at a time.
    const int repeats = std::clamp(static_cast<int>(2e6 / report.bytes), 1, 100);
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < peers.size(); ++i) {
            double seconds = 0;
            for (int repeat = 0; repeat < repeats; ++repeat) {
                readers[i]->Prepare();
                const auto start = std::chrono::steady_clock::now();
                readers[i]->Read();
                seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
                if (round == 0 && repeat == 0 && readers[i]->Count() >= 0 &&
                    readers[i]->Count() != report.levels)
                    throw std::runtime_error(std::string(peers[i].name) + " counts other levels");
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
    std::printf("\n%s: %lld levels, %.3f MB\n", std::filesystem::path(report.file).filename().c_str(),
                static_cast<long long>(report.levels), report.bytes / 1e6);
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

/// The ratios that the library must reach.
void PrintRatios(const Report& report) {
    const Figures& tree = report.Of("level tree");
    const Figures& import = report.Of("whole import");
    const Figures& pugixml = report.Of("pugixml load_buffer");
    const Figures& simdjson = report.Of("simdjson DOM, kept parser");
    const auto print = [](const char* what, double first, double again, const char* bar) {
        std::printf("%-56s %8.2f %8.2f   %s\n", what, first, again, bar);
    };
    std::printf("\n%-56s %8s %8s\n", "ratio", "first", "again");
    print("speed of the level tree to pugixml load_buffer", pugixml.first / tree.first,
          pugixml.seconds / tree.seconds, "at least 1.5");
    print("speed of the level tree to simdjson with a kept parser", simdjson.first / tree.first,
          simdjson.seconds / tree.seconds, "aim 1");
    print("speed of the whole import to pugixml load_buffer", pugixml.first / import.first,
          pugixml.seconds / import.seconds, "at least 1, aim 1.5");
    print("peak memory of the whole import to pugixml's tree", import.memory / pugixml.memory,
          import.memory / pugixml.memory, "at most 1, aim 0.5");
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
        Print(reports.back());
        PrintRatios(reports.back());
        std::fflush(stdout);
    }
    if (!json.empty()) WriteJson(reports, json);
    return 0;
}
