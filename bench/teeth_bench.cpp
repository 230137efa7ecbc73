#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "bench_surfaces.h"
#include "viewer/height_runs.h"
#include "viewer/multi_grid.h"
#include "viewer/multi_tooth_file.h"
#include "viewer/random_teeth.h"
#include "viewer/sort_list.h"
#include "viewer/surface_area.h"
#include "viewer/surface_wrl.h"
#include "viewer/tooth_counts.h"
#include "viewer/turn_grid.h"

namespace crownlab::bench {
namespace {

constexpr int kSide = 24;

/// A model's output: teeth of 24 by 24 points, y changing with each.
std::string MultiToothText(int teeth) {
    std::string tooth = "0,11\n1,2,3,4,5,6,7,8,9,10\n";
    for (int x = 1; x <= kSide; ++x) {
        for (int y = 1; y <= kSide; ++y) {
            tooth += std::to_string(x) + "," + std::to_string(y) + ",-" + std::to_string(x * y % 7) + ".125\n";
        }
    }
    tooth += "666\n";
    std::string text;
    text.reserve(tooth.size() * static_cast<std::size_t>(teeth));
    for (int t = 0; t < teeth; ++t) text += tooth;
    return text;
}

/// Both passes over a file with the cells of each tooth, as the reader makes them.
void ReadTeeth(benchmark::State& state) {
    const int teeth = static_cast<int>(state.range(0));
    const std::string text = MultiToothText(teeth);
    std::size_t cells = 0;
    for (auto _ : state) {
        const SentinelScan scan = ScanSentinels(text, "bench");
        FieldReader reader(text, "bench");
        cells = 0;
        for (int t = 1; t <= scan.NumTeeth(); ++t) {
            ReadToothParams(reader);
            std::vector<SurfacePoint> points = ReadToothPoints(reader, scan.ToothPoints(t));
            if (t < scan.NumTeeth()) reader.ReadLine();
            double origin = 0;
            const SurfaceExtents extents = FindSurfaceExtents(points, true, origin);
            const SurfaceSteps steps = FindToothSteps(points, {});
            const GridLimits limits = LimitsForMode(2, extents, steps, {});
            cells += BuildCells(points, limits, steps, SizeOfGrid(limits, steps), CellRule::Floored).Size();
        }
    }
    if (cells != static_cast<std::size_t>(teeth) * 9) state.SkipWithError("a tooth has 3 by 3 cells");
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(teeth);
}
BENCHMARK(ReadTeeth)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity();

/// A sample of a tenth of a model file.
void ExtractTeeth(benchmark::State& state) {
    const int teeth = static_cast<int>(state.range(0));
    const std::string text = MultiToothText(teeth);
    RandomSource random;
    std::size_t found = 0;
    for (auto _ : state) found = FindTeeth(text, PickTeeth(teeth, teeth / 10, random), "bench").size();
    if (found != static_cast<std::size_t>(teeth / 10)) state.SkipWithError("the sample has another size");
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(teeth);
}
BENCHMARK(ExtractTeeth)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity();

void SortPaired(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    std::mt19937 random(1);
    std::vector<double> keys(size);
    for (double& key : keys) key = random() % 1000000 / 1000.0;
    std::vector<double> order(size);
    std::iota(order.begin(), order.end(), 1.0);
    std::vector<double> sorted;
    std::vector<double> companion;
    for (auto _ : state) {
        sorted = keys;
        companion = order;
        SortListPaired(sorted, companion, 0, static_cast<std::ptrdiff_t>(size) - 1);
    }
    if (!std::is_sorted(sorted.begin(), sorted.end())) state.SkipWithError("the list isn't sorted");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(SortPaired)->Arg(1000)->Arg(32767)->Arg(1000000)->Unit(benchmark::kMicrosecond)->Complexity();

void MeasureArea(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const SurfaceGrid surface = SmoothSurface(side);
    ToothMeasures measures;
    for (auto _ : state) measures = MeasureTooth(surface, 0);
    if (!(measures.SurfaceArea > static_cast<double>(side - 3) * (side - 3)))
        state.SkipWithError("the area is too small");
    state.SetComplexityN(side * side);
}
BENCHMARK(MeasureArea)->Arg(kSide)->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond)->Complexity();

void HeightRuns(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const SurfaceGrid surface = SmoothSurface(side);
    SurfaceGrid marked;
    double index = 0;
    for (auto _ : state) index = HeightRunIndex(surface, 0, 0.1, marked);
    if (!(index > 1)) state.SkipWithError("the surface has more than one run");
    state.SetComplexityN(side * side);
}
BENCHMARK(HeightRuns)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

void Turn(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const SurfaceGrid surface = SmoothSurface(side);
    SurfaceGrid turned;
    for (auto _ : state) turned = MirroredColumns(Transposed(surface));
    if (turned.z(side - 1, 2) != surface.z(2, 2)) state.SkipWithError("the corner is elsewhere");
    state.SetComplexityN(side * side);
}
BENCHMARK(Turn)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

void WriteModel(benchmark::State& state) {
    const ScratchFolder folder;
    const int side = static_cast<int>(state.range(0));
    const SurfaceGrid surface = SmoothSurface(side);
    FileTable files;
    const std::string path = folder.Path("model.wrl");
    for (auto _ : state) WriteSurfaceWrl(files, path, surface, {.StepX = 0.01, .StepY = 0.01, .ZLow = 0});
    const std::string text = ReadWholeFile(path);
    if (text.empty() || text.back() != '\n') state.SkipWithError("the file isn't whole");
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(side * side);
}
BENCHMARK(WriteModel)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
