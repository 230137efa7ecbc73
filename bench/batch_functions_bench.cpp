#include <benchmark/benchmark.h>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "bench_grids.h"
#include "bench_surfaces.h"
#include "formats/unblanked_points.h"
#include "mapengine/grid_file.h"

namespace crownlab::bench {
namespace {

/// The nodes of a blanked grid lose their blank ones, from and to the page cache.
void BlankPointsOut(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string input = folder.Path("nodes.txt");
    const std::string output = folder.Path("points.dat");
    FileTable files;
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), true);
    WriteGrid(files, input, grid, GridFormat::NodeText);
    for (auto _ : state) WriteUnblankedPoints(files, input, output);
    std::uint64_t left = 0;
    for (const double z : grid.Z) left += IsBlank(z) ? 0 : 1;
    if (CountLines(ReadFileText(output).View()) != left) state.SkipWithError("points were lost");
    const std::uint64_t bytes = ReadFileText(input).View().size();
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(state.range(0) * state.range(0));
}
BENCHMARK(BlankPointsOut)->Arg(250)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
