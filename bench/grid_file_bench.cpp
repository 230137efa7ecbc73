#include <benchmark/benchmark.h>

#include <filesystem>

#include "basis/result_file.h"
#include "bench_grids.h"
#include "bench_surfaces.h"
#include "mapengine/grid_file.h"

namespace crownlab::bench {
namespace {

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void Tell(benchmark::State& state, const std::string& path) {
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(path));
    state.SetBytesProcessed(bytes * static_cast<std::int64_t>(state.iterations()));
    state.SetItemsProcessed(state.range(0) * state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

void WriteFormat(benchmark::State& state, GridFormat format, std::int64_t bytesPerNode) {
    const ScratchFolder folder;
    const std::string path = folder.Path("grid.grd");
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), false);
    FileTable files;
    for (auto _ : state) WriteGrid(files, path, grid, format);
    const auto least = static_cast<std::uintmax_t>(bytesPerNode * state.range(0) * state.range(0));
    if (std::filesystem::file_size(path) < least) state.SkipWithError("the file isn't whole");
    Tell(state, path);
}

void WriteNodeText(benchmark::State& state) { WriteFormat(state, GridFormat::NodeText, 20); }
BENCHMARK(WriteNodeText)->Apply(Sizes);

void WriteAsciiGrid(benchmark::State& state) { WriteFormat(state, GridFormat::AsciiGrid, 10); }
BENCHMARK(WriteAsciiGrid)->Apply(Sizes);

void WriteBinaryGrid(benchmark::State& state) { WriteFormat(state, GridFormat::Binary64, 8); }
BENCHMARK(WriteBinaryGrid)->Apply(Sizes);

void ReadFormat(benchmark::State& state, GridFormat format) {
    const ScratchFolder folder;
    const std::string path = folder.Path("grid.grd");
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), false);
    FileTable files;
    WriteGrid(files, path, grid, format);
    Grid read = ReadGrid(path);
    for (auto _ : state) read = ReadGrid(path);
    if (read.Z != grid.Z) state.SkipWithError("another grid was read than written");
    Tell(state, path);
}

void ReadAsciiGrid(benchmark::State& state) { ReadFormat(state, GridFormat::AsciiGrid); }
BENCHMARK(ReadAsciiGrid)->Apply(Sizes);

void ReadBinaryGrid(benchmark::State& state) { ReadFormat(state, GridFormat::Binary64); }
BENCHMARK(ReadBinaryGrid)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
