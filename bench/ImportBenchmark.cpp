// Measures the reading of the level tree by itself and the whole import, over one large file and over real
// parts one by one.
//   veka_bench FILE... [benchmark options]

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "CountAllocations.h"
#include "Levels.h"
#include "Memory.h"
#include "VEKAsciiDLL.h"

namespace {

std::unique_ptr<CECadCls> ReadTree(const CString& path) {
    auto tree = std::make_unique<CECadCls>();
    tree->m_strFilePath = path;
    tree->ReadLevelTree(0);
    return tree;
}

std::unique_ptr<CVEK_AsciiParser> Import(const CString& path) {
    auto parser = std::make_unique<CVEK_AsciiParser>();
    parser->SetVEKAsciiFilePath(path);
    parser->Parser();
    return parser;
}

/// Peak memory that an operation takes beyond what was there before it.
template <class Operation>
double PeakMemory(Operation operation) {
    const double before = bench::ResetPeak();
    const auto result = operation();
    benchmark::DoNotOptimize(result.get());
    return bench::Peak() - before;
}

/// Measures an operation from the file to its result; freeing the result is not part of it.
template <class Operation>
void Measure(benchmark::State& state, const CString& path, Operation operation) {
    const double size = static_cast<double>(std::filesystem::file_size(path.GetString()));
    const double peak = PeakMemory([&] { return operation(path); });
    const std::int64_t levels = bench::CountLevels(*ReadTree(path)->m_pRootLevels);
    for (auto _ : state) {
        auto result = operation(path);
        benchmark::DoNotOptimize(result.get());
        state.PauseTiming();
        result.reset();
        state.ResumeTiming();
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["bytes/s"] = {rounds * size, benchmark::Counter::kIsRate};
    state.counters["levels/s"] = {rounds * static_cast<double>(levels), benchmark::Counter::kIsRate};
    state.counters["peak/byte"] = peak / size;
}

/// A file that is written for one measurement.
CString WriteFile(const std::string& name, const std::string& text) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / ("veka-bench-" + name);
    std::ofstream(path, std::ios::binary) << text;
    return CString(path.native());
}

std::string Repeat(int count, const std::function<std::string(int)>& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece(i);
    return text;
}

/// Objects from their levels: time an object, which must not grow with their number, and allocations an
/// object.
void ParseObjects(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const auto tree =
        ReadTree(WriteFile("objects", "(X " + Repeat(count, [](int i) {
                                          return "(CUBOID (WIDTH " + std::to_string(i) +
                                                 ") (HEIGHT 1) (THICKNESS 2) (PT 1 2 3) (COLOR 4 5 6))\n";
                                      }) + ")"));
    CVEK_AsciiParser parser;
    std::int64_t allocations = 0;
    for (auto _ : state) {
        const std::int64_t before = g_allocations;
        std::unique_ptr<CVEKA_3DObjectArray> objects(parser.ObjectsParser(tree->m_pRootLevels->GetAt(0)));
        allocations = g_allocations - before;
        benchmark::DoNotOptimize(objects.get());
        state.PauseTiming();
        objects.reset();
        state.ResumeTiming();
    }
    state.counters["ns/object"] = {static_cast<double>(state.iterations()) * count * 1e-9,
                                   benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
    state.counters["allocations/object"] = static_cast<double>(allocations) / count;
}
BENCHMARK(ParseObjects)->Name("objects")->Arg(100'000)->Arg(200'000)->Unit(benchmark::kMillisecond);

/// Padstacks with names of their own: time a padstack, which must not grow with their number.
void ParsePadStacks(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const auto tree = ReadTree(WriteFile("padstacks", "(PADSTACKS " + Repeat(count, [](int i) {
                                                          return "(PADSTACK (PADSTACKNAME S" +
                                                                 std::to_string(i) + ") (TOP (CON P" +
                                                                 std::to_string(i) + ")))\n";
                                                      }) + ")"));
    CVEK_AsciiParser parser;
    for (auto _ : state) {
        std::unique_ptr<CVEKA_PadStackArray> stacks(parser.PadStackParser(tree->m_pRootLevels->GetAt(0)));
        benchmark::DoNotOptimize(stacks.get());
        state.PauseTiming();
        stacks.reset();
        state.ResumeTiming();
    }
    state.counters["ns/padstack"] = {static_cast<double>(state.iterations()) * count * 1e-9,
                                     benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
}
BENCHMARK(ParsePadStacks)->Name("padstacks")->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc < 2) {
        std::cerr << "usage: veka_bench FILE... [benchmark options]\n";
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        const CString path(argv[i]);
        const std::string name = std::filesystem::path(argv[i]).stem().string();
        benchmark::RegisterBenchmark(("level tree/" + name).c_str(), [path](benchmark::State& state) {
            Measure(state, path, ReadTree);
        })->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("whole import/" + name).c_str(), [path](benchmark::State& state) {
            Measure(state, path, Import);
        })->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
