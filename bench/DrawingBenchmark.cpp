// Measures the drawings of a ball grid of 2,025 pins: from the records to a scene, and from the scene to SVG.
//   veka_bench_drawing [benchmark options]

#include <benchmark/benchmark.h>

#include "BallGrid.h"
#include "drawing/Drawing.h"

namespace {

using bench::BallGrid;

void Footprint(benchmark::State& state) {
    const CVEKA_Manager& manager = BallGrid();
    size_t shapes = 0;
    for (auto _ : state) {
        const drawing::Part part(manager);
        shapes = FootprintScene(part, *part.DefaultFootprint()).Shapes().size();
    }
    state.counters["shapes"] = static_cast<double>(shapes);
}
BENCHMARK(Footprint)->Unit(benchmark::kMillisecond);

void Symbol(benchmark::State& state) {
    const drawing::Part part(BallGrid());
    for (auto _ : state) benchmark::DoNotOptimize(SymbolScene(part, *part.DefaultSymbol()).Shapes().size());
}
BENCHMARK(Symbol)->Unit(benchmark::kMillisecond);

void Package(benchmark::State& state) {
    const drawing::Part part(BallGrid());
    for (auto _ : state)
        benchmark::DoNotOptimize(
            PackageScene(part, *part.DefaultPackage(), drawing::Looking::FromAbove).Shapes().size());
}
BENCHMARK(Package)->Unit(benchmark::kMillisecond);

void Svg(benchmark::State& state) {
    const drawing::Part part(BallGrid());
    const drawing::Scene scene = FootprintScene(part, *part.DefaultFootprint());
    size_t bytes = 0;
    for (auto _ : state) bytes = drawing::WriteSvg(scene, drawing::Side::Top).size();
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(Svg)->Unit(benchmark::kMillisecond);

void ShapeAt(benchmark::State& state) {
    const drawing::Part part(BallGrid());
    const drawing::Scene scene = FootprintScene(part, *part.DefaultFootprint());
    const auto all = [](const drawing::Layer&) { return true; };
    for (auto _ : state) benchmark::DoNotOptimize(scene.ShapeAt({0.1, 0.1}, 0.05, all));
}
BENCHMARK(ShapeAt)->Unit(benchmark::kMillisecond);

}  // namespace
