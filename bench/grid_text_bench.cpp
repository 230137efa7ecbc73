// The text of a grid to each format: read, converted and written, from and to the page cache.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "basis/paths.h"
#include "basis/result_file.h"
#include "bench_grids.h"
#include "bench_surfaces.h"
#include "convert/grid_dxf.h"
#include "convert/grid_points.h"
#include "convert/grid_wrl.h"
#include "convert/picza_file.h"
#include "convert/points_wrl.h"
#include "formats/unblanked_points.h"
#include "mapengine/grid_file.h"

namespace crownlab::bench {
namespace {

constexpr const char* kInput = "grid.dat";
constexpr const char* kOutput = "model.out";

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

/// Times `convert(files, input, output)` over a grid's text, by what it writes.
template <typename Convert>
void Time(benchmark::State& state, bool blanked, const Convert& convert) {
    const ScratchFolder folder;
    const std::string input = folder.Path(kInput);
    const std::string output = folder.Path(kOutput);
    FileTable files;
    WriteGrid(files, input, SmoothGrid(static_cast<int>(state.range(0)), blanked), GridFormat::NodeText);
    for (auto _ : state) convert(files, input, output);
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(output));
    // Each node takes a number of two characters at the very least.
    if (bytes < 2 * state.range(0) * state.range(0)) state.SkipWithError("the output isn't whole");
    state.SetBytesProcessed(bytes * static_cast<std::int64_t>(state.iterations()));
}

void ToWrl(benchmark::State& state, WrlProduct product, bool blanked) {
    Time(state, blanked, [product](FileTable& files, const std::string& input, const std::string& output) {
        WriteGridWrl(files, output, ReadLattice(input), {.Product = product, .Subject = input});
    });
}

void GridTextToElevationGrid(benchmark::State& state) { ToWrl(state, WrlProduct::ElevationGrid, true); }
BENCHMARK(GridTextToElevationGrid)->Apply(Sizes);

void GridTextToPolygons(benchmark::State& state) { ToWrl(state, WrlProduct::Polygons, true); }
BENCHMARK(GridTextToPolygons)->Apply(Sizes);

/// Vertex numbers have 16 bits, so this one is small.
void GridTextToSurface(benchmark::State& state) { ToWrl(state, WrlProduct::SurfacePolygons, true); }
BENCHMARK(GridTextToSurface)->Arg(45)->Arg(90)->Arg(180)->Unit(benchmark::kMillisecond)->UseRealTime();

void GridTextToPicza(benchmark::State& state) {
    Time(state, true, [](FileTable& files, const std::string& input, const std::string& output) {
        WritePiczaFile(files, output, ReadLattice(input), 40);
    });
}
BENCHMARK(GridTextToPicza)->Apply(Sizes);

void GridTextToDxf(benchmark::State& state) {
    Time(state, true, [](FileTable& files, const std::string& input, const std::string& output) {
        WriteGridDxf(files, output, "grid", ReadLattice(input));
    });
}
BENCHMARK(GridTextToDxf)->Apply(Sizes);

void GridTextToShiftedPoints(benchmark::State& state) {
    Time(state, false, [](FileTable& files, const std::string& input, const std::string& output) {
        WriteShiftedPoints(files, input, output);
    });
}
BENCHMARK(GridTextToShiftedPoints)->Apply(Sizes);

void GridTextToUnblankedPoints(benchmark::State& state) {
    Time(state, false, [](FileTable& files, const std::string& input, const std::string& output) {
        WriteUnblankedPoints(files, input, output);
    });
}
BENCHMARK(GridTextToUnblankedPoints)->Apply(Sizes);

void PointsToElevationGrid(benchmark::State& state) {
    Time(state, true, [](FileTable& files, const std::string& input, const std::string& output) {
        WriteSurfaceFileWrl(files, output, ReadPointLattice(input).Lattice, input);
    });
}
BENCHMARK(PointsToElevationGrid)->Apply(Sizes);

void ImagePointsToElevationGrid(benchmark::State& state) {
    Time(state, true, [](FileTable& files, const std::string& input, const std::string& output) {
        WriteImageWrl(files, output, ReadHeightsInFileOrder(input), input);
    });
}
BENCHMARK(ImagePointsToElevationGrid)->Apply(Sizes);

/// A grid as a scanner file, read back for gridding and as a surface file.
void PiczaToPoints(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string scan = folder.Path("scan.pix");
    Time(state, false, [&scan](FileTable& files, const std::string& input, const std::string& output) {
        if (!std::filesystem::exists(scan)) WritePiczaFile(files, scan, ReadLattice(input), 1000);
        WritePiczaPoints(files, scan, output, kPiczaUnit);
    });
}
BENCHMARK(PiczaToPoints)->Apply(Sizes);

void PiczaToPlaces(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string scan = folder.Path("scan.pix");
    const auto side = static_cast<int>(state.range(0));
    FileTable files;
    {
        ResultFile file(files, scan);
        for (const char* const line : {"VERSION=5", "X", "40", "Y", "20", "Z", "0", "W"}) file.Line(line);
        file.Record(0, 0, 40 * (side - 1), 20 * (side - 1));
        for (const char* const line : {"L", "210"}) file.Line(line);
        for (int r = 0; r < side; ++r) {
            file.Line("S");
            for (int c = 0; c < side; ++c) {
                if ((r + c) % 7 != 0) file.Record(40 * c, 20 * r, (r * 31 + c * 17) % 400);
            }
        }
        file.Line("E");
        file.Commit();
    }
    Time(state, false, [&scan](FileTable& table, const std::string&, const std::string& output) {
        WriteAllPlaces(table, output, ReadPiczaScan(scan, [] {}), kPiczaUnit);
    });
}
BENCHMARK(PiczaToPlaces)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
