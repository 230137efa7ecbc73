#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "bench_grids.h"
#include "bench_surfaces.h"
#include "formats/unblanked_points.h"
#include "mapengine/grid_file.h"
#include "player/player.h"
#include "surferfns/terrain_statistics.h"

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

/// A band across a blank grid that steepens evenly from flat to 84 degrees: as many slopes as the tables take, all bins
/// about as full as the others.
Grid SteepeningBand(int side) {
    constexpr int mostNodes = 70'000;
    constexpr double steepest = 84;
    Grid grid(GridGeometry{.Columns = side, .Rows = side, .XMin = 0, .XMax = 10, .YMin = 0, .YMax = 10});
    std::fill(grid.Z.begin(), grid.Z.end(), kBlankHeight);
    const int band = std::min(side, mostNodes / side);
    const double spacing = 10.0 / (side - 1);
    double z = 0;
    for (int column = 0; column < side; ++column) {
        for (int row = 0; row < band; ++row) grid.At(column, row) = z;
        z += spacing * std::tan(steepest * column / side * std::numbers::pi / 180);
    }
    return grid;
}

/// The whole tool as a person runs it: slope of a grid file, its text, the table, mean and deviation, all to and from
/// the page cache.
void SlopeWithTables(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    WriteGrid(files, folder.Path("a.grd"), SteepeningBand(static_cast<int>(state.range(0))), GridFormat::Binary64);
    const std::string script = "program " + folder.Folder() + "\nopen frmSurfFns\nset frmSurfFns.Dir2 " +
                               folder.Folder() +
                               "\nset frmSurfFns.chkPlotSurfer off\nset frmSurfFns.optTerrain on\n"
                               "set frmSurfFns.File2 a.grd\npress frmSurfFns.cmdProcess\n";
    for (auto _ : state) {
        Player player(
            {}, [](const std::string&) {}, [](const std::string&) {});
        if (player.Run(script) != kStatusGood) state.SkipWithError("the tool failed");
    }
    if (CountLines(ReadFileText(folder.Path("atsresults.csv")).View()) != 13) state.SkipWithError("no tables");
    state.SetComplexityN(state.range(0) * state.range(0));
}
BENCHMARK(SlopeWithTables)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime()->Complexity();

/// The slopes of a grid without blanks are read from its text; the largest has as many nodes as can be.
void TerrainValuesFromText(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    WriteGrid(files, folder.Path("temp.dat"), SmoothGrid(static_cast<int>(state.range(0)), false),
              GridFormat::NodeText);
    std::size_t values = 0;
    for (auto _ : state) values = ReadTerrainValues(folder.Path("temp.dat")).size();
    if (values != static_cast<std::size_t>(state.range(0) * state.range(0))) state.SkipWithError("values were lost");
    state.SetComplexityN(state.range(0) * state.range(0));
}
BENCHMARK(TerrainValuesFromText)->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
