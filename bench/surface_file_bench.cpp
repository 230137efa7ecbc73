#include <benchmark/benchmark.h>

#include "bench_surfaces.h"
#include "viewer/surface_file.h"

namespace crownlab::bench {
namespace {

/// All passes of a read, from the page cache: lines, values, extents, steps, cells.
void ReadSurfaceFile(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string path = folder.Path("surface.csv");
    const int side = static_cast<int>(state.range(0));
    const std::uint64_t bytes = WriteSurfaceText(SmoothSurface(side + 2), path, 5);
    // A first read brings the file into the page cache, and memory to a machine that hands it out slowly.
    std::size_t cells = ReadPointText(path).size();
    for (auto _ : state) {
        std::vector<SurfacePoint> points = ReadPointText(path);
        double origin = 0;
        const SurfaceExtents extents = FindSurfaceExtents(points, false, origin);
        const SurfaceSteps steps = FindSteps(points);
        const GridLimits limits = LimitsForMode(2, extents, steps, {});
        cells = BuildCells(points, limits, steps, SizeOfGrid(limits, steps), CellRule::Rounded).Size();
    }
    const auto expected = static_cast<std::size_t>(side + 2) * static_cast<std::size_t>(side + 2);
    if (cells != expected) state.SkipWithError("the grid has another size than the surface written");
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(side * side);
}
BENCHMARK(ReadSurfaceFile)->Arg(1000)->Arg(2000)->Arg(4000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
