#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "basis/result_file.h"
#include "bench_grids.h"
#include "bench_surfaces.h"
#include "mapengine/grid_derivatives.h"
#include "mapengine/grid_file.h"
#include "mapengine/grid_filter.h"
#include "mapengine/grid_residuals.h"
#include "mapengine/grid_slice.h"
#include "mapengine/grid_volume.h"

namespace crownlab::bench {
namespace {

// Sides of the grids, 2000 being that of a fine scan.
#define CROWNLAB_GRID_SIDES Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime()

void SetNodes(benchmark::State& state) { state.SetComplexityN(state.range(0) * state.range(0)); }

void VolumeBetweenGrids(benchmark::State& state) {
    const Grid upper = SmoothGrid(static_cast<int>(state.range(0)), false);
    const Grid lower = PlaneGrid(static_cast<int>(state.range(0)));
    Progress progress;
    GridVolumes volumes;
    for (auto _ : state) volumes = MeasureVolume(upper, {.Heights = &lower, .Constant = 0}, progress);
    if (std::fabs(volumes.PlanarAbove + volumes.PlanarBelow - 108) > 1e-6) state.SkipWithError("areas don't add up");
    SetNodes(state);
}
BENCHMARK(VolumeBetweenGrids)->CROWNLAB_GRID_SIDES->Complexity();

void VolumeWithFiles(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    const auto side = static_cast<int>(state.range(0));
    WriteGrid(files, folder.Path("upper.grd"), SmoothGrid(side, true), GridFormat::Binary64);
    WriteGrid(files, folder.Path("lower.grd"), PlaneGrid(side), GridFormat::Binary64);
    Progress progress;
    for (auto _ : state) {
        const Grid upper = ReadGrid(folder.Path("upper.grd"));
        const Grid lower = ReadGrid(folder.Path("lower.grd"));
        const GridVolumes volumes = MeasureVolume(upper, {.Heights = &lower, .Constant = 0}, progress);
        if (volumes.PlanarBlank <= 0) state.SkipWithError("no blank cell");
    }
    SetNodes(state);
}
BENCHMARK(VolumeWithFiles)->CROWNLAB_GRID_SIDES->Complexity();

void FilterNineByNine(benchmark::State& state) {
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), true);
    const FilterWeights weights = CentreWeighted(4, 4, grid.Shape);
    Progress progress;
    Grid filtered;
    for (auto _ : state) filtered = FilterGrid(grid, weights, 1, progress);
    if (filtered.At(0, 0) != kBlankHeight) state.SkipWithError("a blank node was filled");
    SetNodes(state);
}
BENCHMARK(FilterNineByNine)->CROWNLAB_GRID_SIDES->Complexity();

void FilterWithFiles(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    WriteGrid(files, folder.Path("a.grd"), SmoothGrid(static_cast<int>(state.range(0)), true), GridFormat::Binary64);
    Progress progress;
    for (auto _ : state) {
        Grid grid = ReadGrid(folder.Path("a.grd"));
        const FilterWeights weights = CentreWeighted(4, 4, grid.Shape);
        WriteGrid(files, folder.Path("b.grd"), FilterGrid(std::move(grid), weights, 1, progress), GridFormat::Binary64);
    }
    if (ReadGrid(folder.Path("b.grd")).At(0, 0) != kBlankHeight) state.SkipWithError("a blank node was filled");
    SetNodes(state);
}
BENCHMARK(FilterWithFiles)->CROWNLAB_GRID_SIDES->Complexity();

/// The second argument tells whether nodes are blank.
void CurvatureAtAnAngle(benchmark::State& state) {
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), state.range(1) != 0);
    Progress progress;
    Grid curvature;
    for (auto _ : state) curvature = CurvatureGrid(grid, 30, progress);
    const int middle = grid.Shape.Rows / 2;
    if (!(curvature.At(middle, middle) < 2)) state.SkipWithError("too curved");
    SetNodes(state);
}
BENCHMARK(CurvatureAtAnAngle)->ArgsProduct({{500, 1000, 2000}, {0, 1}})->Unit(benchmark::kMillisecond)->UseRealTime();

void CurvatureWithFiles(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    WriteGrid(files, folder.Path("a.grd"), SmoothGrid(static_cast<int>(state.range(0)), true), GridFormat::Binary64);
    Progress progress;
    for (auto _ : state) {
        WriteGrid(files, folder.Path("b.grd"), CurvatureGrid(ReadGrid(folder.Path("a.grd")), 30, progress),
                  GridFormat::Binary64);
    }
    if (ReadGrid(folder.Path("b.grd")).At(0, 0) != kBlankHeight) state.SkipWithError("a blank node is curved");
    SetNodes(state);
}
BENCHMARK(CurvatureWithFiles)->CROWNLAB_GRID_SIDES->Complexity();

void SlopeAndAspect(benchmark::State& state) {
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), true);
    Progress progress;
    for (auto _ : state) {
        const Grid slope = SlopeGrid(grid, progress);
        const Grid aspect = AspectGrid(grid, 0.1, progress);
        if (slope.At(0, 0) != aspect.At(0, 0)) state.SkipWithError("a blank node slopes");
    }
    SetNodes(state);
}
BENCHMARK(SlopeAndAspect)->CROWNLAB_GRID_SIDES->Complexity();

void SliceAlongARing(benchmark::State& state) {
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), true);
    std::vector<PlanePoint> ring;
    constexpr int vertices = 2000;
    for (int i = 0; i <= vertices; ++i) {
        const double angle = i * 2 * 3.14159265358979 / vertices;
        ring.push_back({6 + 5 * std::cos(angle), 4.5 + 4 * std::sin(angle)});
    }
    std::int64_t places = 0;
    for (auto _ : state) {
        places = 0;
        WalkSlice(grid, ring, [&](const SlicePlace&) { ++places; });
    }
    if (places <= vertices) state.SkipWithError("no crossings");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(SliceAlongARing)->CROWNLAB_GRID_SIDES->Complexity();

void ResidualsOfRecords(benchmark::State& state) {
    const Grid grid = SmoothGrid(500, true);
    std::string data;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        data += std::to_string(i % 1200 / 100) + "." + std::to_string(i % 100) + ",4.5,0\r\n";
    }
    for (auto _ : state) {
        const Worksheet sheet = Residuals(grid, data, "data", {});
        if (sheet.Rows.back().size() != 4) state.SkipWithError("a record without a residual");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ResidualsOfRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();

#undef CROWNLAB_GRID_SIDES

}  // namespace
}  // namespace crownlab::bench
