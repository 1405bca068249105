// Measures what twice the input costs, along every dimension in which an input can grow. The ratio of linear
// time is 2.
//   veka_scaling                           dimensions of ordinary parts
//   veka_scaling --limits                  inputs far larger than any part, and their memory
//   veka_scaling --report                  reports of ordinary parts, and of files with many findings
//   veka_scaling --hostile [--quick] [TEXT]
//                                          shapes that are made to cost much; fails where one costs too much
//   veka_scaling --memory [TEXT]           the shapes that take the most memory for each byte of the file
// TEXT selects the shapes whose kind or name contains it.

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "Hostile.h"
#include "Memory.h"
#include "VEKAsciiDLL.h"

namespace {

std::string Repeat(int count, const std::function<std::string(int)>& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece(i);
    return text;
}

/// A number between two texts.
std::string Number(const char* before, int number, const char* after) {
    std::string text(before);
    text += std::to_string(number);
    return text += after;
}

struct Dimension {
    const char* name;
    int size;  // which takes some ten milliseconds
    std::function<std::string(int)> text;
};

const std::vector<Dimension> kDimensions = {
    {"depth of nesting, to the limit of 20", 10,
     [](int n) {
         return Repeat(20000,
                       [&](int) { return std::string(size_t(n), '(') + std::string(size_t(n), ')') + "\n"; });
     }},
    {"siblings", 200'000, [](int n) { return "(A\n" + Repeat(n, [](int) { return "(B 1)\n"; }) + ")"; }},
    {"sections", 100'000, [](int n) { return Repeat(n, [](int) { return "(NSHAPE (NAME N))\n"; }); }},
    {"repeats of a section", 100'000, [](int n) { return Repeat(n, [](int) { return "(VEK)\n"; }); }},
    {"values of a level", 500'000, [](int n) { return "(A" + Repeat(n, [](int) { return " 12.5"; }) + ")"; }},
    {"length of a token", 20'000'000, [](int n) { return "(A " + std::string(size_t(n), 'x') + ")"; }},
    {"length of a string", 20'000'000, [](int n) { return "(A \"" + std::string(size_t(n), 'x') + "\")"; }},
    {"lines of a string", 500'000,
     [](int n) { return "(A \"" + Repeat(n, [](int) { return "x\n"; }) + "\")"; }},
    {"strings in a line", 300'000,
     [](int n) { return "(A" + Repeat(n, [](int) { return " \"b c\""; }) + ")"; }},
    {"escaped quotes in a string", 50'000,
     [](int n) { return "(A \"" + Repeat(n, [](int i) { return Number("x", i, "\\\""); }) + "\")"; }},
    {"equal escaped quotes in a string", 50'000,
     [](int n) { return "(A \"" + Repeat(n, [](int) { return "\\\""; }) + "\")"; }},
    {"strings with escaped quotes in a line", 30'000,
     [](int n) { return "(A" + Repeat(n, [](int) { return " \"b\\\"c\""; }) + ")"; }},
    {"comment lines", 1'000'000, [](int n) { return Repeat(n, [](int) { return "// c\n"; }); }},
    {"empty lines", 2'000'000, [](int n) { return std::string(size_t(n), '\n'); }},
    {"blanks", 30'000'000, [](int n) { return "(A" + std::string(size_t(n), ' ') + ")"; }},
    {"unknown keywords", 200'000,
     [](int n) { return "(VEK\n" + Repeat(n, [](int i) { return Number("(U", i, ")\n"); }) + ")"; }},
    {"repeats of a keyword", 200'000,
     [](int n) { return "(VEK (PARTGENERAL\n" + Repeat(n, [](int) { return "(MPN A)\n"; }) + "))"; }},
    {"company part numbers", 200'000,
     [](int n) {
         return "(VEK (PARTGENERAL (CPN" + Repeat(n, [](int i) { return Number(" C", i, ""); }) + ")))";
     }},
    {"objects", 50'000,
     [](int n) {
         return "(PADS (PAD\n" + Repeat(n, [](int) { return "(FILLCIRCLE (PT 1 2 3) (D 0.5))\n"; }) + "))";
     }},
    {"padstacks with pads of their own", 30'000,
     [](int n) {
         return "(PADSTACKS\n" +
                Repeat(n,
                       [](int i) {
                           return Number("(PADSTACK (PADSTACKNAME S", i, ") (TOP ") +
                                  Number("(CON P", i, ")))\n");
                       }) +
                ")";
     }},
};

const std::vector<Dimension> kLimits = {
    {"a line of levels, 1 GB", 100'000'000, [](int n) { return Repeat(n, [](int) { return "(A 1)"; }); }},
    {"a string of 1 GB", 500'000'000, [](int n) { return "(A \"" + std::string(size_t(n), 'x') + "\")"; }},
    {"a list of 10 million values", 5'000'000,
     [](int n) {
         return "(VEK (PARTGENERAL (CPN" + Repeat(n, [](int i) { return Number(" C", i, ""); }) + ")))";
     }},
    {"a million sections", 500'000,
     [](int n) { return Repeat(n, [](int) { return "(NSHAPE (NAME N))\n"; }); }},
    {"a million repeats of a keyword", 500'000,
     [](int n) { return "(VEK (PARTGENERAL\n" + Repeat(n, [](int) { return "(MPN A)\n"; }) + "))"; }},
    {"a million objects in one drawing", 500'000,
     [](int n) {
         return "(PADS (PAD (COMPOSITE\n" +
                Repeat(n, [](int) { return "(FILLCIRCLE (PT 1 2 3) (D 0.5))\n"; }) + ")))";
     }},
};

/// Files with many findings of one kind.
const std::vector<Dimension> kFindings = {
    {"unknown keywords near known ones", 100'000,
     [](int n) { return "(VEK\n" + Repeat(n, [](int) { return "(PARTGENRAL (MPN A))\n"; }) + ")"; }},
    {"unknown keywords, each with another name", 200'000,
     [](int n) { return "(VEK\n" + Repeat(n, [](int i) { return Number("(LAYRES", i, ")\n"); }) + ")"; }},
    {"values that are not read", 2'000'000,
     [](int n) { return "(VEK (PARTGENERAL (MPN A" + Repeat(n, [](int) { return " B"; }) + ")))"; }},
    {"numbers that are none", 50'000,
     [](int n) {
         return "(VEK (LAYERS\n" + Repeat(n, [](int) { return "(LAY (ARN 1mm) (DEPTH 1,5))\n"; }) + "))";
     }},
    {"sections that are replaced", 50'000,
     [](int n) { return Repeat(n, [](int) { return "(VEK (PARTGENERAL (MPN A)))\n"; }); }},
    {"names that lead nowhere", 50'000,
     [](int n) {
         return "(FOOTPRINTS (FOOTPRINT (FPINS\n" +
                Repeat(n, [](int i) { return Number("(FPIN 1 1 (LIBPADSTACK S", i, "))\n"); }) + ")))";
     }},
    {"names that are given twice", 50'000,
     [](int n) {
         return "(PADS\n" + Repeat(n, [](int i) { return Number("(PAD (PADNAME P", i / 2, "))\n"); }) + ")";
     }},
    {"pads that overlap", 10'000,
     [](int n) {
         return "(PADS (PAD (PADNAME P) (FILLCIRCLE (D 1))))(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON "
                "P))))(FOOTPRINTS (FOOTPRINT (FPINS\n" +
                Repeat(n, [](int i) { return Number("(FPIN 1 N", i, " (LIBPADSTACK S))\n"); }) + ")))";
     }},
    {"pins outside of the footprint", 20'000,
     [](int n) {
         return "(FOOTPRINTS (FOOTPRINT (FPINS\n" +
                Repeat(n, [](int i) { return Number("(FPIN 1 1 (PT 9 ", i, "))\n"); }) +
                ") (CAMLAYERS (LAYER (CIRCLE (D 1))))))";
     }},
    {"levels that are not closed", 2'000'000,
     [](int n) { return Repeat(n, [](int) { return "(VEK (PADS\n) "; }); }},
    {"parentheses that close nothing", 2'000'000, [](int n) { return Repeat(n, [](int) { return ")\n"; }); }},
};

// In seconds of processor time: what else runs on the machine is not in it.

double Import(const CString& path) {
    const double start = bench::ProcessorTime();
    {
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(path);
        parser.Parser();
    }
    return bench::ProcessorTime() - start;
}

double Report(const CString& path) {
    std::ifstream file(path.GetString(), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const double start = bench::ProcessorTime();
    veka::ReportImport(bytes);
    return bench::ProcessorTime() - start;
}

CString WriteFile(const std::string& name, const std::string& text) {
    const auto path = std::filesystem::temp_directory_path() / (Number("veka-scaling-", getpid(), "") + name);
    std::ofstream(path, std::ios::binary) << text;
    return CString(path.native());
}

using Work = double (*)(const CString& path);

constexpr double kMostRatio = 2.2;

void Measure(const std::vector<Dimension>& dimensions, int rounds, bool memory, Work work = Import) {
    std::printf("%-44s %10s %10s %8s%s\n", "dimension", "n, ms", "2n, ms", "ratio",
                memory ? "   peak memory of 2n, bytes a byte of the file" : "");
    for (const Dimension& dimension : dimensions) {
        const CString once = WriteFile("-n", dimension.text(dimension.size));
        const CString twice = WriteFile("-2n", dimension.text(2 * dimension.size));
        double best = 1e9, bestOfTwice = 1e9, peak = 0;
        // In turns. What disturbs a measurement makes it longer, so the shortest time counts, and a ratio
        // that is too large is measured more often.
        for (int round = 0; round < rounds || (round < 5 * rounds && bestOfTwice > kMostRatio * best);
             ++round) {
            // Both in fresh memory, or both with memory at hand.
            if (memory) bench::ResetPeak();
            best = std::min(best, work(once));
            const double before = memory ? bench::ResetPeak() : 0;
            bestOfTwice = std::min(bestOfTwice, work(twice));
            if (memory) peak = bench::Peak() - before;
        }
        std::printf("%-44s %10.2f %10.2f %8.2f", dimension.name, best * 1e3, bestOfTwice * 1e3,
                    bestOfTwice / best);
        if (memory)
            std::printf(" %8.2f", peak / static_cast<double>(std::filesystem::file_size(twice.GetString())));
        std::printf("%s\n", bestOfTwice > kMostRatio * best ? "  over 2.2" : "");
        std::fflush(stdout);
        std::filesystem::remove(once.GetString());
        std::filesystem::remove(twice.GetString());
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto take = [&](const char* option) {
        if (arguments.empty() || arguments[0] != option) return false;
        arguments.erase(arguments.begin());
        return true;
    };
    const auto filter = [&] { return arguments.empty() ? std::string() : arguments[0]; };
    if (take("--limits")) {
        Measure(kLimits, 2, true);
    } else if (take("--hostile")) {
        const bool quick = take("--quick");
        return bench::MeasureHostile(quick, filter()) == 0 ? 0 : 1;
    } else if (take("--report")) {
        bench::KeepMemory();
        Measure(kDimensions, 5, false, Report);
        Measure(kFindings, 5, false, Report);
    } else if (take("--memory")) {
        bench::MeasureMemory(filter());
    } else {
        bench::KeepMemory();
        Measure(kDimensions, 9, false);
    }
    return 0;
}
