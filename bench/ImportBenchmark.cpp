// Measures the level tree alone and the whole import, over one large file and over real parts one by one.
//   veka_bench FILE... [benchmark options]

#include <benchmark/benchmark.h>
#ifdef __linux__
#include <malloc.h>
#endif

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "VEKAsciiDLL.h"

namespace {

std::int64_t CountLevels(const CECadClsLvlArray& levels) {
    std::int64_t count = 0;
    for (const CECadClsLvl* level : levels) count += 1 + CountLevels(*level->m_pChildren);
    return count;
}

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

/// A memory figure of this process, in bytes; 0 where the system does not tell.
double Memory(const char* name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == name && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

/// Peak memory that an operation takes beyond what was there before it.
template <class Operation>
double PeakMemory(Operation operation) {
#ifdef __GLIBC__
    malloc_trim(0);  // what earlier operations freed must not hide what this one takes
#endif
    std::ofstream("/proc/self/clear_refs") << "5";  // lets the peak begin anew
    const double before = Memory("VmRSS:");
    const auto result = operation();
    benchmark::DoNotOptimize(result.get());
    return Memory("VmHWM:") - before;
}

/// Measures an operation from the file to its result; freeing the result is not part of it.
template <class Operation>
void Measure(benchmark::State& state, const CString& path, Operation operation) {
    const double size = static_cast<double>(std::filesystem::file_size(path.GetString()));
    const double peak = PeakMemory([&] { return operation(path); });
    const std::int64_t levels = CountLevels(*ReadTree(path)->m_pRootLevels);
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
